// Cells of a map's grid as the text of a table and back, as spreadsheets copy and paste it: rows of
// fields with tabs between them. Works on the texts of a grid and changes none; the clipboard is
// MapClipboard.h's.
#pragma once

#include "maps/BulkAdjust.h"
#include "model/MapViews.h"

#include <string>
#include <string_view>
#include <vector>

/// Rows of fields. They may differ in length; a field that is missing counts as empty.
using TTextTable = std::vector<std::vector<std::string>>;

/// The fields of a text: CR, LF or both end a row, an empty last line is none. Nothing is quoted:
/// spreadsheets quote what holds tabs or line breaks, which no number does.
TTextTable TableOf(std::string_view text);

/// The cells of `range` as they are shown, without a line end behind the last row.
///
/// @param withHeaders  with the axes' cells above and beside them, and an empty field in the
/// corner;
///                     `range` has body cells alone then
std::string TableText(const IMapGrid &grid, const TCellRange &range, bool withHeaders);

/// A text that is to be entered into a cell.
struct TCellEntry {
    int column;
    int row;
    std::string text;
    bool operator==(const TCellEntry &) const = default;
};

/// A table that was looked through before any of it is entered.
struct TPasting {
    std::vector<TCellEntry> entries; ///< of body cells, all numbers, row by row; as they were typed
    std::string problem;             ///< why nothing can be pasted; there are no entries then
};

/// What is entered when a table is pasted with the upper left one of its numbers into a body cell.
///
/// Headers are left out when they are the map's own, those of the cells beside which they would
/// stand. Compared as numbers, and so recognised:
/// - an empty first field: the first row and the first column are headers, and must be the map's;
/// - else a first row above others that has the RPM headers of its cells, one of them above 255: it
///   can be no row of a map's numbers;
/// - else a first column beside others that has the load headers of its cells, each with its "%".
/// A problem names row and column in the table, counted from 1 with its headers, and the text.
TPasting PastingOf(std::string_view text, const IMapGrid &grid, int column, int row);
