// A call that the system refused, within this room: ReadFile.h and SafeFile.h say of which file.
#pragma once

#include <string>

struct TRefusal {
    std::string reason; ///< the system's words, UTF-8
};
