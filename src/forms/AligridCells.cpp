#include "forms/AligridCells.h"

#include <algorithm>

void TAligridCells::SetShape(int columns, int rows) {
    columns_ = std::max(columns, 0);
    rows_ = std::max(rows, 0);
    texts_.Reshape(columns_, rows_);
    colors_.Reshape(columns_, rows_);
    fontColors_.Reshape(columns_, rows_);
    aligns_.Reshape(columns_, rows_);
}

void TAligridCells::SetRowCount(int rows) {
    rows_ = std::max(rows, 0);
    texts_.SetRowCount(rows_);
    colors_.SetRowCount(rows_);
    fontColors_.SetRowCount(rows_);
    aligns_.SetRowCount(rows_);
}

void TAligridCells::Rearrange(const TOrder &columns, const TOrder &rows) {
    texts_.Rearrange(columns, rows);
    colors_.Rearrange(columns, rows);
    fontColors_.Rearrange(columns, rows);
    aligns_.Rearrange(columns, rows);
    columns_ = static_cast<int>(columns.size());
    rows_ = static_cast<int>(rows.size());
}

QString TAligridCells::Text(int column, int row) const {
    return Contains(column, row) ? texts_.At(column, row) : QString();
}

bool TAligridCells::SetText(int column, int row, const QString &text) {
    if (!Contains(column, row) || texts_.At(column, row) == text)
        return false;
    texts_.At(column, row) = text;
    return true;
}

void TAligridCells::SetRowTexts(int row, std::span<const QString *const> texts) {
    const auto count = std::min(static_cast<std::size_t>(columns_), texts.size());
    if (!Contains(0, row))
        return;
    QString *cell = &texts_.At(0, row);
    for (std::size_t column = 0; column < count; ++column)
        cell[column] = *texts[column];
}

std::optional<TColor> TAligridCells::Color(int column, int row) const {
    return Contains(column, row) ? colors_.At(column, row) : std::nullopt;
}

std::optional<TColor> TAligridCells::FontColor(int column, int row) const {
    return Contains(column, row) ? fontColors_.At(column, row) : std::nullopt;
}

std::optional<TAlign> TAligridCells::Align(int column, int row) const {
    return Contains(column, row) ? aligns_.At(column, row) : std::nullopt;
}

bool TAligridCells::SetColor(int column, int row, TColor color) {
    if (!Contains(column, row))
        return false;
    colors_.SetCell(column, row, color);
    return true;
}

bool TAligridCells::SetFontColor(int column, int row, TColor color) {
    if (!Contains(column, row))
        return false;
    fontColors_.SetCell(column, row, color);
    return true;
}

TCellProperties TAligridCells::CellProperties(int column, int row) const {
    if (!Contains(column, row))
        return {};
    return {colors_.OfCell(column, row), fontColors_.OfCell(column, row),
            aligns_.OfCell(column, row)};
}

TCellProperties TAligridCells::ColumnProperties(int column) const {
    return {colors_.OfColumn(column), fontColors_.OfColumn(column), aligns_.OfColumn(column)};
}

TCellProperties TAligridCells::RowProperties(int row) const {
    return {colors_.OfRow(row), fontColors_.OfRow(row), aligns_.OfRow(row)};
}

void TAligridCells::SetCellProperties(int column, int row, const TCellProperties &properties) {
    if (!Contains(column, row))
        return;
    colors_.SetCell(column, row, properties.color);
    fontColors_.SetCell(column, row, properties.fontColor);
    aligns_.SetCell(column, row, properties.align);
}

void TAligridCells::SetColumnProperties(int column, const TCellProperties &properties) {
    if (column < 0 || column >= columns_)
        return;
    colors_.SetColumn(column, properties.color);
    fontColors_.SetColumn(column, properties.fontColor);
    aligns_.SetColumn(column, properties.align);
}

void TAligridCells::SetRowProperties(int row, const TCellProperties &properties) {
    if (row < 0 || row >= rows_)
        return;
    colors_.SetRow(row, properties.color);
    fontColors_.SetRow(row, properties.fontColor);
    aligns_.SetRow(row, properties.align);
}
