// The commands for the cells of a map page: the clipboard and the menu "Selection". What they do is
// MapClipboard.h's and MapSelection.h's.
#pragma once

class TfrmMaps;

/// Gives `page`, which shows its grids, these commands. Their keys work in the grids, and on the
/// page itself, where "Commit" and "Reset" leave the keyboard; boxes, charts and cell editors keep
/// these keys.
void AddCellCommands(TfrmMaps &page);
