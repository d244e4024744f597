// The selected cells of a map page's current grid, and changing their numbers in one step. The
// arithmetic is NumberBlock.h's, the commands are MapCommands.cpp's.
#pragma once

#include "forms/AligridTypes.h"
#include "maps/BulkAdjust.h"
#include "maps/NumberBlock.h"

#include <functional>
#include <optional>
#include <vector>

#include <QString>

class TStringAlignGrid;
class TfrmMaps;

/// The cells of a range, row by row.
std::vector<TGridCell> CellsIn(const TCellRange &range);

TCellRange SelectedCells(const TStringAlignGrid &grid);

/// The selected body cells of the current grid, whose editor is closed. None when unlocked headers
/// are among them, which the bottom line says.
std::optional<TCellRange> SelectedBody(TfrmMaps &page);

/// One of the functions of NumberBlock.h.
using TBlockChange = std::function<std::string(TNumberBlock &)>;

/// Gives the selected numbers to `change` and enters those that become others as one step, as the
/// page shows numbers. The bottom line says why nothing is changed: a cell that is no number, what
/// `change` says, no other number. Throws ERangeError, before any is entered, for one that no
/// stored value could be.
void ChangeSelection(TfrmMaps &page, const QString &step, const TBlockChange &change);
