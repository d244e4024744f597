// How urgent a thread is, as far as an ordinary program may say so.
#pragma once

#include <thread>

/// Lets `thread` run only when no other wants to, or as every other. A refusal is no failure.
void SetIdlePriority(std::thread &thread, bool idle);
