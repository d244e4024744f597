// What was not stored as it was given: said at the end, or an error before anything is written.
#pragma once

#include "cli/Console.h"

#include <string>
#include <vector>

class TNotes {
public:
    /// What became something else: each is told.
    void Add(std::string text) { notes_.push_back({std::move(text), false}); }
    /// What a byte holds nearly: of many the first ones are told.
    void AddRounding(std::string text) { notes_.push_back({std::move(text), true}); }

    /// A line for each on the console's `err`; with `strict` throws EWrongUse of the first instead.
    void Tell(TConsole &console, bool strict) const;

private:
    struct TNote {
        std::string text;
        bool rounding;
    };
    std::vector<TNote> notes_;
};
