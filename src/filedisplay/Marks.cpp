#include "filedisplay/Marks.h"

namespace {
/// How many bits to the left of red the smallest channel stands.
int SmallestChannel(TColor color) {
    const TColor blue = color >> 16 & 0xFF;
    const TColor green = color >> 8 & 0xFF;
    const TColor red = color & 0xFF;
    if (blue <= green && blue <= red)
        return 16;
    return green <= blue && green <= red ? 8 : 0;
}

bool Fits(const TMark &mark, TColor color) {
    if (!mark.shaded)
        return mark.color == color;
    for (TCellValue byte = 0; byte <= 255; ++byte)
        if (Shaded(mark.color, byte) == color)
            return true;
    return false;
}
} // namespace

TColor Shaded(TColor color, TCellValue byte) {
    return color + (static_cast<TColor>(byte) << SmallestChannel(color));
}

void MarkRun(const TSearchGrid &grid, std::size_t first, std::size_t end, TColor color) {
    for (std::size_t i = first; i < end; ++i)
        grid.colors[i] = Shaded(color, grid.values[i]);
}

void ClearAllMarkers(const TSearchGrid &grid, TMapCounters &counters) {
    for (std::size_t i = 0; i < grid.colors.size(); ++i)
        grid.colors[i] = unmarkedColor;
    counters = {};
}

std::string MarkName(TColor color) {
    for (const TMark &mark : marks)
        if (Fits(mark, color))
            return Translated("MarkNames", mark.name);
    return {};
}

const TMapStart *MapStartOf(TColor color) {
    for (const TMark &mark : marks)
        if (mark.start && mark.color == color)
            return &*mark.start;
    return nullptr;
}
