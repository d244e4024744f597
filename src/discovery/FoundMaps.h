// Finds the maps of an unknown image: every place that has the written form of a map is scored, and
// what scores best is listed, each byte once. How the scores came about: docs/discovery.md.
#pragma once

#include "discovery/Scorecard.h"
#include "model/MapSets.h"

#include <array>
#include <optional>
#include <vector>

/// A map that was found, and what it seems to be.
struct TFoundMap {
    TMapPlace place;
    TMapContents contents = TMapContents::Fuel; ///< never Any
    TMapKind kind = TMapKind::PT; ///< PT of 2-D maps, one of the others of linear ones
    double score = 0;             ///< natural logarithm of the odds that it is a map
    TMeasures measures{};
    TEvidence evidence{}; ///< what makes up the score, but for what every place has

    /// The chance that this is a map, 0 to 1.
    double Chance() const;
};

/// The byte in front of an axis that the likely maps agree on.
struct TSharedHeader {
    std::uint8_t location = 0; ///< RAM cell of the control unit
    int maps = 0;              ///< likely ones that have it
    int ofMaps = 0;            ///< of so many with such an axis
};

/// Indexes of found maps by contents (fuel, timing) and TMapKind.
using TSix = std::array<std::array<std::optional<std::size_t>, 3>, 2>;

struct TFoundMaps {
    /// Best first; none overlaps another.
    std::vector<TFoundMap> maps;
    /// So many at the beginning are likely.
    std::size_t likely = 0;
    // None: cannot tell.
    std::optional<TSharedHeader> rpmLocation;
    std::optional<TSharedHeader> loadLocation;
    /// The likely maps that make up the fuel and the timing set together.
    TSix six;
};

inline constexpr std::size_t mostFound = 100; ///< maps in the list
inline constexpr double likelyChance = 0.5;   ///< from here on a map is likely

/// Linear in the size of the image, whatever its bytes; never throws for them.
TFoundMaps FindMaps(TRomBytes image);
