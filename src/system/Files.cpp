#include "system/Files.h"

namespace {
using TType = std::filesystem::file_type;

bool IsOfType(const std::filesystem::path &name, TType type) {
    std::error_code unknown;
    return TypeAt(name, unknown) == type;
}
} // namespace

bool IsFile(const std::filesystem::path &name) {
    return IsOfType(name, TType::regular);
}

bool IsFolder(const std::filesystem::path &name) {
    return IsOfType(name, TType::directory);
}
