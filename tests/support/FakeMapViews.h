// A map grid and a map chart without a toolkit: plain tables that tests fill, edit and look at.
#pragma once

#include "model/MapViews.h"

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

/// A grid in memory. A cell outside its shape is a failure (std::out_of_range).
class TFakeMapGrid : public IMapGrid {
public:
    struct TCell {
        std::string text;
        TColor color = clWindowText;
    };

    int ColCount() const override { return columns_; }
    int RowCount() const override { return rows_; }
    void SetShape(int columns, int rows) override {
        columns_ = columns;
        rows_ = rows;
        cells_.assign(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows), {});
    }
    std::string Cell(int column, int row) const override { return At(column, row).text; }
    void SetCell(int column, int row, const std::string &text) override {
        cells_.at(Index(column, row)).text = text;
    }
    TColor FontColor(int column, int row) const override { return At(column, row).color; }
    void SetFontColor(int column, int row, TColor color) override {
        cells_.at(Index(column, row)).color = color;
    }
    bool Visible() const override { return visible; }
    void SetVisible(bool wanted) override { visible = wanted; }
    void ShowAtMost(int maxRows, int maxColumns) override { limits = {maxRows, maxColumns}; }

    /// What a user's edit leaves behind: a text and the edit mark.
    void Edit(int column, int row, const std::string &text) {
        SetCell(column, row, text);
        SetFontColor(column, row, clBlue);
    }
    /// The texts of one row, from column 0 on.
    std::vector<std::string> Row(int row) const {
        std::vector<std::string> texts;
        for (int column = 0; column < columns_; ++column)
            texts.push_back(Cell(column, row));
        return texts;
    }

    bool visible = false;
    /// The last ShowAtMost: rows and columns.
    std::pair<int, int> limits{0, 0};

private:
    std::size_t Index(int column, int row) const {
        const bool inside = column >= 0 && column < columns_ && row >= 0 && row < rows_;
        return inside ? static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
                            static_cast<std::size_t>(column)
                      : cells_.size();
    }
    const TCell &At(int column, int row) const { return cells_.at(Index(column, row)); }

    int columns_ = 1;
    int rows_ = 1;
    std::vector<TCell> cells_ = std::vector<TCell>(1);
};

/// A chart in memory. A series that does not exist is a failure (std::out_of_range).
class TFakeMapChart : public IMapChart {
public:
    struct TPoint {
        double x;
        double value;
        std::string label;
        TColor color;
        bool operator==(const TPoint &) const = default;
    };
    struct TSeries {
        std::string title;
        std::string load;
        std::vector<TPoint> points;
    };

    bool Visible() const override { return visible; }
    void SetVisible(bool wanted) override { visible = wanted; }
    int SeriesCount() const override { return static_cast<int>(series.size()); }
    void RecreateSeries(int count) override {
        series.assign(static_cast<std::size_t>(count), {});
        ++recreations;
    }
    void ClearSeries(int index) override { At(index).points.clear(); }
    void SetSeriesTitle(int index, const std::string &title) override { At(index).title = title; }
    void SetSeriesLoad(int index, const std::string &load) override { At(index).load = load; }
    void AddPoint(int index, double x, double value, const std::string &label,
                  TColor color) override {
        At(index).points.push_back({x, value, label, color});
    }

    bool visible = true;
    std::vector<TSeries> series;
    /// How often all series were made anew.
    int recreations = 0;

private:
    TSeries &At(int index) { return series.at(static_cast<std::size_t>(index)); }
};
