#include "filedisplay/MapSearch.h"

#include "filedisplay/CellBits.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <vector>

namespace {

/// What a map must look like, apart from its place.
struct TPattern {
    TMapShape shape;
    TByteRange range;
    TColor color;
    std::int32_t rpmLocation;
    std::int32_t loadLocation;
};

TPattern PatternOf(TMapShape shape, TMapContents contents, const TSearchParameters &parameters) {
    const auto with = [&](std::int32_t minimum, std::int32_t maximum, TColor color) {
        return TPattern{shape, TByteRange(minimum, maximum), color, parameters.rpmLocation,
                        parameters.loadLocation};
    };
    if (contents == TMapContents::Fuel)
        return with(parameters.fuelMinimum, parameters.fuelMaximum, fuelMapColor);
    if (contents == TMapContents::Timing)
        return with(parameters.timingMinimum, parameters.timingMaximum, timingMapColor);
    return with(0, 255, anyMapColor);
}

constexpr TCellValue minCount = 2;
constexpr TCellValue maxCount = 30;

bool IsCount(TCellValue value) {
    return static_cast<std::uint16_t>(value - minCount) <= maxCount - minCount;
}

bool IsHeader(TCellValue value, std::int32_t location) {
    return location < 0 || value == location;
}

/// Whether a map of that pattern may start at a cell, by its first header and count.
bool MayStartAt(const TSearchGrid &grid, std::size_t position, const TPattern &pattern) {
    return IsHeader(grid.At(position), pattern.rpmLocation) && IsCount(grid.At(position + 1));
}

std::size_t CountAt(const TSearchGrid &grid, std::size_t position) {
    return static_cast<std::uint8_t>(grid.values[position]);
}

/// Where the data of a map stand; they may reach behind the last cell.
struct TData {
    std::size_t first;
    std::size_t end;
};

/// Stands for the end of data that cannot be, so that they never fit.
constexpr std::size_t nowhere = std::numeric_limits<std::size_t>::max();

/// The data of the linear map at `start`, where one may start.
TData LinearDataAt(const TSearchGrid &grid, std::size_t start) {
    const std::size_t count = CountAt(grid, start + 1);
    return {start + 2 + count, start + 2 + 2 * count};
}

/// The data of the 2-D map at `start`, where one may start; their end is nowhere when `secondCount`
/// knows no second axis at its place.
template <typename TSecondCount>
TData TwoDDataAt(const TSearchGrid &grid, std::size_t start, const TSecondCount &secondCount) {
    const std::size_t xCount = CountAt(grid, start + 1);
    const std::size_t second = start + 2 + xCount;
    const std::size_t yCount = secondCount(second);
    const std::size_t first = second + 2 + yCount;
    return {first, yCount != 0 ? first + xCount * yCount : nowhere};
}

/// The count of a second axis whose header stands at `position`; 0 when there is none.
std::size_t SecondCountAt(const TSearchGrid &grid, std::size_t position, std::int32_t location) {
    const bool fits = IsHeader(grid.At(position), location) && IsCount(grid.At(position + 1));
    return fits ? CountAt(grid, position + 1) : 0;
}

/// SecondCountAt of every cell, and of those that lie an axis behind the last: a bad image asks for
/// it at each of its cells.
std::vector<std::uint8_t> SecondCounts(const TSearchGrid &grid, std::int32_t location) {
    std::vector<std::uint8_t> counts(grid.values.size() + cellsPerWord);
    if (location > 255)
        return counts;
    // All bits are compared, or none; written so that the loop vectorises.
    const auto compared = static_cast<TCellValue>(location < 0 ? 0 : -1);
    const auto wanted = static_cast<TCellValue>(location < 0 ? 0 : location);
    const TCellValue *values = grid.values.data();
    std::uint8_t *count = counts.data();
    for (std::size_t i = 0; i + 1 < grid.values.size(); ++i) {
        const TCellValue value = IsCount(values[i + 1]) ? values[i + 1] : TCellValue{0};
        const bool fits = static_cast<TCellValue>(values[i] & compared) == wanted;
        count[i] = static_cast<std::uint8_t>(fits ? value : TCellValue{0});
    }
    return counts;
}

void MarkAxis(const TSearchGrid &grid, std::size_t count, TColor color) {
    grid.colors[count] = axisCountColor;
    MarkRun(grid, count + 1, CountAt(grid, count), color);
}

void MarkMap(const TSearchGrid &grid, std::size_t start, TData data, const TPattern &pattern,
             TMapCounters &counters) {
    if (pattern.shape == TMapShape::Linear) {
        grid.colors[start] = pattern.color;
        MarkAxis(grid, start + 1, linearAxisColor);
        ++counters.linear;
    } else {
        const std::size_t second = start + 2 + CountAt(grid, start + 1);
        grid.colors[start] = pattern.color + 2;
        MarkAxis(grid, start + 1, twoDAxisColor);
        grid.colors[second] = searchedColor;
        MarkAxis(grid, second + 1, twoDAxisColor);
        ++counters.twoD;
    }
    MarkRun(grid, data.first, data.end - data.first, pattern.color);
}

/// The cells of a word at which a map may start: unmarked, and MayStartAt. `starts` are the cells
/// that may start a map at all.
TCellBits StartsIn(std::size_t word, std::span<const TColor> starts, const TSearchGrid &grid,
                   const TPattern &pattern) {
    const TCellBits unmarked =
        BitsOf(starts, word, [](TColor color) { return color == unmarkedColor; });
    const TCellBits counts = BitsOf(grid.values.subspan(1), word,
                                    [range = TByteRange(minCount, maxCount)](TCellValue value) {
                                        return range.Contains(value);
                                    });
    if (pattern.rpmLocation < 0)
        return unmarked & counts;
    return unmarked & counts & BitsOf(grid.values, word, [&pattern](TCellValue value) {
               return value == pattern.rpmLocation;
           });
}

/// `dataAt` answers the data of the map at a cell where one may start.
template <typename TDataAt>
void HighlightAll(const TSearchGrid &grid, const TPattern &pattern, const TDataAt &dataAt,
                  TMapCounters &counters) {
    const std::span<const TColor> starts = grid.colors.first((grid.Rows() - 2) * cellsPerRow);
    const TRuns runs(grid.values, pattern.range);
    std::size_t position = 0;
    while (position < starts.size()) {
        const std::size_t word = position / cellsPerWord;
        TCellBits candidates =
            StartsIn(word, starts, grid, pattern) & ~TCellBits{0} << position % cellsPerWord;
        position = (word + 1) * cellsPerWord;
        // What is marked here lies before the cell at which the search goes on: the bits hold.
        for (; candidates != 0; candidates &= candidates - 1) {
            const std::size_t start =
                word * cellsPerWord + static_cast<std::size_t>(std::countr_zero(candidates));
            const TData data = dataAt(start);
            if (runs.EndOfRun(data.first) >= data.end) {
                MarkMap(grid, start, data, pattern, counters);
                position = data.end;
                break;
            }
        }
    }
}

} // namespace

