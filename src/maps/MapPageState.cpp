#include "maps/MapPageState.h"

#include <optional>

TGridState::TGridState(const TStringAlignGrid &grid)
    : columns_(grid.ColCount()),
      rows_(grid.RowCount()),
      fixedColumns_(grid.FixedCols()),
      fixedRows_(grid.FixedRows()) {
    for (int row = 0; row < rows_; ++row)
        for (int column = 0; column < columns_; ++column)
            cells_.push_back(CellOf(grid, column, row));
}

bool TGridState::Matches(const TStringAlignGrid &grid) const {
    if (columns_ != grid.ColCount() || rows_ != grid.RowCount() ||
        fixedColumns_ != grid.FixedCols() || fixedRows_ != grid.FixedRows())
        return false;
    auto cell = cells_.begin();
    for (int row = 0; row < rows_; ++row)
        for (int column = 0; column < columns_; ++column)
            if (*cell++ != CellOf(grid, column, row))
                return false;
    return true;
}

void TGridState::Restore(TMapGrid &view, TStringAlignGrid &grid) const {
    std::optional<TGridCell> first;
    {
        const TGridUpdate update(grid);
        view.FixAxes(fixedColumns_, fixedRows_);
        auto cell = cells_.begin();
        for (int row = 0; row < rows_; ++row)
            for (int column = 0; column < columns_; ++column, ++cell) {
                if (*cell == CellOf(grid, column, row))
                    continue;
                grid.SetCell(column, row, cell->text);
                grid.SetFontColor(column, row, cell->mark);
                if (!first)
                    first = {column, row};
            }
    }
    if (first)
        grid.SetCurrent(first->column, first->row);
}
