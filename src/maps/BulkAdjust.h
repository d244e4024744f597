// What the bulk adjust tool does: which cells of a grid, and what becomes of them; without a
// window. ToolWindow.h asks for it.
#pragma once

#include "model/MapSets.h"
#include "model/MapViews.h"

#include <cstdint>
#include <string>

/// What is added to each cell: `amount` units, or `amount` percent of the cell's own value.
struct TAdjustment {
    int sign = 1; ///< +1 adds, -1 subtracts
    bool percent = false;
    std::int32_t amount = 0;
};

/// Grid coordinates, all four included; empty where the right or lower end lies before the other.
struct TCellRange {
    int left;
    int top;
    int right;
    int bottom;
    bool operator==(const TCellRange &) const = default;
};

/// What of a grid is adjusted, in the order in which the window offers it.
enum class TAdjustRange { All, Row, Column };

/// A grid's shape, headers included, and its current cell.
struct TGridPlace {
    int columns;
    int rows;
    int currentColumn;
    int currentRow;
};

/// The range that counts for a map when `requested` is chosen. Idle and full throttle have one row,
/// which leaves them "Row" alone.
TAdjustRange RangeFor(TMapKind map, TAdjustRange requested);

/// The cells that `range` takes of a map's grid: of part throttle the body, or the row or column of
/// the current cell, which counts as it is, a header after "Unlock Axis" included: intended, users
/// shift a whole axis so. Of the others always the first body row.
TCellRange CellsToAdjust(TMapKind map, TAdjustRange range, const TGridPlace &grid);

/// The adjusted value. Units are not rounded; a percentage is rounded to the nearest integer, ties
/// to even, in extended precision, while the old value keeps its fraction (12.5 plus 10 percent
/// is 13.5). Never clamped.
/// @throws ERangeError when the change does not fit 64 bits
double Adjusted(double value, const TAdjustment &adjustment);

/// Rewrites each cell of `range` with `picture` and marks it blue; a cell that is no number keeps
/// its text and turns red, and the others are still adjusted.
void AdjustCells(IMapGrid &grid, const TCellRange &range, const TAdjustment &adjustment,
                 const std::string &picture);
