// Cells of a map page's current grid on the clipboard, as other programs copy and paste tables.
// What is copied and what may be pasted is CellTable.h's; "Copy Map" and "Paste Map", which move
// whole maps inside the program, are the pages' own.
#pragma once

class TfrmMaps;

/// Copies the selected cells, `withHeaders` those of the body with the axes' cells above and
/// beside.
void CopyCells(TfrmMaps &page, bool withHeaders);

/// Enters the table on the clipboard as one step, its upper left number into the upper left
/// selected cell; a message when any of it cannot be entered, and then none is.
void PasteCells(TfrmMaps &page);
