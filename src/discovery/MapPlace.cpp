#include "discovery/MapPlace.h"

std::optional<TMapPlace> PlaceAt(TRomBytes image, std::size_t offset, TMapShape shape) {
    if (offset + 1 >= image.size() || !IsPointCount(image[offset + 1]))
        return std::nullopt;
    TMapPlace place{static_cast<std::uint32_t>(offset), shape, image[offset + 1], 1};
    if (place.Is2D()) {
        const std::size_t count = place.LoadHeader() + 1;
        if (count >= image.size() || !IsPointCount(image[count]))
            return std::nullopt;
        place.loadPoints = image[count];
    }
    if (place.End() > image.size())
        return std::nullopt;
    return place;
}

bool Overlap(const TMapPlace &one, const TMapPlace &other) {
    return one.offset < other.End() && other.offset < one.End();
}

std::optional<std::uint8_t> HeaderOf(TRomBytes image, const TMapPlace &place, bool ofLoad) {
    if (!ofLoad)
        return image[place.offset];
    if (!place.Is2D())
        return std::nullopt;
    return image[place.LoadHeader()];
}
