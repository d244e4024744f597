// The arithmetic of the bulk adjust tool: many cells of one grid at once, without a window.
// ToolWindow.h asks for it.
#pragma once

#include "model/MapViews.h"

#include <cstdint>
#include <string>

/// What is added to each cell: `amount` units, or `amount` percent of the cell's own value.
struct TAdjustment {
    int sign = 1; ///< +1 adds, -1 subtracts
    bool percent = false;
    std::int32_t amount = 0;
};

/// Grid coordinates, all four included.
struct TCellRange {
    int left;
    int top;
    int right;
    int bottom;
};

/// The adjusted value. Units are not rounded; a percentage is rounded to the nearest integer, ties
/// to even, in extended precision, while the old value keeps its fraction (12.5 plus 10 percent
/// is 13.5). Never clamped.
/// @throws ERangeError when the change does not fit 64 bits
double Adjusted(double value, const TAdjustment &adjustment);

/// Rewrites each cell of `range` with `picture` and marks it blue; a cell that is no number keeps
/// its text and turns red, and the others are still adjusted.
void AdjustCells(IMapGrid &grid, const TCellRange &range, const TAdjustment &adjustment,
                 const std::string &picture);
