#include "forms/AligridCursor.h"

namespace {
bool GoesLeft(TNextCell order) {
    return order == nc_leftdown || order == nc_downleft;
}

bool GoesDownFirst(TNextCell order) {
    return order == nc_downright || order == nc_downleft;
}
} // namespace

TGridCell FirstCell(TNextCell order, const TGridRect &body) {
    return {GoesLeft(order) ? body.right : body.left, body.top};
}

std::optional<TGridCell> NextCell(TNextCell order, TGridCell cell, const TGridRect &body) {
    const TGridCell first = FirstCell(order, body);
    const int step = GoesLeft(order) ? -1 : 1;
    const bool lastColumn = cell.column == (GoesLeft(order) ? body.left : body.right);
    const bool lastRow = cell.row == body.bottom;
    if (lastColumn && lastRow)
        return std::nullopt;
    if (GoesDownFirst(order))
        return lastRow ? TGridCell{cell.column + step, first.row}
                       : TGridCell{cell.column, cell.row + 1};
    return lastColumn ? TGridCell{first.column, cell.row + 1}
                      : TGridCell{cell.column + step, cell.row};
}
