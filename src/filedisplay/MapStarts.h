// For which cells of the contents view "All Highlighted" adds a page: those that start a map, told
// by their colour alone (Marks.h). The searches of MapSearch.h leave the colours, FilePlacing.cpp
// opens the pages.
#pragma once

#include "filedisplay/Marks.h"

#include <set>
#include <vector>

/// The address that the headers of a cell's row and column give. Only the first three digits of the
/// row count, so that beyond 64 KiB it is another address than `offset`; intended, see
/// docs/peculiarities.md.
std::int32_t HeaderAddress(std::size_t offset);

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
/// at `currentAddress`, not where it was found; intended, see docs/peculiarities.md.
std::vector<TMapToAdd> MapsToAdd(const TCellColors &colors, TShownMaps shown,
                                 std::int32_t currentAddress);
