// A map page's grid as the model sees it: TStringAlignGrid behind IMapGrid.
#pragma once

#include "forms/Aligrid.h"
#include "model/MapViews.h"

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

    /// The room that the grid may take beside its chart, in pixels: fewer columns are shown at once
    /// when they would not fit. Never fewer than one.
    void SetAvailableWidth(int width);

private:
    void Fit();
    int ColumnsThatFit() const;

    TStringAlignGrid &grid_;
    int maxRows_ = 0;
    int maxColumns_ = 0;
    int availableWidth_ = QWIDGETSIZE_MAX;
    bool visible_ = true;
};
