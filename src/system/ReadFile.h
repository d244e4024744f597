// Reading regular files, whole or their first line. What is in them, and how much of it is
// accepted, is the business of ROMImage.h, of the spec files and of the help texts; writing is
// SafeFile.h's.
#pragma once

#include "system/Errors.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

/// Reads all bytes of a regular file.
///
/// @param limit  largest length accepted, in bytes; a longer file is refused before it is read
/// Throws EFileError (file and system's reason, or file, length and limit) for a missing or
/// unreadable file, one over the limit, one whose length changes meanwhile, and anything but a
/// regular file. Never waits for a pipe.
std::vector<std::uint8_t> ReadWholeFile(const std::filesystem::path &file, std::uint64_t limit);

/// The bytes before the first line feed; all of them when there is none. Reads no more than that
/// takes, in steps of a few KiB. Throws as ReadWholeFile does, for a file over the limit too.
std::string ReadFirstLine(const std::filesystem::path &file, std::uint64_t limit);

/// The error of a file that cannot be read, or that its reader does not take. `reason` is UTF-8.
EFileError CannotRead(const std::filesystem::path &file, const std::string &reason);
