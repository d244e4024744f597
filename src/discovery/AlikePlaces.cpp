#include "discovery/AlikePlaces.h"

#include <algorithm>

TAlikePlaces AlikePlaces(TRomBytes image, const TMapPlace &map, TRomBytes searched) {
    TAlikePlaces places;
    for (std::size_t offset = 0; offset + 1 < searched.size(); ++offset) {
        if (searched[offset + 1] != map.rpmPoints)
            continue;
        const std::optional<TMapPlace> place = PlaceAt(searched, offset, map.shape);
        if (!place || place->loadPoints != map.loadPoints)
            continue;
        ++places.ofForm;
        if (!AxesAreAlike(image, map, searched, *place))
            continue;
        if (++places.alike > tooManyAlikePlaces) {
            places.tooMany = true;
            break;
        }
        places.best.push_back({*place, MapLikeness(image, map, searched, *place)});
    }
    std::stable_sort(places.best.begin(), places.best.end(),
                     [](const TAlikePlace &one, const TAlikePlace &other) {
                         return one.likeness.bits > other.likeness.bits;
                     });
    places.best.resize(std::min(places.best.size(), mostAlikePlaces));
    return places;
}
