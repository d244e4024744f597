// How many threads of this process run only when no other wants to, as IdleThreadsLinux.cpp and
// IdleThreadsWindows.cpp tell it.
#pragma once

#include <cstddef>

std::ptrdiff_t IdleThreads();
