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

/// A shade adds nothing but one byte, at the place of the smallest channel.
bool Fits(const TMark &mark, TColor color) {
    const TColor shades = mark.shaded ? TColor{0xFF} << SmallestChannel(mark.color) : 0;
    return ((color - mark.color) & ~shades) == 0;
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

const TMark *MarkOf(TColor color) {
    for (const TMark &mark : marks)
        if (Fits(mark, color))
            return &mark;
    return nullptr;
}

std::string_view MarkKind(TColor color) {
    const TMark *mark = MarkOf(color);
    return mark ? mark->name : std::string_view();
}

std::string MarkName(TColor color) {
    const TMark *mark = MarkOf(color);
    return mark ? Translated("MarkNames", mark->name) : std::string();
}

const TMapStart *MapStartOf(TColor color) {
    for (const TMark &mark : marks)
        if (mark.start && mark.color == color)
            return &*mark.start;
    return nullptr;
}
