// What screen readers are told of the cells of a map: "2400 RPM, 20%: 128", and what the colour of
// a text means.
#pragma once

#include "model/MapViews.h"

#include <QString>

class TStringAlignGrid;

/// What the colour of a text on a map page means; an empty text for one without a mark.
QString MarkMeaning(TColor fontColor);

/// What screen readers are told of a mark and of what becomes of a number; either may be empty.
QString WithNote(const QString &mark, const QString &note);

/// Where a cell of a map page's grid is, such as "2400 RPM, 20%".
QString MapCellPlace(const TStringAlignGrid &grid, int column, int row);

/// Names the cells of a map page's grid, its axes' cells too.
void NameMapCells(TStringAlignGrid &grid);
