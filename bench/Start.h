// Runs one of the measured programs, which tell about themselves as Report.h says; and a benchmark
// itself.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

struct TStart {
    double milliseconds; ///< until its window was shown
    double mebibytes;    ///< resident at the end
};

/// Runs the program of that name beside this one to its end.
/// @throws std::runtime_error when it cannot be started or fails
TStart Start(const std::string &name, std::vector<std::string> arguments);

/// The whole of a benchmark that wants a file for an image: names one, measures, removes it.
/// Returns the exit code: 1 when `measure` answers false or throws, which is told on the standard
/// error.
int MeasureWithImage(const std::function<bool(const std::filesystem::path &image)> &measure);
