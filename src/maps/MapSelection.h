// The selected cells of a map page's current grid, and changing their numbers in one step. What
// becomes of the cells is BlockCells.h's, the commands are CellCommands.cpp's.
#pragma once

#include "maps/BlockCells.h"

#include <optional>
#include <vector>

#include <QString>

struct TCellText;
class TStringAlignGrid;
class TfrmMaps;

TCellRange SelectedCells(const TStringAlignGrid &grid);

/// The selected body cells of the current grid, whose editor is closed. None when unlocked headers
/// are among them, which the bottom line says.
std::optional<TCellRange> SelectedBody(TfrmMaps &page);

/// As a map page takes them.
std::vector<TCellText> CellTexts(const std::vector<TCellEntry> &entries);

/// Gives the selected numbers to `change` and enters those that become others as one step, as the
/// page shows numbers. The bottom line says why nothing is changed: a cell that is no number, what
/// `change` says, no other number. Throws ERangeError, before any is entered, for one that no
/// stored value could be.
void ChangeSelection(TfrmMaps &page, const QString &step, const TBlockChange &change);
