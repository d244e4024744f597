#include "system/SafeFile.h"

#include "system/Errors.h"
#include "system/Files.h"
#include "system/Refusal.h"
#include "system/ReplaceFile.h"
#include "system/Texts.h"

namespace {
namespace fs = std::filesystem;

EFileError CannotWrite(const fs::path &file, const TRefusal &refusal) {
    return EFileError(
        Filled(Translated("SafeFile", "Cannot write '%1': %2"), {file.string(), refusal.reason}));
}
} // namespace

TRefusal Spoilt(const std::string &reason) {
    return {Filled(Translated("SafeFile", "%1; the old contents could not be put back"), {reason})};
}

void WriteFileSafely(const fs::path &file, std::span<const std::uint8_t> bytes, TReaders readers) {
    try {
        ReplaceContents(file, bytes, readers);
    } catch (const TRefusal &refusal) {
        throw CannotWrite(file, refusal);
    }
}

void CheckCanWrite(const fs::path &file) {
    try {
        CheckReplacing(file);
    } catch (const TRefusal &refusal) {
        throw CannotWrite(file, refusal);
    }
}

bool MayExist(const fs::path &name) {
    std::error_code error;
    return TypeAt(name, error) != fs::file_type::not_found && error != std::errc::filename_too_long;
}
