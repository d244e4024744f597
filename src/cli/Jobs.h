// Work on many things side by side, its answers in the order of the things.
#pragma once

#include "cli/Command.h"

#include <cstddef>
#include <functional>
#include <string>

/// What a command says of one of many things.
struct TAnswer {
    std::string text;
    TExit exit = TExit::Done;
};

/// Runs `answer` for 0 to count - 1 on `jobs` threads, each of which has an image in force of its
/// own, and gives what it returns to `take`, in order and on the calling thread. No more than a few
/// answers for each thread are kept meanwhile.
///
/// @param answer  must not throw; what `take` throws ends the work and comes through
void RunInOrder(std::size_t count, int jobs, const std::function<TAnswer(std::size_t)> &answer,
                const std::function<void(TAnswer)> &take);
