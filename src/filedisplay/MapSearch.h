// Finds maps among the cells of the contents view and marks them: headers, counts, axis values and
// data. Nothing but the colours and the counters tells what was found. Single values and pointers
// are found by Searches.h.
#pragma once

#include "filedisplay/SearchCells.h"

#include <cstddef>

/// The control unit's two layouts. Linear: header byte, count n, n axis values, n data bytes.
/// TwoD: header byte, x count, x values, header byte, y count, y values, x count * y count data
/// bytes.
enum class TMapShape { Linear, TwoD };

/// What the data bytes are: within the fuel or the timing range, or any bytes.
enum class TMapContents { Fuel, Timing, Any };

struct TMapStep {
    bool found;
    /// Where to go on: behind the data of a found map, else one cell on; both may be the cell
    /// behind the last one.
    std::size_t next;
};

/// Tests the cell at `position`, whatever its colour, and marks the map that starts there. A map
/// has 2 to 30 points on each axis, all its data bytes in range, and the header bytes that
/// `parameters` name. Marks nothing when there is none.
TMapStep HighlightMapAt(const TSearchGrid &grid, std::size_t position, TMapShape shape,
                        TMapContents contents, const TSearchParameters &parameters,
                        TMapCounters &counters);

/// Goes through all cells and marks every map that starts at an unmarked one; behind a map it goes
/// on after the data. The last two rows start no map (intended); data may reach to the last byte.
TFound HighlightAllMaps(const TSearchGrid &grid, TMapShape shape, TMapContents contents,
                        const TSearchParameters &parameters, TMapCounters &counters);
