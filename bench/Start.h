// Runs one of the measured programs, which tell about themselves as Report.h says.
#pragma once

#include <string>
#include <vector>

struct TStart {
    double milliseconds; ///< until its window was shown
    double mebibytes;    ///< resident at the end
};

/// Runs the program of that name beside this one to its end.
/// @throws std::runtime_error when it cannot be started or fails
TStart Start(const std::string &name, std::vector<std::string> arguments);
