#include "discovery/Pointers.h"

#include <algorithm>
#include <bit>

namespace {

constexpr std::size_t addresses = 0x10000; // that two bytes can name

/// The bits of an address that the image has, for the rest belongs to the bus.
std::size_t AddressMask(std::size_t size) {
    return std::min(std::bit_ceil(std::max<std::size_t>(size, 2)), addresses) - 1;
}

/// By address, the place that lies there; the first of those that do. More of them are rare, and
/// begin at the same byte or whole banks apart.
std::vector<std::int32_t> PlacesByAddress(const TScoredPlaces &places, std::size_t mask) {
    std::vector<std::int32_t> at(mask + 1, -1);
    for (std::size_t i = places.size(); i-- > 0;)
        at[places[i].place.offset & mask] = static_cast<std::int32_t>(i);
    return at;
}

} // namespace

std::vector<int> PointersTo(TRomBytes image, const TScoredPlaces &places) {
    const std::size_t mask = AddressMask(image.size());
    const std::vector<std::int32_t> at = PlacesByAddress(places, mask);
    const auto target = [&](std::size_t i) {
        return i + 1 < image.size() ? at[(std::size_t{image[i]} * 256 + image[i + 1]) & mask] : -1;
    };
    std::vector<int> found(places.size());
    for (std::size_t i = 0; i + 1 < image.size(); ++i) {
        const std::int32_t one = target(i);
        if (one < 0)
            continue;
        int &pointed = found[static_cast<std::size_t>(one)];
        pointed = std::max(pointed, 1);
        const std::int32_t next = target(i + 2);
        if (next < 0 || Overlap(places[static_cast<std::size_t>(one)].place,
                                places[static_cast<std::size_t>(next)].place))
            continue;
        pointed = 2;
        found[static_cast<std::size_t>(next)] = 2;
    }
    for (std::size_t i = 0; i < places.size(); ++i) // those at the same address
        found[i] =
            std::max(found[i], found[static_cast<std::size_t>(at[places[i].place.offset & mask])]);
    return found;
}
