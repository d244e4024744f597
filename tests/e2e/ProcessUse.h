// What this process holds of its system, as ProcessUseLinux.cpp and ProcessUseWindows.cpp tell it.
#pragma once

#include <cstddef>

struct TUse {
    std::size_t heap;     ///< KiB in use
    std::size_t resident; ///< KiB in memory, what the allocator keeps for later included
    int files;            ///< open
    int threads;
};

TUse Use();
