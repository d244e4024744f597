// What is wrong or odd about where a spec file has the maps of an image, and about their values.
#pragma once

#include "changes/MappedImage.h"
#include "spec/IniFile.h"

#include <string>
#include <vector>

enum class TFindingKind {
    NotPlaced,     ///< a map without a place
    OutsideFile,   ///< a map, its pointer or the rev limiter does not lie in the file
    Counts,        ///< so many points that no map has or that cannot be shown
    Axis,          ///< an axis that does not rise, or begins below 0
    Overlap,       ///< bytes that two of them share
    Forms,         ///< pointer and offset of a map say different places
    ValuesAtEnds,  ///< cells of 0 or 255
    RevLimiterEnd, ///< a rev limiter of 0 or 255
};

/// As it stands in files: "not_placed".
const char *NameOf(TFindingKind kind);

struct TFinding {
    TFindingKind kind;
    std::vector<std::string> maps; ///< by their names; "rev-limiter" may be among them
    std::string text;              ///< what is so, without the maps
    bool operator==(const TFinding &) const = default;
};

/// All findings: map by map, then the rev limiter, overlaps and forms. Empty when all is well.
///
/// @param spec  the spec file by which the maps are placed
std::vector<TFinding> Findings(const TMappedImage &image, const TIniFile &spec);

/// How many maps are placed, when all that are lie in the file with points that can be and axes
/// that rise; else 0.
std::size_t SensiblyPlaced(const TMappedImage &image);
