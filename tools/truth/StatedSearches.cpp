#include "truth/StatedSearches.h"

#include "filedisplay/MapSearch.h"

namespace {

/// The maps whose first cell got the colour of a start that it did not have before.
void AddNew(std::vector<TMarkedMap> &maps, TRomBytes image, const std::vector<TColor> &before,
            const std::vector<TColor> &now, TMapShape shape, TMapContents contents) {
    const TColor start = MapColor(contents) + (shape == TMapShape::TwoD ? 2 : 0);
    for (std::size_t i = 0; i < image.size();) {
        const auto place = PlaceAt(image, i, shape);
        if (now[i] == start && before[i] == unmarkedColor && place) {
            maps.push_back({*place, contents});
            i = place->End(); // a zero on its axes has that colour too
        } else {
            ++i;
        }
    }
}

} // namespace

std::vector<TMarkedMap> MarkedMaps(TRomBytes image, std::optional<std::uint8_t> rpmLocation,
                                   std::optional<std::uint8_t> loadLocation) {
    const std::vector<TCellValue> values(image.begin(), image.end());
    std::vector<TColor> colors(values.size(), unmarkedColor);
    TSearchParameters parameters;
    parameters.rpmLocation = rpmLocation ? *rpmLocation : -1;
    parameters.loadLocation = loadLocation ? *loadLocation : -1;
    TMapCounters counters;
    std::vector<TMarkedMap> maps;
    for (const TMapShape shape : {TMapShape::TwoD, TMapShape::Linear})
        for (const TMapContents contents : {TMapContents::Fuel, TMapContents::Timing}) {
            const std::vector<TColor> before = colors;
            HighlightAllMaps({values, colors}, shape, contents, parameters, counters);
            AddNew(maps, image, before, colors, shape, contents);
        }
    return maps;
}
