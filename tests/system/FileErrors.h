// The errors that operations on files end in.
#pragma once

#include "system/Errors.h"
#include "system/ReadFile.h"
#include "system/SafeFile.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

/// The text of the file error that `step` throws; empty when it throws none.
template <class TStep>
std::string ErrorOf(TStep step) {
    try {
        step();
    } catch (const EFileError &error) {
        return error.what();
    }
    return "";
}

inline std::string ReadError(const std::filesystem::path &file, std::uint64_t limit = 1000) {
    return ErrorOf([&] { ReadWholeFile(file, limit); });
}

inline const std::vector<std::uint8_t> oldBytes{1, 2, 3};
inline const std::vector<std::uint8_t> newBytes{9, 8, 7, 6, 5};

inline std::string WriteError(const std::filesystem::path &file) {
    return ErrorOf([&] { WriteFileSafely(file, newBytes); });
}
