#include "filedisplay/MapSearch.h"

#include "filedisplay/CellBits.h"

#include <algorithm>
#include <bit>

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
    return (location < 0) | (value == location);
}

/// Where the parts of a map stand. A linear map has no second axis.
struct TLayout {
    std::size_t start;
    std::size_t xCount;
    std::size_t yCount;
    std::size_t data;
    std::size_t dataCount;
    bool plausible; ///< the second header and count are such; nothing is said about the data

    std::size_t End() const { return data + dataCount; }
};

/// Whether a map of that pattern may start at a cell, by its first header and count.
bool MayStartAt(const TSearchGrid &grid, std::size_t position, const TPattern &pattern) {
    return IsHeader(grid.At(position), pattern.rpmLocation) && IsCount(grid.At(position + 1));
}

/// The layout at a cell where a map may start.
TLayout LayoutAt(const TSearchGrid &grid, std::size_t start, const TPattern &pattern) {
    const auto xCount = static_cast<std::size_t>(grid.values[start + 1]);
    const std::size_t behindX = start + 2 + xCount;
    if (pattern.shape == TMapShape::Linear)
        return {start, xCount, 0, behindX, xCount, true};
    const TCellValue second = grid.At(behindX + 1);
    const std::size_t yCount = static_cast<std::uint8_t>(second);
    const bool plausible = IsCount(second) & IsHeader(grid.At(behindX), pattern.loadLocation);
    return {start, xCount, yCount, behindX + 2 + yCount, xCount * yCount, plausible};
}

void Mark(const TSearchGrid &grid, const TLayout &layout, const TPattern &pattern,
          TMapCounters &counters) {
    const bool linear = pattern.shape == TMapShape::Linear;
    const TColor axisColor = linear ? linearAxisColor : twoDAxisColor;
    grid.colors[layout.start] = linear ? pattern.color : pattern.color + 2;
    grid.colors[layout.start + 1] = axisCountColor;
    MarkRun(grid, layout.start + 2, layout.xCount, axisColor);
    if (!linear) {
        const std::size_t second = layout.start + 2 + layout.xCount;
        grid.colors[second] = searchedColor;
        grid.colors[second + 1] = axisCountColor;
        MarkRun(grid, second + 2, layout.yCount, axisColor);
    }
    MarkRun(grid, layout.data, layout.dataCount, pattern.color);
    ++(linear ? counters.linear : counters.twoD);
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

} // namespace

TMapStep HighlightMapAt(const TSearchGrid &grid, std::size_t position, TMapShape shape,
                        TMapContents contents, const TSearchParameters &parameters,
                        TMapCounters &counters) {
    const TPattern pattern = PatternOf(shape, contents, parameters);
    const TMapStep nothing{false, position + 1};
    if (pattern.range.IsEmpty() || !MayStartAt(grid, position, pattern))
        return nothing;
    const TLayout layout = LayoutAt(grid, position, pattern);
    if (!layout.plausible || layout.End() > grid.values.size())
        return nothing;
    const auto data = grid.values.subspan(layout.data, layout.dataCount);
    if (!std::all_of(data.begin(), data.end(),
                     [&](TCellValue value) { return pattern.range.Contains(value); }))
        return nothing;
    Mark(grid, layout, pattern, counters);
    return {true, layout.End()};
}

void HighlightAllMaps(const TSearchGrid &grid, TMapShape shape, TMapContents contents,
                      const TSearchParameters &parameters, TMapCounters &counters) {
    const TPattern pattern = PatternOf(shape, contents, parameters);
    if (pattern.range.IsEmpty() || grid.Rows() <= 2)
        return;
    const std::span<const TColor> starts = grid.colors.first((grid.Rows() - 2) * cellsPerRow);
    const TRuns runs(grid.values, pattern.range);
    std::size_t position = 0;
    while (position < starts.size()) {
        const std::size_t word = position / cellsPerWord;
        TCellBits candidates =
            StartsIn(word, starts, grid, pattern) & ~TCellBits{0} << position % cellsPerWord;
        position = (word + 1) * cellsPerWord;
        // What is marked here lies before the cell at which the search goes on: the bits hold.
        while (candidates != 0) {
            const TLayout layout = LayoutAt(
                grid, word * cellsPerWord + static_cast<std::size_t>(std::countr_zero(candidates)),
                pattern);
            candidates &= candidates - 1;
            // No short cuts: on a bad image each of the conditions is a coin tossed.
            if (layout.plausible & (runs.EndOfRun(layout.data) >= layout.End())) {
                Mark(grid, layout, pattern, counters);
                position = layout.End();
                break;
            }
        }
    }
}
