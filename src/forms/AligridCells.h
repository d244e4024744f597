// The cells of a grid: texts, background and font colours, alignments. Plain storage: it tells
// nobody of a change (AligridModel.h does) and knows no defaults (TAligridSettings holds them).
#pragma once

#include "forms/AligridLayers.h"
#include "forms/AligridTypes.h"

#include <span>

#include <QString>

/// Reads outside the shape give nothing, writes there are ignored.
///
/// A cell costs 24 bytes for its text (equal texts may share theirs) and 8 more per kind of colour
/// once any cell has a colour of its own: 35 MB for the 65,537 x 17 cells of the largest image.
class TAligridCells {
public:
    int ColCount() const { return columns_; }
    int RowCount() const { return rows_; }
    bool Contains(int column, int row) const {
        return column >= 0 && column < columns_ && row >= 0 && row < rows_;
    }

    /// Sets the shape (negative counts are 0) and empties everything.
    void SetShape(int columns, int rows);
    /// Adds empty rows at the end or cuts rows off it.
    void SetRowCount(int rows);
    /// Moves whole columns and rows with all their properties.
    void Rearrange(const TOrder &columns, const TOrder &rows);

    QString Text(int column, int row) const;
    /// True when the text has changed.
    bool SetText(int column, int row, const QString &text);

    /// Sets the row's first cells; texts for which there is no cell are left out.
    void SetRowTexts(int row, std::span<const QString *const> texts);

    std::optional<TColor> Color(int column, int row) const;
    std::optional<TColor> FontColor(int column, int row) const;
    std::optional<TAlign> Align(int column, int row) const;
    /// True when there is such a cell.
    bool SetColor(int column, int row, TColor color);
    /// True when there is such a cell.
    bool SetFontColor(int column, int row, TColor color);

    /// The properties set for this very cell, column or row.
    TCellProperties CellProperties(int column, int row) const;
    TCellProperties ColumnProperties(int column) const;
    TCellProperties RowProperties(int row) const;
    /// Replaces them; what `properties` leaves open falls back to the next layer.
    void SetCellProperties(int column, int row, const TCellProperties &properties);
    void SetColumnProperties(int column, const TCellProperties &properties);
    void SetRowProperties(int row, const TCellProperties &properties);

private:
    int columns_ = 0;
    int rows_ = 0;
    TCellTable<QString> texts_;
    TLayers<TColor> colors_;
    TLayers<TColor> fontColors_;
    TLayers<TAlign> aligns_;
};
