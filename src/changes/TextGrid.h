// A map's grid without a widget: the texts that a map would show.
#pragma once

#include "model/MapViews.h"

#include <string>
#include <vector>

class TTextGrid : public IMapGrid {
public:
    int ColCount() const override { return columns_; }
    int RowCount() const override { return rows_; }
    void SetShape(int columns, int rows) override {
        columns_ = columns;
        rows_ = rows;
        texts_.assign(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows), {});
    }
    std::string Cell(int column, int row) const override {
        return Has(column, row) ? texts_[Place(column, row)] : std::string();
    }
    void SetCell(int column, int row, const std::string &text) override {
        if (Has(column, row))
            texts_[Place(column, row)] = text;
    }
    TColor FontColor(int, int) const override { return clWindowText; }
    void SetFontColor(int, int, TColor) override {}
    bool Visible() const override { return visible_; }
    void SetVisible(bool visible) override { visible_ = visible; }
    void ShowAtMost(int, int) override {}

private:
    bool Has(int column, int row) const {
        return column >= 0 && column < columns_ && row >= 0 && row < rows_;
    }
    std::size_t Place(int column, int row) const {
        return static_cast<std::size_t>(row * columns_ + column);
    }

    int columns_ = 0;
    int rows_ = 0;
    bool visible_ = true;
    std::vector<std::string> texts_;
};
