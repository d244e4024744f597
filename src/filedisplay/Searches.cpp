#include "filedisplay/Searches.h"

#include "filedisplay/CellBits.h"

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

} // namespace

void MarkPossibleValues(const TSearchGrid &grid, std::int32_t minimum, std::int32_t maximum,
                        TColor color) {
    const TByteRange range(minimum, maximum);
    if (range.IsEmpty())
        return;
    TCellBits lastOfRowBefore = 0;
    for (std::size_t word = 0; word < WordCount(grid); ++word) {
        const TCellBits found =
            BitsOf(grid.values, word, [&range](TCellValue value) { return range.Contains(value); });
        const TCellBits predecessor = found << 1 | lastOfRowBefore;
        const TCellBits successor = found >> 1 & ~(firstColumn << (cellsPerRow - 1));
        MarkBits(grid.colors, word, found & (predecessor | successor), color);
        lastOfRowBefore = found >> (cellsPerWord - 1);
    }
}

void MarkPossibleFuelValues(const TSearchGrid &grid, const TSearchParameters &parameters) {
    MarkPossibleValues(grid, parameters.fuelMinimum, parameters.fuelMaximum, possibleFuelColor);
}

void MarkPossibleTimingValues(const TSearchGrid &grid, const TSearchParameters &parameters) {
    MarkPossibleValues(grid, parameters.timingMinimum, parameters.timingMaximum,
                       possibleTimingColor);
}

void MarkValue(const TSearchGrid &grid, std::int32_t value) {
    if (value < 0 || value > 255)
        return;
    const auto wanted = static_cast<TCellValue>(value);
    const TCellValue *values = grid.values.data();
    TColor *colors = grid.colors.data();
    for (std::size_t i = 0; i < grid.values.size(); ++i)
        colors[i] = values[i] == wanted ? searchedColor : colors[i];
}

std::optional<TPointerAddress> SplitAddress(std::int32_t address) {
    if (address < 0 || address > 0xFFFF)
        return std::nullopt;
    return TPointerAddress{static_cast<std::uint8_t>(address >> 8),
                           static_cast<std::uint8_t>(address & 0xFF)};
}

void MarkPointers(const TSearchGrid &grid, TPointerAddress address, std::uint8_t mask) {
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
        behindHigh = high >> (cellsPerWord - 1) != 0;
        behindPointer = pointers >> (cellsPerWord - 1) != 0;
    }
}
