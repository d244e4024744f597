// What the grid widget, its cells and its cursor rules have in common: places, orders and settings.
// Coordinates are (column, row) everywhere, counted from 0, header cells included.
#pragma once

#include "model/MapViews.h"

#include <algorithm>
#include <cstdint>
#include <optional>

/// All four edges belong to the rectangle.
struct TGridRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    bool operator==(const TGridRect &) const = default;
};

/// The cells that both have.
inline TGridRect Common(const TGridRect &a, const TGridRect &b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

inline bool Empty(const TGridRect &rect) {
    return rect.left > rect.right || rect.top > rect.bottom;
}

enum class TAlign : std::uint8_t { Left, Right, Centre };

/// Where the cursor goes after an edit: along the first direction, and at its end one step along
/// the second, back at the start of the first.
enum TNextCell { nc_rightdown, nc_downright, nc_leftdown, nc_downleft };

/// What happens after the last cell of that order: stay, go to its first cell, leave the grid.
enum TLastCell { lc_stop, lc_first, lc_exit };

/// Properties of one cell, or of all cells of a column or row that have none of their own.
struct TCellProperties {
    std::optional<TColor> color;     ///< background
    std::optional<TColor> fontColor; ///< text
    std::optional<TAlign> align;
    bool operator==(const TCellProperties &) const = default;
};

/// The theme's selection, drawn as a light tint so that coloured texts stay readable on it.
inline constexpr TColor clHighlight = 0x8000000D;

/// Pixels between a text and the sides of its cell.
inline constexpr int cellTextMargin = 5;

/// Settings that are read when they are needed. Those that change the looks show at the next
/// repaint.
struct TAligridSettings {
    TAlign Alignment = TAlign::Left; ///< of cells without an alignment
    TColor DefaultColor = clWindow;  ///< background of cells without one
    TColor DefaultFontColor = clWindowText;
    TColor FixedColor = clBtnFace; ///< background of header cells
    TColor SelectedCellColor = clHighlight;
    TColor SelectedFontColor = clWindowText; ///< of selected cells without a font colour
    bool DrawSelection = true;  ///< selected cells are tinted; the current cell's frame stays
    bool Wordwrap = false;      ///< long texts continue on the next line of their cell
    bool ShowCellHints = false; ///< a text that does not fit its cell is shown as a tool tip

    bool Editable = false;
    bool EditMultiline = false;            ///< Shift+Enter starts a new line in the editor
    bool AutoEditNextCell = false;         ///< the cell reached by Enter or Tab is edited at once
    TNextCell NextCellEdit = nc_rightdown; ///< after Enter
    TNextCell NextCellTab = nc_rightdown;  ///< after Tab
    TLastCell AfterLastCellEdit = lc_stop;
    TLastCell AfterLastCellTab = lc_stop;
};
