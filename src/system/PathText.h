// File names between the file system and UTF-8, in which the command line and patches have them.
#pragma once

#include <filesystem>
#include <string>

inline std::filesystem::path ToPath(const std::string &name) {
    return std::filesystem::path(std::u8string(name.begin(), name.end()));
}

/// For people and for output.
inline std::string PathText(const std::filesystem::path &path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}
