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

std::vector<TMapToAdd> MapsToAdd(std::span<const TColor> colors, TShownMaps shown,
                                 std::int32_t currentAddress) {
    std::vector<TMapToAdd> maps;
    for (std::size_t i = 0; i < colors.size(); ++i) {
        const TMapStart *start = MapStartOf(colors[i]);
        if (!start)
            continue;
        const bool twoD = start->shape == TMapShape::TwoD;
        std::set<std::int32_t> &places = twoD ? shown.partThrottle : shown.fullThrottle;
        const std::int32_t address = HeaderAddress(i);
        if (places.contains(address))
            continue;
        const std::int32_t place = twoD ? address : currentAddress;
        maps.push_back({*start, address, place});
        places.insert(place);
    }
    return maps;
}
