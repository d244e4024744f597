// What saves have replaced: the bytes of a file before the first save of a day, each kept whole as
// a patch of an erased EPROM, whose bytes are all $FF. So it stands for itself, whatever becomes of
// the file. Where patches lie is PatchStore.h's.
#pragma once

#include "changes/PatchStore.h"

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

/// What a file was before a save.
struct TEarlier {
    std::filesystem::path kept;           ///< the patch
    std::filesystem::file_time_type time; ///< of the save that replaced it
    std::vector<std::uint8_t> bytes;      ///< the whole file
};

inline constexpr std::size_t mostEarlierVersions = 100;

/// Keeps `bytes` as what `target` was before it is replaced, unless that day has one already. Of
/// all files' the oldest over mostEarlierVersions go.
///
/// @param day  as "20261122"
/// Throws EFileError when the folder cannot be used.
void KeepEarlier(const std::filesystem::path &folder, const std::filesystem::path &target,
                 std::span<const std::uint8_t> bytes, const std::string &day);

/// The earlier versions of a file, newest first; what is no such patch is left out and alone.
/// Throws EFileError when the folder cannot be read.
std::vector<TEarlier> EarlierVersions(const std::filesystem::path &folder,
                                      const std::filesystem::path &file);
