#include "maps/BulkAdjust.h"

#include "model/Numbers.h"
#include "system/Errors.h"
#include "system/Texts.h"

#include <cmath>

namespace {
constexpr long double int64Limit = 9223372036854775808.0L;

void AdjustCell(IMapGrid &grid, int column, int row, const TAdjustment &adjustment,
                const std::string &picture) {
    try {
        const double value = Adjusted(ParseReal(grid.Cell(column, row)), adjustment);
        grid.SetCell(column, row, FormatReal(picture, value));
        grid.SetFontColor(column, row, clBlue);
    } catch (const std::runtime_error &) {
        grid.SetFontColor(column, row, clRed);
    }
}
} // namespace

TAdjustRange RangeFor(TMapKind map, TAdjustRange requested) {
    return map == TMapKind::PT ? requested : TAdjustRange::Row;
}

TCellRange CellsToAdjust(TMapKind map, TAdjustRange range, const TGridPlace &grid) {
    TCellRange cells{1, 1, grid.columns - 1, grid.rows - 1};
    if (map != TMapKind::PT)
        cells.bottom = 1;
    else if (range == TAdjustRange::Row)
        cells.top = cells.bottom = grid.currentRow;
    else if (range == TAdjustRange::Column)
        cells.left = cells.right = grid.currentColumn;
    return cells;
}

double Adjusted(double value, const TAdjustment &adjustment) {
    const std::int64_t signedAmount = std::int64_t{adjustment.amount} * adjustment.sign;
    if (!adjustment.percent)
        return value + static_cast<double>(signedAmount);
    const long double change = std::nearbyint(static_cast<long double>(signedAmount) *
                                              static_cast<long double>(value) / 100.0L);
    if (!(std::fabs(change) < int64Limit))
        throw ERangeError(Translated("Numbers", "The change is out of range"));
    return value + static_cast<double>(change);
}

void AdjustCells(IMapGrid &grid, const TCellRange &range, const TAdjustment &adjustment,
                 const std::string &picture) {
    for (int row = range.top; row <= range.bottom; ++row)
        for (int column = range.left; column <= range.right; ++column)
            AdjustCell(grid, column, row, adjustment, picture);
}
