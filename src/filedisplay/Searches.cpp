#include "filedisplay/Searches.h"

#include "filedisplay/CellBits.h"

#include <algorithm>
#include <bit>
#include <cstddef>

namespace {

constexpr TCellBits firstColumn = 0x0001000100010001;
constexpr TCellBits evenCells = 0x5555555555555555;

std::size_t WordCount(const TSearchGrid &grid) {
    return (grid.values.size() + cellsPerWord - 1) / cellsPerWord;
}

/// Every second cell of each run of set bits, beginning with the run's first.
TCellBits EverySecondOfRuns(TCellBits bits) {
    const TCellBits evenStarts = bits & ~(bits << 1) & evenCells;
    // The sum clears the runs that begin at an even cell and leaves the others.
    const TCellBits evenRuns = bits & ~(bits + evenStarts);
    return (evenRuns & evenCells) | (bits & ~evenRuns & ~evenCells);
}

/// Counts those that begin at the cells of word `word` whose bit is set.
void Count(TFound &found, std::size_t word, TCellBits bits) {
    if (found.count == 0)
        found.first = word * cellsPerWord + static_cast<std::size_t>(std::countr_zero(bits));
    found.count += static_cast<std::size_t>(std::popcount(bits));
}

} // namespace

TFound MarkPossibleValues(const TSearchGrid &grid, std::int32_t minimum, std::int32_t maximum,
                          TColor color) {
    TFound found;
    const TByteRange range(minimum, maximum);
    if (range.IsEmpty())
        return found;
    TCellBits lastOfRowBefore = 0;
    for (std::size_t word = 0; word < WordCount(grid); ++word) {
        const TCellBits inRange =
            BitsOf(grid.values, word, [&range](TCellValue value) { return range.Contains(value); });
        const TCellBits predecessor = inRange << 1 | lastOfRowBefore;
        const TCellBits successor = inRange >> 1 & ~(firstColumn << (cellsPerRow - 1));
        const TCellBits marked = inRange & (predecessor | successor);
        MarkBits(grid.colors, word, marked, color);
        Count(found, word, marked);
        lastOfRowBefore = inRange >> (cellsPerWord - 1);
    }
    return found;
}

TFound MarkPossibleFuelValues(const TSearchGrid &grid, const TSearchParameters &parameters) {
    return MarkPossibleValues(grid, parameters.fuelMinimum, parameters.fuelMaximum,
                              possibleFuelColor);
}

TFound MarkPossibleTimingValues(const TSearchGrid &grid, const TSearchParameters &parameters) {
    return MarkPossibleValues(grid, parameters.timingMinimum, parameters.timingMaximum,
                              possibleTimingColor);
}

TFound MarkValue(const TSearchGrid &grid, std::int32_t value) {
    if (value < 0 || value > 255)
        return {};
    const auto wanted = static_cast<TCellValue>(value);
    const TCellValue *values = grid.values.data();
    TColor *colors = grid.colors.data();
    std::uint32_t count = 0; // no wider than a colour, so that the loop vectorises
    for (std::size_t i = 0; i < grid.values.size(); ++i) {
        const bool found = values[i] == wanted;
        colors[i] = found ? searchedColor : colors[i];
        count += found ? 1 : 0;
    }
    const auto first = std::find(grid.values.begin(), grid.values.end(), wanted);
    return {count, static_cast<std::size_t>(first - grid.values.begin())};
}

std::optional<TPointerAddress> SplitAddress(std::int32_t address) {
    if (address < 0 || address > 0xFFFF)
        return std::nullopt;
    return TPointerAddress{static_cast<std::uint8_t>(address >> 8),
                           static_cast<std::uint8_t>(address & 0xFF)};
}

TFound MarkPointers(const TSearchGrid &grid, TPointerAddress address, std::uint8_t mask) {
    TFound found;
    bool behindHigh = false;
    bool behindPointer = false;
    for (std::size_t word = 0; word < WordCount(grid); ++word) {
        TCellBits high = BitsOf(grid.values, word,
                                [=](TCellValue value) { return (value & mask) == address.high; });
        const TCellBits low = BitsOf(grid.values.subspan(1), word,
                                     [=](TCellValue value) { return value == address.low; });
        high = EverySecondOfRuns(high & ~TCellBits{behindHigh});
        const TCellBits pointers = high & low;
        const TCellBits marked = pointers | pointers << 1 | TCellBits{behindPointer};
        if (marked != 0)
            MarkBits(grid.colors, word, marked, searchedColor);
        Count(found, word, pointers);
        behindHigh = high >> (cellsPerWord - 1) != 0;
        behindPointer = pointers >> (cellsPerWord - 1) != 0;
    }
    return found;
}
