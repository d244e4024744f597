// Which cells of the contents view start a map, told by their colour alone, and for which of them
// "All Highlighted" adds a page. The searches of MapSearch.h leave the colours, FilePlacing.cpp
// opens the pages.
#pragma once

#include "filedisplay/MapSearch.h"

#include <set>
#include <span>
#include <vector>

/// A kind of map whose start is recognised.
struct TMapStart {
    TColor color; ///< exactly, unshaded
    TMapContents contents;
    TMapShape shape;
};

/// The kind of map that a cell of this colour starts; nullptr for any other colour.
///
/// The searches give 0x008001 and 0x800081 to no linear map's header: the first is the axis colour,
/// so that zero axis bytes of any found map start one (0x008002 likewise), and the second never
/// stands anywhere. White maps are never recognised. All of that is intended.
const TMapStart *MapStartOf(TColor color);

/// Where the maps of the added pages are: a page shows its part throttle map or its full throttle
/// one, the other is unplaced, at 0.
struct TShownMaps {
    std::set<std::int32_t> partThrottle;
    std::set<std::int32_t> fullThrottle;
};

/// A map that wants a page.
struct TMapToAdd {
    TMapStart start;
    std::int32_t foundAt; ///< for its captions
    std::int32_t placedAt;
};

/// The maps that start among the cells, in reading order, without those that a page shows already,
/// one of the same call included. Addresses are HeaderAddress of the cells. A linear map is placed
/// at `currentAddress`, not where it was found; this is intended.
std::vector<TMapToAdd> MapsToAdd(std::span<const TColor> colors, TShownMaps shown,
                                 std::int32_t currentAddress);
