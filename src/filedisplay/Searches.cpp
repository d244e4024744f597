#include "filedisplay/Searches.h"

#include "filedisplay/Marks.h"

namespace {
TFound MarkPossible(const TSearchGrid &grid, const TCellsInRange &inRange, TColor color) {
    TFound found;
    bool withLast = false;
    for (std::size_t i = 0; i < grid.values.size(); ++i) {
        const bool withNext = inRange.All(i, i + 2);
        if (withLast || (withNext && i % cellsPerRow != cellsPerRow - 1)) {
            grid.colors[i] = color;
            found.Add(i);
        }
        withLast = withNext;
    }
    return found;
}
} // namespace

TFound MarkPossibleFuelValues(const TSearchGrid &grid, const TSearchParameters &parameters) {
    return MarkPossible(grid, {grid, parameters.fuelMinimum, parameters.fuelMaximum},
                        possibleFuelColor);
}

TFound MarkPossibleTimingValues(const TSearchGrid &grid, const TSearchParameters &parameters) {
    return MarkPossible(grid, {grid, parameters.timingMinimum, parameters.timingMaximum},
                        possibleTimingColor);
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
    for (std::size_t i = 0; i < grid.values.size(); ++i) {
        if ((grid.values[i] & mask) != address.high)
            continue;
        ++i; // the byte behind is no high byte of its own
        if (grid.At(i) == address.low) {
            grid.colors[i - 1] = searchedColor;
            grid.colors[i] = searchedColor;
            found.Add(i - 1);
        }
    }
    return found;
}
