// What the searches of the contents view (Searches.h, MapSearch.h) work on, and what they tell.
#pragma once

#include "filedisplay/SearchParameters.h"
#include "model/MapViews.h"

#include <span>
#include <vector>

/// The number that a cell shows: 0 to 255, or -1 for a cell that is no number.
using TCellValue = std::int16_t;
inline constexpr std::size_t cellsPerRow = 16;

/// The colours of the data cells in reading order, where they are kept: nothing is copied.
class TCellColors {
public:
    TCellColors() = default;
    /// One beside the other.
    TCellColors(std::vector<TColor> &colors) : first_(colors.data()), size_(colors.size()) {}
    /// Of a grid whose first row and first column are headers: those of all its cells, row by row.
    static TCellColors InGrid(std::span<TColor> colors) {
        constexpr std::size_t columns = cellsPerRow + 1;
        TCellColors cells;
        if (colors.size() > columns) {
            cells.first_ = &colors[columns + 1];
            cells.size_ = (colors.size() / columns - 1) * cellsPerRow;
            cells.headers_ = 1;
        }
        return cells;
    }

    std::size_t size() const { return size_; }
    TColor &operator[](std::size_t position) const {
        return first_[position + position / cellsPerRow * headers_];
    }

private:
    TColor *first_ = nullptr;
    std::size_t size_ = 0;
    std::size_t headers_ = 0; ///< cells between the rows
};

/// The data cells of the contents view in reading order: position p is the byte at image offset p.
/// The last row may be filled up with -1; whatever lies behind the last cell counts as -1.
struct TSearchGrid {
    std::span<const TCellValue> values;
    TCellColors colors; ///< at least one for each of `values`

    TCellValue At(std::size_t i) const { return i < values.size() ? values[i] : TCellValue{-1}; }
};

/// Tells of many cells at once whether all of them are in a range of bytes, limits included. An
/// unset minimum is no lower bound, an unset maximum and crossed limits leave no byte.
class TCellsInRange {
public:
    TCellsInRange(const TSearchGrid &grid, std::int32_t minimum, std::int32_t maximum)
        : misfits_(grid.values.size() + 1) {
        const std::int32_t lowest = minimum < 0 ? 0 : minimum; // -1 is in no range
        for (std::size_t i = 0; i < grid.values.size(); ++i)
            misfits_[i + 1] = misfits_[i] + (grid.values[i] < lowest ? 1 : 0) +
                              (grid.values[i] > maximum ? 1 : 0);
    }

    /// The cells from `first` to before `end`. Behind the last cell none is in range.
    bool All(std::size_t first, std::size_t end) const {
        return end < misfits_.size() && misfits_[first] == misfits_[end];
    }

private:
    std::vector<std::uint32_t> misfits_; ///< how many there are before each cell, and in all
};

/// What one search found.
struct TFound {
    std::size_t count = 0;
    std::size_t first = 0; ///< image offset of the first one; says nothing when there is none

    void Add(std::size_t offset) {
        if (count++ == 0)
            first = offset;
    }
};
