// What was not stored as it was given: said at the end, or an error before anything is written.
#pragma once

#include "cli/Console.h"

#include <string>
#include <vector>

class TNotes {
public:
    void Add(std::string note) { notes_.push_back(std::move(note)); }

    /// A line for each on the console's `err`; with `strict` throws EWrongUse of the first instead.
    void Tell(TConsole &console, bool strict) const;

private:
    std::vector<std::string> notes_;
};
