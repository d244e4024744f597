// What the searches of the contents view (Searches.h, MapSearch.h) work on, and what they tell.
#pragma once

#include "filedisplay/CellColors.h"
#include "filedisplay/SearchParameters.h"

#include <span>
#include <vector>

/// The number that a cell shows: 0 to 255, or -1 for a cell that is no number.
using TCellValue = std::int16_t;

/// The data cells of the contents view in reading order: position p is the byte at image offset p.
/// The last row may be filled up with -1; whatever lies behind the last cell counts as -1.
struct TSearchGrid {
    std::span<const TCellValue> values;
    TCellColors colors; ///< at least one for each of `values`

    TCellValue At(std::size_t i) const { return i < values.size() ? values[i] : TCellValue{-1}; }
};

/// Tells of many cells at once whether all of them are in a range.
class TCellsInRange {
public:
    TCellsInRange(const TSearchGrid &grid, TByteRange range) : misfits_(grid.values.size() + 1) {
        std::uint32_t misfits = 0;
        for (std::size_t i = 0; i < grid.values.size(); ++i) {
            misfits += range.Has(grid.values[i]) ? 0U : 1U;
            misfits_[i + 1] = misfits;
        }
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
