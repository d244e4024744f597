#include "filedisplay/Searches.h"

#include "filedisplay/Marks.h"

#include <algorithm>
#include <array>

// Row by row and without a branch for each cell: a real image lets the processor foresee none.
TFound MarkPossibleValues(const TSearchGrid &grid, TByteRange range, TColor color) {
    TFound found;
    bool lastFits = false;
    for (std::size_t row = 0; row < grid.values.size(); row += cellsPerRow) {
        const std::size_t cells = std::min(cellsPerRow, grid.values.size() - row);
        const std::span<TColor> colors = grid.colors.InRow(row, cells);
        std::array<bool, cellsPerRow + 2> fits{lastFits}; // with one before the row and one behind
        for (std::size_t i = 0; i < cells; ++i)
            fits[i + 1] = range.Has(grid.values[row + i]);
        std::array<bool, cellsPerRow> marked{};
        for (std::size_t i = 0; i < cells; ++i) {
            const bool one = fits[i + 1];
            const bool before = fits[i];
            const bool behind = fits[i + 2];
            marked[i] = one & (before | behind);
            const TColor old = colors[i];
            colors[i] = marked[i] ? color : old;
        }
        if (found.count == 0)
            found.first =
                row + static_cast<std::size_t>(std::ranges::find(marked, true) - marked.begin());
        found.count += static_cast<std::size_t>(std::ranges::count(marked, true));
        lastFits = fits[cellsPerRow];
    }
    return found;
}

TFound MarkValue(const TSearchGrid &grid, std::int32_t value) {
    TFound found;
    for (std::size_t i = 0; i < grid.values.size(); ++i) {
        if (value >= 0 && grid.values[i] == value) {
            grid.colors[i] = searchedColor;
            found.Add(i);
        }
    }
    return found;
}

std::optional<TPointerAddress> SplitAddress(std::int32_t address) {
    if (address < 0 || address > 0xFFFF)
        return std::nullopt;
    return TPointerAddress{static_cast<std::uint8_t>(address >> 8),
                           static_cast<std::uint8_t>(address & 0xFF)};
}

TFound MarkPointers(const TSearchGrid &grid, TPointerAddress address, std::uint8_t mask) {
    TFound found;
    bool isHigh = false;
    for (std::size_t i = 0; i < grid.values.size(); ++i) {
        isHigh = !isHigh & ((grid.values[i] & mask) == address.high); // none behind another one
        if (isHigh & (grid.At(i + 1) == address.low)) {
            grid.colors[i] = searchedColor;
            grid.colors[i + 1] = searchedColor;
            found.Add(i);
        }
    }
    return found;
}
