// Cells of a grid as text with their headers, for a spreadsheet. Without them it is
// TStringAlignGrid::RectangleText.
#pragma once

#include "forms/Aligrid.h"

/// The cells of `rect`, which lies inside `grid` behind its first row and column, under the cells
/// of that row and each line behind that of that column; joined by `separator`, "\n" ends each
/// line.
QString HeadedText(const TStringAlignGrid &grid, const TGridRect &rect, QChar separator);
