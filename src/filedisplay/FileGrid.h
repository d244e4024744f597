// The contents view's grid: the whole ROM image as one row of cells per 16 bytes, and the addresses
// that its headers give. What the cells' colours mean is Marks.h's.
#pragma once

#include "filedisplay/SearchCells.h"
#include "forms/Aligrid.h"

#include <span>

/// Sets the grid up once: columns and their headers, and how it behaves. It has no rows yet.
void PrepareFileGrid(TStringAlignGrid &grid);

/// Shows a copy of `bytes` in decimal, or as "$" and two hexadecimal digits. All marks are lost.
void FillFileGrid(TStringAlignGrid &grid, std::span<const std::uint8_t> bytes, bool hexadecimal);

/// Makes all columns 38 pixels wide, wider where a large font needs it, and the grid as wide as
/// they are, with room for the scroll bar when not all rows are visible at `visibleHeight` pixels.
void SizeFileGrid(TStringAlignGrid &grid, int visibleHeight);

/// Some cells as rows for a spreadsheet, under the headers of their columns and behind those of
/// their rows: "\t" between the cells, "\n" after each row. `rect` holds none of the headers.
QString HeadedText(const TStringAlignGrid &grid, const TGridRect &rect);

/// The marks, to be read and written as the grid keeps them; until other bytes are shown.
TCellColors MarksOf(TStringAlignGrid &grid);

/// The same to look at alone. There are none before they were first to be written.
TSeenColors SeenMarks(const TStringAlignGrid &grid);

/// Image offset of a data cell (column and row from 1).
inline std::size_t CellOffset(int column, int row) {
    return cellsPerRow * static_cast<std::size_t>(row - 1) + static_cast<std::size_t>(column - 1);
}

/// The data cell of an image offset.
inline TGridCell CellAt(std::size_t offset) {
    return {static_cast<int>(offset % cellsPerRow) + 1, static_cast<int>(offset / cellsPerRow) + 1};
}
