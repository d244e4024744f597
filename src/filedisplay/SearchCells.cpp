#include "filedisplay/SearchCells.h"

#include <algorithm>

TByteRange::TByteRange(std::int32_t minimum, std::int32_t maximum) {
    const std::int32_t low = std::max(minimum, 0);
    const std::int32_t high = std::min(maximum, 255);
    empty_ = low > high;
    if (!empty_) {
        low_ = static_cast<std::uint16_t>(low);
        width_ = static_cast<std::uint16_t>(high - low);
    }
}

std::int32_t HeaderAddress(std::size_t offset) {
    std::size_t row = offset / cellsPerRow;
    while (row > 0xFFF)
        row >>= 4;
    return static_cast<std::int32_t>(row * cellsPerRow + offset % cellsPerRow);
}

int SmallestChannelShift(TColor color) {
    const TColor blue = color >> 16 & 0xFF;
    const TColor green = color >> 8 & 0xFF;
    const TColor red = color & 0xFF;
    if (blue <= green && blue <= red)
        return 16;
    return green <= blue && green <= red ? 8 : 0;
}

TColor Shaded(TColor color, TCellValue value) {
    return color + (static_cast<TColor>(value) << SmallestChannelShift(color));
}

void MarkRun(const TSearchGrid &grid, std::size_t first, std::size_t count, TColor color) {
    if (count == 1) {
        grid.colors[first] = color;
        return;
    }
    for (std::size_t i = first; i < first + count; ++i)
        grid.colors[i] = Shaded(color, grid.values[i]);
}

void ClearAllMarkers(std::span<TColor> colors, TMapCounters &counters) {
    std::fill(colors.begin(), colors.end(), unmarkedColor);
    counters = {};
}
