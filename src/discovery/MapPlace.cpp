#include "discovery/MapPlace.h"

namespace {
bool IsCount(std::uint8_t byte) {
    return byte >= fewestPoints && byte <= mostPoints;
}
} // namespace

std::optional<TMapPlace> PlaceAt(TRomBytes image, std::size_t offset, TMapShape shape) {
    if (offset + 1 >= image.size() || !IsCount(image[offset + 1]))
        return std::nullopt;
    TMapPlace place{static_cast<std::uint32_t>(offset), shape, image[offset + 1], 1};
    if (place.Is2D()) {
        const std::size_t count = place.LoadHeader() + 1;
        if (count >= image.size() || !IsCount(image[count]))
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