TMapStep HighlightMapAt(const TSearchGrid &grid, std::size_t position, TMapShape shape,
                        TMapContents contents, const TSearchParameters &parameters,
                        TMapCounters &counters) {
    const TPattern pattern = PatternOf(shape, contents, parameters);
    const TMapStep nothing{false, position + 1};
    if (position >= grid.values.size() || pattern.range.IsEmpty() ||
        !MayStartAt(grid, position, pattern))
        return nothing;
    const TData data = shape == TMapShape::Linear
                           ? LinearDataAt(grid, position)
                           : TwoDDataAt(grid, position, [&](std::size_t second) {
                                 return SecondCountAt(grid, second, pattern.loadLocation);
                             });
    if (data.end > grid.values.size())
        return nothing;
    const auto values = grid.values.subspan(data.first, data.end - data.first);
    if (!std::all_of(values.begin(), values.end(),
                     [&](TCellValue value) { return pattern.range.Contains(value); }))
        return nothing;
    MarkMap(grid, position, data, pattern, counters);
    return {true, data.end};
}

void HighlightAllMaps(const TSearchGrid &grid, TMapShape shape, TMapContents contents,
                      const TSearchParameters &parameters, TMapCounters &counters) {
    const TPattern pattern = PatternOf(shape, contents, parameters);
    if (pattern.range.IsEmpty() || grid.Rows() <= 2)
        return;
    if (shape == TMapShape::Linear) {
        HighlightAll(
            grid, pattern, [&grid](std::size_t start) { return LinearDataAt(grid, start); },
            counters);
        return;
    }
    const std::vector<std::uint8_t> counts = SecondCounts(grid, pattern.loadLocation);
    const auto secondCount = [&counts](std::size_t second) { return std::size_t{counts[second]}; };
    HighlightAll(
        grid, pattern, [&](std::size_t start) { return TwoDDataAt(grid, start, secondCount); },
        counters);
}
