// A map page's grid as the model sees it: TStringAlignGrid behind IMapGrid.
#pragma once

#include "forms/Aligrid.h"
#include "model/MapViews.h"

#include <QSize>

class TMapGrid : public IMapGrid {
public:
    /// `grid` outlives the adapter.
    explicit TMapGrid(TStringAlignGrid &grid) : grid_(grid) {}

    int ColCount() const override { return grid_.ColCount(); }
    int RowCount() const override { return grid_.RowCount(); }
    void SetShape(int columns, int rows) override;
    std::string Cell(int column, int row) const override;
    void SetCell(int column, int row, const std::string &text) override;
    TColor FontColor(int column, int row) const override { return grid_.FontColor(column, row); }
    void SetFontColor(int column, int row, TColor color) override;
    bool Visible() const override { return visible_; }
    void SetVisible(bool visible) override;
    void ShowAtMost(int maxRows, int maxColumns) override;

    /// Makes the RPM header editable, the load header too when there is `loadToo`; both keep their
    /// colour. A new shape fixes them again.
    void UnlockAxes(bool loadToo);

    /// Fixes so many columns and rows (0 or 1 each), or makes them editable as UnlockAxes does.
    void FixAxes(int columns, int rows);

    /// The room that the grid may take, in pixels: fewer columns and rows are shown at once when
    /// they would not fit. Never fewer than one column and LeastHeight.
    void SetRoom(QSize room);
    /// The height of a grid that shows some six rows.
    int LeastHeight() const;

private:
    void Fit();
    int ColumnsThatFit(int rows) const;
    int RowsThatFit(int columns) const;

    TStringAlignGrid &grid_;
    int maxRows_ = 0;
    int maxColumns_ = 0;
    QSize room_{QWIDGETSIZE_MAX, QWIDGETSIZE_MAX};
    bool visible_ = true;
};
