#include "filedisplay/MapStarts.h"

#include <algorithm>
#include <array>

namespace {
constexpr std::array<TMapStart, 4> mapStarts{{
    {0x008001, TMapContents::Fuel, TMapShape::Linear},
    {0x008002, TMapContents::Fuel, TMapShape::TwoD},
    {0x800081, TMapContents::Timing, TMapShape::Linear},
    {0x800082, TMapContents::Timing, TMapShape::TwoD},
}};
} // namespace

const TMapStart *MapStartOf(TColor color) {
    const auto *found =
        std::find_if(mapStarts.begin(), mapStarts.end(),
                     [color](const TMapStart &start) { return start.color == color; });
    return found == mapStarts.end() ? nullptr : found;
}
