#include "filedisplay/MapSearch.h"

namespace {
TByteRange DataRange(TMapContents contents, const TSearchParameters &parameters) {
    if (contents == TMapContents::Fuel)
        return parameters.Fuel();
    return contents == TMapContents::Timing ? parameters.Timing() : TByteRange(0, 255);
}

/// How many points the axis with that header has; 0 when there is none.
std::size_t PointsAt(const TSearchGrid &grid, std::size_t header, std::int32_t location) {
    const TCellValue points = grid.At(header + 1);
    const bool fits = points >= 2 && points <= 30 && (location < 0 || grid.At(header) == location);
    return fits ? static_cast<std::size_t>(points) : 0;
}

/// Where the map at `start` ends; 0 when there is none.
std::size_t MapEnd(const TSearchGrid &grid, std::size_t start, TMapShape shape,
                   const TSearchParameters &parameters, const TCellsInRange &inRange) {
    const std::size_t x = PointsAt(grid, start, parameters.rpmLocation);
    if (x == 0)
        return 0;
    const std::size_t second = start + 2 + x;
    if (shape == TMapShape::Linear)
        return inRange.All(second, second + x) ? second + x : 0;
    const std::size_t y = PointsAt(grid, second, parameters.loadLocation);
    const std::size_t data = second + 2 + y;
    return y != 0 && inRange.All(data, data + x * y) ? data + x * y : 0;
}

/// Marks an axis and returns the cell behind it.
std::size_t MarkAxis(const TSearchGrid &grid, std::size_t header, TColor color, TColor values) {
    const std::size_t end = header + 2 + static_cast<std::size_t>(grid.values[header + 1]);
    grid.colors[header] = color;
    grid.colors[header + 1] = axisCountColor;
    MarkRun(grid, header + 2, end, values);
    return end;
}

void MarkMap(const TSearchGrid &grid, std::size_t start, std::size_t end, TMapShape shape,
             TColor color, TMapCounters &counters) {
    std::size_t next = start;
    if (shape == TMapShape::Linear) {
        next = MarkAxis(grid, next, color, linearAxisColor);
        ++counters.linear;
    } else {
        next = MarkAxis(grid, next, color + 2, twoDAxisColor);
        next = MarkAxis(grid, next, searchedColor, twoDAxisColor);
        ++counters.twoD;
    }
    MarkRun(grid, next, end, color);
}
} // namespace

TMapStep HighlightMapAt(const TSearchGrid &grid, std::size_t position, TMapShape shape,
                        TMapContents contents, const TSearchParameters &parameters,
                        TMapCounters &counters) {
    const TCellsInRange inRange(grid, DataRange(contents, parameters));
    const std::size_t end = MapEnd(grid, position, shape, parameters, inRange);
    if (end == 0 || position >= grid.values.size())
        return {false, position + 1};
    MarkMap(grid, position, end, shape, MapColor(contents), counters);
    return {true, end};
}

TFound HighlightAllMaps(const TSearchGrid &grid, TMapShape shape, TMapContents contents,
                        const TSearchParameters &parameters, TMapCounters &counters) {
    TFound found;
    const TCellsInRange inRange(grid, DataRange(contents, parameters));
    const std::size_t rows = (grid.values.size() + cellsPerRow - 1) / cellsPerRow;
    for (std::size_t position = 0; position / cellsPerRow + 2 < rows;) {
        const std::size_t end = MapEnd(grid, position, shape, parameters, inRange);
        if (end != 0 && grid.colors[position] == unmarkedColor) {
            MarkMap(grid, position, end, shape, MapColor(contents), counters);
            found.Add(position);
            position = end;
        } else {
            ++position;
        }
    }
    return found;
}
