#include "system/Files.h"

namespace {
namespace fs = std::filesystem;
} // namespace

std::string ReasonOf(const std::error_code &error) {
    return error.message();
}

fs::file_type TypeAt(const fs::path &name, std::error_code &error) {
    return fs::status(name, error).type();
}

std::uintmax_t SizeOf(const fs::path &file, std::error_code &error) {
    return fs::file_size(file, error);
}

fs::file_time_type LastWritten(const fs::path &file, std::error_code &error) {
    return fs::last_write_time(file, error);
}

bool IsSame(const fs::path &one, const fs::path &other) {
    std::error_code error;
    return fs::equivalent(one, other, error) && !error;
}

void LookThrough(const fs::path &folder, std::error_code &error,
                 const std::function<bool(const fs::path &)> &take) {
    fs::directory_iterator entry;
    do
        entry = fs::directory_iterator(folder, error);
    while (error == std::errc::interrupted);
    for (const fs::directory_iterator end; !error && entry != end; entry.increment(error))
        if (!take(entry->path()))
            return;
}

std::string LastPart(const fs::path &name) {
    return name.filename().native();
}

std::string OneName(const fs::path &file) {
    std::error_code error;
    const fs::path resolved = fs::weakly_canonical(fs::absolute(file, error), error);
    return error ? file.native() : resolved.native();
}

void MakeOwnFolder(const fs::path &folder, std::error_code &error) {
    const bool made = fs::create_directories(folder, error);
    std::error_code refused; // hurts nobody: the files in it are the owner's alone
    if (made && !error)
        fs::permissions(folder, fs::perms::owner_all, refused);
}

void RemoveFile(const fs::path &file, std::error_code &error) {
    fs::remove(file, error);
}
