#include "maps/MapGrid.h"

#include <algorithm>

namespace {
constexpr auto usualEntry = "10240"; // room for what is typed, whatever the map holds
constexpr int cellMargins = 8;       // pixels, both sides together
constexpr int leastRows = 6;

/// Of the longest text: narrow columns leave room for the chart beside the grid.
int ColumnWidth(const TStringAlignGrid &grid) {
    QString longest = usualEntry;
    for (int row = 0; row < grid.RowCount(); ++row)
        for (int column = 0; column < grid.ColCount(); ++column)
            if (const QString text = grid.Cell(column, row); text.size() > longest.size())
                longest = text;
    return grid.fontMetrics().horizontalAdvance(longest) + cellMargins;
}
} // namespace

void TMapGrid::SetShape(int columns, int rows) {
    const TGridUpdate update(grid_);
    grid_.SetShape(columns, rows);
    grid_.SetFixedRows(rows > 1 ? 1 : 0);
    grid_.SetFixedCols(columns > 1 ? 1 : 0);
    grid_.Editable = columns > 1 || rows > 1; // the one cell without a map holds nothing
}

void TMapGrid::UnlockAxes(bool loadToo) {
    const TCellProperties header{.color = grid_.FixedColor, .fontColor = {}, .align = {}};
    if (grid_.RowCount() > 1) {
        grid_.SetFixedRows(0);
        grid_.SetPropRow(0, header);
    }
    if (loadToo && grid_.ColCount() > 1) {
        grid_.SetFixedCols(0);
        grid_.SetPropCol(0, header);
    }
    Fit();
}

void TMapGrid::FixAxes(int columns, int rows) {
    if (rows == grid_.FixedRows() && columns == grid_.FixedCols())
        return;
    if (rows == 0)
        return UnlockAxes(columns == 0);
    grid_.SetFixedRows(rows);
    grid_.SetFixedCols(columns);
    grid_.SetPropRow(0, {});
    grid_.SetPropCol(0, {});
    Fit();
}

std::string TMapGrid::Cell(int column, int row) const {
    return grid_.Cell(column, row).toStdString();
}

void TMapGrid::SetCell(int column, int row, const std::string &text) {
    grid_.SetCell(column, row, QString::fromStdString(text));
}

void TMapGrid::SetFontColor(int column, int row, TColor color) {
    grid_.SetFontColor(column, row, color);
}

void TMapGrid::SetVisible(bool visible) {
    visible_ = visible;
    grid_.setVisible(visible);
}

void TMapGrid::ShowAtMost(int maxRows, int maxColumns) {
    maxRows_ = maxRows;
    maxColumns_ = maxColumns;
    grid_.SetDefaultColWidth(ColumnWidth(grid_));
    Fit();
}

void TMapGrid::SetRoom(QSize room) {
    if (room == room_)
        return;
    room_ = room;
    Fit();
}

int TMapGrid::LeastHeight() const {
    return grid_.SizeFor(std::min(leastRows, maxRows_), 1).height();
}

void TMapGrid::Fit() {
    // Fewer rows bring a scroll bar that may take a column.
    const int rows = RowsThatFit(ColumnsThatFit(maxRows_));
    grid_.FitTo(rows, ColumnsThatFit(rows));
}

int TMapGrid::ColumnsThatFit(int rows) const {
    int columns = std::max(maxColumns_, 1);
    while (columns > 1 && grid_.SizeFor(rows, columns).width() > room_.width())
        --columns;
    return columns;
}

int TMapGrid::RowsThatFit(int columns) const {
    int rows = maxRows_;
    while (rows > leastRows && grid_.SizeFor(rows, columns).height() > room_.height())
        --rows;
    return rows;
}
