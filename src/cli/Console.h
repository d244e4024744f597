// Where a command writes what it has to say.
#pragma once

#include <ostream>

struct TConsole {
    std::ostream &out; ///< results
    std::ostream &err; ///< errors, notes and progress
    bool outIsTerminal = false;
    bool errIsTerminal = false;
};
