// The way from the searches to the colours of the contents view's grid.
#pragma once

#include "model/MapViews.h"

#include <span>
#include <vector>

/// In one row of the contents view, without the address.
inline constexpr std::size_t cellsPerRow = 16;

/// The colours of the data cells in reading order, where they are kept: nothing is copied. `T` is
/// TColor, or const TColor for whoever only looks at them.
template <class T>
class TDataColors {
public:
    TDataColors() = default;
    /// One beside the other.
    TDataColors(std::vector<TColor> &colors) : first_(colors.data()), size_(colors.size()) {}
    /// Of a grid whose first row and first column are headers: those of all its cells, row by row.
    static TDataColors InGrid(std::span<T> colors) {
        constexpr std::size_t columns = cellsPerRow + 1;
        TDataColors cells;
        if (colors.size() > columns) {
            cells.first_ = &colors[columns + 1];
            cells.size_ = (colors.size() / columns - 1) * cellsPerRow;
            cells.headers_ = 1;
        }
        return cells;
    }

    std::size_t size() const { return size_; }
    T &operator[](std::size_t position) const {
        return first_[position + position / cellsPerRow * headers_];
    }
    /// Of so many cells side by side in one row.
    std::span<T> InRow(std::size_t position, std::size_t count) const {
        return {&(*this)[position], count};
    }

private:
    T *first_ = nullptr;
    std::size_t size_ = 0;
    std::size_t headers_ = 0; ///< cells between the rows
};

using TCellColors = TDataColors<TColor>;
using TSeenColors = TDataColors<const TColor>;
