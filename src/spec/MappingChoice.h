// What a choice in "Set Mapping Type" does to the maps: which are zeroed, placed or left alone, in
// which order, and what stands after an error. How spec files read is SpecFile.h's; asking for
// offsets, reading the image again and the buttons are the page's (ROMInfo.h).
#pragma once

#include "model/Workspace.h"

#include <array>
#include <exception>
#include <filesystem>
#include <string>

/// How the maps are placed.
enum class TMappingType { None, Spec, Manual };

/// The type that item `item` of the list stands for: the last item is the manual one, those before
/// it are spec files; no item, and any index outside the list, is none.
TMappingType MappingTypeOf(int item, int lastItem);

/// The choice of none: all cells of the fuel set, then of the timing set, become 0. The maps stay
/// where they are.
void ZeroBothSets(TWorkspace &workspace);

/// How far a spec file was read.
struct TSpecReading {
    bool placed = false;      ///< the maps are placed as the file says
    std::exception_ptr error; ///< what ended the reading, to be shown at the end of the choice
};

/// The choice of a spec file: places both sets and the rev limiter, then reads the timing
/// constants, these also when the maps could not be placed. Never throws: whatever the error, the
/// image is read again before it is shown.
TSpecReading ReadSpec(const std::filesystem::path &file, TWorkspace &workspace);

/// Six offsets as typed: fuel part throttle, idle, full throttle, then timing.
using TTypedOffsets = std::array<std::string, 6>;

/// The manual choice, after OK: zeroes and places the fuel set, then the timing set. The offsets
/// are absolute; one of 0 leaves its map where it was, zeroed. Rev limiter and timing constants
/// stay.
/// @throws EConvertError for the first text that is no integer, before anything has changed
void PlaceByHand(const TTypedOffsets &typed, TWorkspace &workspace);
