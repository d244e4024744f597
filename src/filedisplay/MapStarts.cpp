#include "filedisplay/MapStarts.h"

std::int32_t HeaderAddress(std::size_t offset) {
    std::size_t row = offset / cellsPerRow;
    while (row > 0xFFF)
        row >>= 4;
    return static_cast<std::int32_t>(row * cellsPerRow + offset % cellsPerRow);
}

std::vector<TMapToAdd> MapsToAdd(const TCellColors &colors, TShownMaps shown,
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
