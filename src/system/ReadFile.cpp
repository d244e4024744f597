#include "system/ReadFile.h"

#include "system/FileToRead.h"
#include "system/Texts.h"

#include <algorithm>
#include <optional>

namespace {

namespace fs = std::filesystem;

/// What `read` makes of the open file and its length; it gives nothing when the length does not
/// hold.
template <class TRead>
auto Reading(const fs::path &path, std::uint64_t limit, TRead read) {
    try {
        const TFileToRead file(path);
        if (!file.IsRegular())
            throw CannotRead(path, Translated("ReadFile", "not a regular file"));
        const std::uint64_t length = file.Length();
        if (length > limit)
            throw CannotRead(
                path, Filled(Translated("ReadFile", "it has %1 bytes, more than the limit of %2"),
                             {std::to_string(length), std::to_string(limit)}));
        auto contents = read(file, static_cast<std::size_t>(length));
        if (!contents)
            throw CannotRead(path, Translated("ReadFile", "its length changed while it was read"));
        return *std::move(contents);
    } catch (const TRefusal &refusal) {
        throw CannotRead(path, refusal.reason);
    }
}

std::optional<std::vector<std::uint8_t>> ReadAll(const TFileToRead &file, std::size_t length) {
    std::vector<std::uint8_t> bytes(length + 1); // room for one more shows a file that grows
    if (file.Read(bytes) != length)
        return std::nullopt;
    bytes.resize(length);
    return bytes;
}

std::optional<std::string> ReadLine(const TFileToRead &file, std::size_t length) {
    std::string line;
    std::vector<std::uint8_t> step(4096);
    while (line.size() < length) {
        step.resize(std::min(step.size(), length - line.size()));
        if (file.Read(step) < step.size())
            return std::nullopt;
        const auto end = std::find(step.begin(), step.end(), '\n');
        line.append(step.begin(), end);
        if (end != step.end())
            break;
    }
    return line;
}

} // namespace

std::vector<std::uint8_t> ReadWholeFile(const fs::path &file, std::uint64_t limit) {
    return Reading(file, limit, ReadAll);
}

std::string ReadFirstLine(const fs::path &file, std::uint64_t limit) {
    return Reading(file, limit, ReadLine);
}

EFileError CannotRead(const fs::path &file, const std::string &reason) {
    return EFileError(
        Filled(Translated("ReadFile", "Cannot read '%1': %2"), {file.string(), reason}));
}
