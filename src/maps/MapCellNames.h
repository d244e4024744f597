// What screen readers are told of the cells of a map: "2400 RPM, 20%: 128", and what the colour of
// a text means.
#pragma once

class TStringAlignGrid;

/// Names the cells of a map page's grid, its axes' cells too.
void NameMapCells(TStringAlignGrid &grid);
