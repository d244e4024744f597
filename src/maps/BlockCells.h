// A rectangle of a map's grid as numbers, and what becomes of its cells: the way from a grid to the
// arithmetic of NumberBlock.h and back, without a widget.
#pragma once

#include "maps/BulkAdjust.h"
#include "maps/CellTable.h"
#include "maps/NumberBlock.h"
#include "model/MapTypes.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

/// The cells of a range, row by row.
std::vector<TGridCell> CellsIn(const TCellRange &range);

/// The first of the cells that is no number; none when all are.
std::optional<TGridCell> FirstNoNumber(const IMapGrid &grid, const TCellRange &range);

/// One of the functions of NumberBlock.h.
using TBlockChange = std::function<std::string(TNumberBlock &)>;

/// What a change of a block makes of its cells.
struct TBlockEntries {
    std::vector<TCellEntry>
        entries;         ///< the cells whose numbers become others, as the map shows them
    std::string problem; ///< what the change says; there are no entries then
};

/// Changes the numbers of body cells, all of which hold one; the grid stays as it is. The axes
/// count as the map has them, not as the grid's headers show them. Throws ERangeError for a number
/// that no stored value could be.
TBlockEntries ChangedCells(const TMap &map, const IMapGrid &grid, const TCellRange &range,
                           const TBlockChange &change);
