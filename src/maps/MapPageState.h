// What a map page shows and what its maps hold at one moment, for undo and redo: each grid with its
// texts and edit marks, the maps behind them, the flags, the rev limiter. The bytes of the image
// are MapHistory.h's.
#pragma once

#include "maps/MapGrid.h"
#include "model/MapSets.h"
#include "model/MapState.h"

#include <array>
#include <memory>
#include <vector>

/// The cells of one grid.
class TGridState {
public:
    explicit TGridState(const TStringAlignGrid &grid);

    bool Matches(const TStringAlignGrid &grid) const;
    /// Gives texts, marks and fixed headers back to a grid of the same shape, and makes the first
    /// cell that changes the current one.
    void Restore(TMapGrid &view, TStringAlignGrid &grid) const;

private:
    struct TCell {
        QString text;
        TColor mark;
        bool operator==(const TCell &) const = default;
    };
    static TCell CellOf(const TStringAlignGrid &grid, int column, int row) {
        return {grid.Cell(column, row), grid.FontColor(column, row)};
    }

    int columns_;
    int rows_;
    int fixedColumns_;
    int fixedRows_;
    std::vector<TCell> cells_; ///< row by row
};

/// The rev limiter and its box; as it is here where a page has none.
struct TRevState {
    int shown = 0;
    TColor color = clWindowText;
    bool changed = false;
    std::int32_t raw = 0;
    bool modified = false;
    bool operator==(const TRevState &) const = default;
};

/// What did not change is shared by one state and the next.
struct TMapPageState {
    struct TRow {
        std::shared_ptr<const TGridState> grid;
        std::shared_ptr<const TMapState> map;
        bool changed = false;
        bool operator==(const TRow &) const = default;
    };
    std::array<TRow, 3> rows; ///< by TMapKind
    TRevState rev;
    bool showConverted = false;
    bool dataChanged = false;
    bool imageModified = false;
    bool operator==(const TMapPageState &) const = default;
};
