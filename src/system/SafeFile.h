// Writing whole files, so that a reader sees the old contents or the new ones, never a half. Knows
// nothing of what is in them; ROMImage.h and the spec files sit on top. Reading is ReadFile.h's.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>

/// Who may read a file that is made: whom the process's mask lets, or its owner alone.
enum class TReaders { ByMask, Owner };

/// Replaces the contents of `file`, or creates it, through a temporary file in the same folder that
/// is flushed to the disk and renamed over the target. A symbolic link is followed; an existing
/// file keeps its permissions, a new one gets those that `readers` says. Where the folder takes
/// no new file, or no renaming over the target, but the target can be written, it is written in
/// place; so is a device.
///
/// On Windows a file that somebody has open without letting others write and replace it is an
/// error; others who read it go on with the old contents, or the save is refused where the file
/// system cannot do that.
///
/// The temporary file has a name that cannot be guessed and lets nobody read what the target does
/// not. A save that is killed may leave it; the next save of this user in the folder removes it.
///
/// Throws EFileError naming the file and the system's reason. The old file then stands as it was
/// and no temporary file is left, unless the system refuses even that. A folder as target is an
/// error. Only what is written in place can be lost: when the process is killed meanwhile, or when
/// the old contents cannot be put back after a failure, which the error then says.
void WriteFileSafely(const std::filesystem::path &file, std::span<const std::uint8_t> bytes,
                     TReaders readers = TReaders::ByMask);

/// Throws the error of WriteFileSafely where that can be told without writing: for a target that
/// may not be written, and for a new file that its folder does not take. Leaves nothing behind.
void CheckCanWrite(const std::filesystem::path &file);

/// False only for what surely is not there: a file that cannot be looked at may exist.
bool MayExist(const std::filesystem::path &name);
