#include "system/FileLinux.h"
#include "system/ReadFile.h"
#include "system/Texts.h"

#include <algorithm>
#include <functional>

namespace {

namespace fs = std::filesystem;

/// What `read` makes of the open file and its length; it gives nothing when the length does not
/// hold.
template <class TRead>
auto Reading(const fs::path &path, std::uint64_t limit, TRead read) {
    try {
        // Without waiting, so that opening a pipe cannot hang; it is refused below.
        const TOpenFile file(path, O_RDONLY | O_NONBLOCK);
        const TStatus status = file.Status();
        if (S_ISDIR(status.st_mode))
            Fail(EISDIR);
        if (!S_ISREG(status.st_mode))
            throw CannotRead(path, Translated("ReadFile", "not a regular file"));
        const auto length = static_cast<std::uint64_t>(status.st_size);
        if (length > limit)
            throw CannotRead(
                path, Filled(Translated("ReadFile", "it has %1 bytes, more than the limit of %2"),
                             {std::to_string(length), std::to_string(limit)}));
        auto contents = read(file, static_cast<std::size_t>(length));
        if (!contents)
            throw CannotRead(path, Translated("ReadFile", "its length changed while it was read"));
        return *std::move(contents);
    } catch (const TSystemFailure &failure) {
        throw CannotRead(path, failure.Reason());
    }
}

std::optional<std::string> ReadLine(const TOpenFile &file, std::size_t length) {
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
    return Reading(file, limit, std::mem_fn(&TOpenFile::ReadAll));
}

std::string ReadFirstLine(const fs::path &file, std::uint64_t limit) {
    return Reading(file, limit, ReadLine);
}

EFileError CannotRead(const fs::path &file, const std::string &reason) {
    return EFileError(
        Filled(Translated("ReadFile", "Cannot read '%1': %2"), {file.string(), reason}));
}
