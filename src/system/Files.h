// What is at a name and in a folder, links followed. Names may be of any length: the standard
// library's own functions end at 260 characters on Windows. Contents are the business of ReadFile.h
// and SafeFile.h.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <system_error>

/// The system's words for an error of what follows, UTF-8.
std::string ReasonOf(const std::error_code &error);

/// not_found when there is nothing; none where the system does not tell.
std::filesystem::file_type TypeAt(const std::filesystem::path &name, std::error_code &error);

/// True for regular files alone.
bool IsFile(const std::filesystem::path &name);
/// True for folders alone.
bool IsFolder(const std::filesystem::path &name);

/// In bytes; only without an error.
std::uintmax_t SizeOf(const std::filesystem::path &file, std::error_code &error);

/// When the file was last written; only without an error.
std::filesystem::file_time_type LastWritten(const std::filesystem::path &file,
                                            std::error_code &error);

/// Whether two names, both there, are of one file or folder.
bool IsSame(const std::filesystem::path &one, const std::filesystem::path &other);

/// Gives `take` each name in a folder, with the folder before it, in the system's order, until it
/// returns false.
void LookThrough(const std::filesystem::path &folder, std::error_code &error,
                 const std::function<bool(const std::filesystem::path &)> &take);

/// The last part of a name, on Windows as UTF-8, else its bytes.
std::string LastPart(const std::filesystem::path &name);

/// A text that is the same for each way to name a file, which need not be there.
std::string OneName(const std::filesystem::path &file);

/// Makes a folder that its owner alone may look into, unless it is there; those above it get the
/// usual rights.
void MakeOwnFolder(const std::filesystem::path &folder, std::error_code &error);

/// Removes a file, if it is there.
void RemoveFile(const std::filesystem::path &file, std::error_code &error);
