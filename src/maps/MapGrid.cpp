#include "maps/MapGrid.h"

void TMapGrid::SetShape(int columns, int rows) {
    grid_.SetShape(columns, rows);
    grid_.SetFixedRows(rows > 1 ? 1 : 0);
    grid_.SetFixedCols(columns > 1 ? 1 : 0);
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
    grid_.FitTo(maxRows, maxColumns);
}
