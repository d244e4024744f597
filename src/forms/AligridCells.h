// The cells of a grid: texts, background and font colours, alignments. Plain storage: it tells
// nobody of a change (AligridModel.h does) and knows no defaults (TAligridSettings holds them).
#pragma once

#include "forms/AligridTable.h"
#include "forms/AligridTypes.h"

#include <functional>
#include <limits>
#include <map>

#include <QString>

/// Where each row (or column) comes from: old positions in their new order, each at most once;
/// -1 is a fresh one.
using TOrder = std::vector<int>;

/// Gives the text of a cell.
using TTextSource = std::function<QString(int column, int row)>;

/// Reads outside the shape give nothing, writes there are ignored.
///
/// Each kind of property costs memory as far as the last row that has one: 24 bytes a cell for
/// texts (none for those of a source; equal texts may share theirs) and 5 for background colours.
class TAligridCells {
public:
    int ColCount() const { return columns_; }
    int RowCount() const { return rows_; }
    bool Contains(int column, int row) const {
        return column >= 0 && column < columns_ && row >= 0 && row < rows_;
    }

    TGridRect All() const { return {0, 0, columns_ - 1, rows_ - 1}; }

    /// Sets the shape (negative counts are 0) and empties everything.
    void SetShape(int columns, int rows);
    /// Adds empty rows at the end or cuts rows off it.
    void SetRowCount(int rows);
    /// Moves whole columns and rows with all their properties.
    void Rearrange(const TOrder &columns, const TOrder &rows);

    /// The cell's own text, an empty one too; where none was set, the source's.
    QString Text(int column, int row) const;
    /// True when the text has changed.
    bool SetText(int column, int row, const QString &text);
    void SetTextSource(TTextSource source) { textSource_ = std::move(source); }

    /// See TStringAlignGrid::RectangleText.
    QString RectangleText(const TGridRect &rect, QChar separator) const;

    std::optional<TColor> Color(int column, int row) const;
    std::optional<TColor> FontColor(int column, int row) const;
    std::optional<TAlign> Align(int column, int row) const;
    /// True when there is such a cell.
    bool SetColor(int column, int row, TColor color);
    /// True when there is such a cell.
    bool SetFontColor(int column, int row, TColor color);
    /// The background colours of all cells, row by row, until the shape changes. Each becomes the
    /// cell's own; `standard` where there was none.
    std::span<TColor> LendColors(TColor standard);

    /// The same to read, when each cell has a colour of its own; else none.
    std::span<const TColor> OwnColors() const;

    /// The properties set for this very cell, column or row. A cell's go before its column's, those
    /// before its row's.
    TCellProperties CellProperties(int column, int row) const;
    TCellProperties ColumnProperties(int column) const;
    TCellProperties RowProperties(int row) const;
    /// Replaces them; what `properties` leaves open falls back to the next layer.
    void SetCellProperties(int column, int row, const TCellProperties &properties);
    void SetColumnProperties(int column, const TCellProperties &properties);
    void SetRowProperties(int row, const TCellProperties &properties);

private:
    static constexpr std::size_t none = std::numeric_limits<std::size_t>::max();

    /// `none` when there is no such cell.
    std::size_t Position(int column, int row) const {
        const auto columns = static_cast<std::size_t>(columns_);
        return Contains(column, row)
                   ? static_cast<std::size_t>(row) * columns + static_cast<std::size_t>(column)
                   : none;
    }
    template <class TWork>
    void ForEachTable(const TWork &work);
    std::optional<TColor> OwnColor(std::size_t position) const {
        return colored_.At(position) ? std::optional(colors_.At(position)) : std::nullopt;
    }
    template <class T>
    std::optional<T> InForce(std::optional<T> own, std::optional<T> TCellProperties::*kind,
                             int column, int row) const;

    int columns_ = 0;
    int rows_ = 0;
    TTextSource textSource_;
    TCellTable<QString> texts_;
    TCellTable<TColor> colors_; ///< of the cells that `colored_` names
    TCellTable<char> colored_;
    TCellTable<std::optional<TColor>> fontColors_;
    TCellTable<std::optional<TAlign>> aligns_;
    std::map<int, TCellProperties> columnProperties_;
    std::map<int, TCellProperties> rowProperties_;
};
