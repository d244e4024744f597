// Finds whole maps among the cells of the contents view, and marks and counts them.
#pragma once

#include "filedisplay/Marks.h"

struct TMapStep {
    bool found;
    std::size_t next; ///< where to go on: behind the data of a found map, else one cell on
};

/// Tests the cell at `position`, whatever its colour, and marks the map that starts there. A map
/// has 2 to 30 points on each axis, all its data bytes in range, and the header bytes that
/// `parameters` name.
TMapStep HighlightMapAt(const TSearchGrid &grid, std::size_t position, TMapShape shape,
                        TMapContents contents, const TSearchParameters &parameters,
                        TMapCounters &counters);

/// Goes through all cells and marks every map that starts at an unmarked one; behind a map it goes
/// on after the data. The last two rows start no map (intended; see docs/peculiarities.md).
TFound HighlightAllMaps(const TSearchGrid &grid, TMapShape shape, TMapContents contents,
                        const TSearchParameters &parameters, TMapCounters &counters);
