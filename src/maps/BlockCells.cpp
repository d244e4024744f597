#include "maps/BlockCells.h"

#include "model/Numbers.h"

#include <algorithm>
#include <cstddef>

namespace {
/// The value of an axis at a column or row of the grid.
double PointAt(const TAxisData &points, int place) {
    const TVal *point = points.values->GetItem(place - 1, 0);
    return point ? point->GetValue() : 0;
}

TNumberBlock BlockOf(const TMap &map, const IMapGrid &grid, const TCellRange &range) {
    TNumberBlock block;
    block.unit = UnitOf(map.GetCellFormat());
    for (int column = range.left; column <= range.right; ++column)
        block.rpm.push_back(PointAt(*map.axes->rpmAxis, column));
    for (int row = range.top; row <= range.bottom; ++row)
        block.load.push_back(PointAt(*map.axes->throttleAxis, row));
    for (const auto &[column, row] : CellsIn(range))
        block.values.push_back(ParseReal(grid.Cell(column, row)));
    return block;
}

/// The texts of the cells whose numbers have become others.
std::vector<TCellEntry> ChangedTexts(const TNumberBlock &before, const TNumberBlock &after,
                                     const TCellRange &range, const std::string &picture) {
    std::vector<TCellEntry> texts;
    std::size_t place = 0;
    for (const auto &[column, row] : CellsIn(range)) {
        const double number = after.values[place];
        const std::string text = FormatReal(picture, number);
        Round(number); // throws
        if (number != before.values[place] && TryParseReal(text) != before.values[place])
            texts.push_back({column, row, text});
        ++place;
    }
    return texts;
}
} // namespace

std::vector<TGridCell> CellsIn(const TCellRange &range) {
    std::vector<TGridCell> cells;
    for (int row = range.top; row <= range.bottom; ++row)
        for (int column = range.left; column <= range.right; ++column)
            cells.push_back({column, row});
    return cells;
}

std::optional<TGridCell> FirstNoNumber(const IMapGrid &grid, const TCellRange &range) {
    const std::vector<TGridCell> cells = CellsIn(range);
    const auto found = std::find_if(cells.begin(), cells.end(), [&](const TGridCell &cell) {
        return !TryParseReal(grid.Cell(cell.column, cell.row));
    });
    return found == cells.end() ? std::nullopt : std::optional(*found);
}

TBlockEntries ChangedCells(const TMap &map, const IMapGrid &grid, const TCellRange &range,
                           const TBlockChange &change) {
    const TNumberBlock before = BlockOf(map, grid, range);
    TNumberBlock after = before;
    if (std::string problem = change(after); !problem.empty())
        return {{}, std::move(problem)};
    return {ChangedTexts(before, after, range, map.GetCellFormat()), {}};
}
