#include "forms/AligridCells.h"

#include <algorithm>

#include <QStringBuilder>

namespace {
using TProperties = std::map<int, TCellProperties>;

TCellProperties Of(const TProperties &properties, int position) {
    const auto found = properties.find(position);
    return found == properties.end() ? TCellProperties() : found->second;
}

TProperties Rearranged(const TProperties &old, const TOrder &order) {
    TProperties result;
    for (std::size_t i = 0; i < order.size(); ++i)
        if (const auto found = old.find(order[i]); found != old.end())
            result.emplace(static_cast<int>(i), found->second);
    return result;
}
} // namespace

template <class TWork>
void TAligridCells::ForEachTable(const TWork &work) {
    work(texts_);
    work(colors_);
    work(colored_);
    work(fontColors_);
    work(aligns_);
}

void TAligridCells::SetShape(int columns, int rows) {
    *this = {};
    columns_ = std::max(columns, 0);
    rows_ = std::max(rows, 0);
}

void TAligridCells::SetRowCount(int rows) {
    rows_ = std::max(rows, 0);
    const auto count = static_cast<std::size_t>(rows_) * static_cast<std::size_t>(columns_);
    ForEachTable([count](auto &table) { table.Cut(count); });
    rowProperties_.erase(rowProperties_.lower_bound(rows_), rowProperties_.end());
}

void TAligridCells::Rearrange(const TOrder &columns, const TOrder &rows) {
    std::vector<std::size_t> sources;
    sources.reserve(columns.size() * rows.size());
    for (const int row : rows)
        for (const int column : columns)
            sources.push_back(Position(column, row));
    ForEachTable([&sources](auto &table) { table.Rearrange(sources); });
    columnProperties_ = Rearranged(columnProperties_, columns);
    rowProperties_ = Rearranged(rowProperties_, rows);
    columns_ = static_cast<int>(columns.size());
    rows_ = static_cast<int>(rows.size());
}

QString TAligridCells::Text(int column, int row) const {
    const QString own = texts_.At(Position(column, row));
    const bool asks = own.isNull() && textSource_ && Contains(column, row);
    return asks ? textSource_(column, row) : own;
}

bool TAligridCells::SetText(int column, int row, const QString &text) {
    if (!Contains(column, row) || Text(column, row) == text)
        return false;
    texts_.Set(Position(column, row), text.isNull() ? QString("") : text); // null: never set
    return true;
}

/// The cell's own value, or that of its column, or of its row.
template <class T>
std::optional<T> TAligridCells::InForce(std::optional<T> own,
                                        std::optional<T> TCellProperties::*kind, int column,
                                        int row) const {
    if (own || !Contains(column, row))
        return own;
    const std::optional<T> ofColumn = ColumnProperties(column).*kind;
    return ofColumn ? ofColumn : RowProperties(row).*kind;
}

std::optional<TColor> TAligridCells::Color(int column, int row) const {
    return InForce(OwnColor(Position(column, row)), &TCellProperties::color, column, row);
}

std::optional<TColor> TAligridCells::FontColor(int column, int row) const {
    return InForce(fontColors_.At(Position(column, row)), &TCellProperties::fontColor, column, row);
}

std::optional<TAlign> TAligridCells::Align(int column, int row) const {
    return InForce(aligns_.At(Position(column, row)), &TCellProperties::align, column, row);
}

bool TAligridCells::SetColor(int column, int row, TColor color) {
    if (!Contains(column, row))
        return false;
    const std::size_t position = Position(column, row);
    colors_.Set(position, color);
    colored_.Set(position, true);
    return true;
}

bool TAligridCells::SetFontColor(int column, int row, TColor color) {
    if (!Contains(column, row))
        return false;
    fontColors_.Set(Position(column, row), color);
    return true;
}

std::span<TColor> TAligridCells::LendColors(TColor standard) {
    const auto count = static_cast<std::size_t>(rows_) * static_cast<std::size_t>(columns_);
    const std::span<TColor> colors = colors_.Whole(count);
    const std::span<char> colored = colored_.Whole(count);
    const bool plain = columnProperties_.empty() && rowProperties_.empty();
    std::size_t position = 0;
    for (int row = 0; row < rows_; ++row) {
        for (int column = 0; column < columns_; ++column, ++position)
            if (!colored[position])
                colors[position] = plain ? standard : Color(column, row).value_or(standard);
    }
    std::fill(colored.begin(), colored.end(), true);
    return colors;
}

std::span<const TColor> TAligridCells::OwnColors() const {
    const std::span<const char> colored = colored_.Values();
    const auto count = static_cast<std::size_t>(rows_) * static_cast<std::size_t>(columns_);
    const bool all = colored.size() == count &&
                     std::find(colored.begin(), colored.end(), false) == colored.end();
    return all ? colors_.Values() : std::span<const TColor>();
}

TCellProperties TAligridCells::CellProperties(int column, int row) const {
    const std::size_t position = Position(column, row);
    return {OwnColor(position), fontColors_.At(position), aligns_.At(position)};
}

TCellProperties TAligridCells::ColumnProperties(int column) const {
    return Of(columnProperties_, column);
}

TCellProperties TAligridCells::RowProperties(int row) const {
    return Of(rowProperties_, row);
}

void TAligridCells::SetCellProperties(int column, int row, const TCellProperties &properties) {
    if (!Contains(column, row))
        return;
    const std::size_t position = Position(column, row);
    colors_.Set(position, properties.color.value_or(TColor()));
    colored_.Set(position, properties.color.has_value());
    fontColors_.Set(position, properties.fontColor);
    aligns_.Set(position, properties.align);
}

void TAligridCells::SetColumnProperties(int column, const TCellProperties &properties) {
    if (column >= 0 && column < columns_)
        columnProperties_[column] = properties;
}

void TAligridCells::SetRowProperties(int row, const TCellProperties &properties) {
    if (row >= 0 && row < rows_)
        rowProperties_[row] = properties;
}

QString TAligridCells::RectangleText(const TGridRect &rect, QChar separator) const {
    const TGridRect inside = Common(rect, All());
    QString text;
    if (Empty(inside))
        return text;
    const qsizetype cells =
        qsizetype{inside.right - inside.left + 1} * (inside.bottom - inside.top + 1);
    text.reserve(4 * cells);
    for (int row = inside.top; row <= inside.bottom; ++row) {
        for (int column = inside.left; column <= inside.right; ++column)
            text += Text(column, row) % (column < inside.right ? separator : QChar('\n'));
    }
    return text;
}
