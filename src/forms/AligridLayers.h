// Rows and columns of values, and values in layers (cell, column, row). Storage for AligridCells;
// nothing here knows what the values mean.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <utility>
#include <vector>

/// Where each row (or column) comes from: old positions in their new order, each at most once;
/// -1 is a fresh one.
using TOrder = std::vector<int>;

/// A dense table, row by row. Callers keep positions inside the shape.
template <class T>
class TCellTable {
public:
    /// Sets the shape; every value becomes T().
    void Reshape(int columns, int rows) {
        columns_ = static_cast<std::size_t>(columns);
        values_.assign(columns_ * static_cast<std::size_t>(rows), T());
        values_.shrink_to_fit();
    }

    /// Adds rows of T() at the end, or cuts rows off it and gives their memory back.
    void SetRowCount(int rows) {
        const std::size_t size = columns_ * static_cast<std::size_t>(rows);
        const bool shrinks = size < values_.size();
        values_.resize(size);
        if (shrinks)
            values_.shrink_to_fit();
    }

    T &At(int column, int row) { return values_[Position(column, row)]; }
    const T &At(int column, int row) const { return values_[Position(column, row)]; }
    bool Empty() const { return values_.empty(); }

    void Rearrange(const TOrder &columns, const TOrder &rows) {
        std::vector<T> old(columns.size() * rows.size());
        old.swap(values_);
        std::size_t next = 0;
        const std::size_t oldColumns = std::exchange(columns_, columns.size());
        for (const int row : rows) {
            for (const int column : columns) {
                if (row >= 0 && column >= 0)
                    values_[next] = std::move(old[static_cast<std::size_t>(row) * oldColumns +
                                                  static_cast<std::size_t>(column)]);
                ++next;
            }
        }
    }

private:
    std::size_t Position(int column, int row) const {
        return static_cast<std::size_t>(row) * columns_ + static_cast<std::size_t>(column);
    }

    std::size_t columns_ = 0;
    std::vector<T> values_;
};

/// One property of the cells: a cell's own value goes before its column's, that before its row's.
/// Memory for cells is taken at the first cell that gets a value of its own.
template <class T>
class TLayers {
public:
    /// Sets the shape; nothing has a value afterwards.
    void Reshape(int columns, int rows) {
        columnCount_ = columns;
        rowCount_ = rows;
        cells_.Reshape(0, 0);
        columns_.clear();
        rows_.clear();
    }

    void SetRowCount(int rows) {
        rowCount_ = rows;
        if (!cells_.Empty())
            cells_.SetRowCount(rows);
        rows_.erase(rows_.lower_bound(rows), rows_.end());
    }

    void Rearrange(const TOrder &columns, const TOrder &rows) {
        if (!cells_.Empty())
            cells_.Rearrange(columns, rows);
        columnCount_ = static_cast<int>(columns.size());
        rowCount_ = static_cast<int>(rows.size());
        columns_ = Rearranged(columns_, columns);
        rows_ = Rearranged(rows_, rows);
    }

    std::optional<T> At(int column, int row) const {
        if (!cells_.Empty()) {
            if (const std::optional<T> &own = cells_.At(column, row))
                return own;
        }
        if (!columns_.empty()) {
            if (const std::optional<T> value = OfColumn(column))
                return value;
        }
        return rows_.empty() ? std::nullopt : OfRow(row);
    }

    std::optional<T> OfCell(int column, int row) const {
        return cells_.Empty() ? std::nullopt : cells_.At(column, row);
    }
    std::optional<T> OfColumn(int column) const { return Find(columns_, column); }
    std::optional<T> OfRow(int row) const { return Find(rows_, row); }

    void SetCell(int column, int row, std::optional<T> value) {
        if (cells_.Empty()) {
            if (!value)
                return;
            cells_.Reshape(columnCount_, rowCount_);
        }
        cells_.At(column, row) = value;
    }
    void SetColumn(int column, std::optional<T> value) { Put(columns_, column, value); }
    void SetRow(int row, std::optional<T> value) { Put(rows_, row, value); }

private:
    using TSparse = std::map<int, T>;

    static std::optional<T> Find(const TSparse &values, int key) {
        const auto found = values.find(key);
        return found == values.end() ? std::nullopt : std::optional<T>(found->second);
    }

    static void Put(TSparse &values, int key, std::optional<T> value) {
        if (value)
            values.insert_or_assign(key, *value);
        else
            values.erase(key);
    }

    static TSparse Rearranged(const TSparse &old, const TOrder &order) {
        TSparse result;
        if (old.empty())
            return result;
        for (std::size_t i = 0; i < order.size(); ++i)
            Put(result, static_cast<int>(i), Find(old, order[i]));
        return result;
    }

    int columnCount_ = 0;
    int rowCount_ = 0;
    TCellTable<std::optional<T>> cells_;
    TSparse columns_;
    TSparse rows_;
};
