// Spec files (*.SPC): INI texts that say where a ROM variant's maps and rev limiter lie and which
// constants convert its timing bytes. Finds them in a folder, reads one into the map sets, writes
// new ones. The list of them, and what follows a choice, is the ROM information page's.
//
// Direct form: six absolute map offsets. Pointer form, told by a primary_offset other than -1: six
// places of two-byte pointers, relative to it, and one mask for their high bytes.
#pragma once

#include "model/ROMTypes.h"
#include "spec/IniFile.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// One spec file of a folder.
struct TSpecEntry {
    std::string label; ///< UTF-8, at most maxSpecLabelLength characters; may be empty
    std::filesystem::path path;
};

/// What a folder holds.
struct TSpecScan {
    std::vector<TSpecEntry> entries; ///< at most maxSpecFiles
    bool moreRemain = false;         ///< the folder holds spec files beyond the last entry
};

inline constexpr std::size_t maxSpecFiles = 21;
inline constexpr std::size_t maxSpecLabelLength = 40;

/// The spec files of `folder`: regular files whose names end in ".spc" in any letter case, in the
/// order the file system gives. A file that cannot be read, or whose first line is empty, is left
/// out; nothing behind that line is read. The label is the first line without the ";" that begins
/// it; the file name where that line is a section's. A folder that cannot be read has no entries.
/// Never throws for what it finds.
TSpecScan ScanSpecFiles(const std::filesystem::path &folder);

/// Three map offsets, absolute.
struct TMapOffsets {
    std::int32_t pt;
    std::int32_t idle;
    std::int32_t wot;
};

/// The places of three map pointers, absolute, and the mask for the high byte of all three.
struct TMapPointers {
    std::int32_t pt;
    std::int32_t idle;
    std::int32_t wot;
    std::int32_t bitmask;
};

/// The three offsets under the keys given, 0 for a missing key; nothing when one is no integer.
std::optional<TMapOffsets> ReadMapOffsets(const TIniFile &ini, std::string_view section,
                                          std::string_view ptKey, std::string_view idleKey,
                                          std::string_view wotKey);

/// The three pointer places under the keys given (0 for a missing key), each plus `primary`
/// (wrapping in 32 bits), and the section's "bitmask" (15 when missing); nothing when one is no
/// integer.
std::optional<TMapPointers> ReadMapPointers(const TIniFile &ini, std::string_view section,
                                            std::string_view ptKey, std::string_view idleKey,
                                            std::string_view wotKey, std::int32_t primary);

/// Places both map sets and the rev limiter as `ini` says, in the form that it has.
///
/// False, and nothing placed, when a map offset, pointer offset or mask is no integer. Throws
/// EConvertError, with nothing placed, when only revlimit_offset is none. In the direct form a map
/// whose key is missing stays where it was; the pointer form sets all cells to 0 first.
bool PlaceFromSpec(const TIniFile &ini, TFuelMapSet &fuelMaps, TTimingMapSet &timingMaps);

/// As PlaceFromSpec by the direct form, whatever form is in force: a file may have both.
bool PlaceDirectly(const TIniFile &ini, TFuelMapSet &fuelMaps, TTimingMapSet &timingMaps);

/// The timing constants of a spec file that names none.
inline constexpr TTimingConstants usualTiming{0.65, 12.7};

/// Sets the timing divider, then the timing subtractor; the usual ones for missing keys. Throws
/// EConvertError for one that is no real number: a bad divider leaves both as they were, a bad
/// subtractor only itself.
void ReadTimingConstants(const TIniFile &ini);

/// Adds a section with the locations of the set's three maps under the keys given; $0000 for an
/// unplaced map.
void WriteMapOffsets(std::string &ini, const TMapSet &mapSet, std::string_view section,
                     std::string_view ptKey, std::string_view idleKey, std::string_view wotKey);

/// The text of a new spec file in the direct form: the label's line, the locations of the six maps
/// and the rev limiter's offset. Line breaks in `label` (UTF-8) become blanks.
std::string NewSpecFile(std::string label, const TFuelMapSet &fuelMaps,
                        const TTimingMapSet &timingMaps);

/// Writes that text over `path`; on an error, EFileError, the old file stays as it was.
void SaveNewSpecFile(const std::filesystem::path &path, const std::string &label,
                     const TFuelMapSet &fuelMaps, const TTimingMapSet &timingMaps);
