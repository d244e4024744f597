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

std::vector<int> PointersTo(TRomBytes image, const TScoredPlaces &places,
                            const TScoredPlaces &others) {
    const std::size_t mask = AddressMask(image.size());
    const std::vector<std::int32_t> at = PlacesByAddress(places, mask);
    const std::vector<std::int32_t> otherAt = PlacesByAddress(others, mask);
    const auto target = [&](const std::vector<std::int32_t> &list, std::size_t i) {
        return i + 1 < image.size() ? list[(std::size_t{image[i]} * 256 + image[i + 1]) & mask]
                                    : -1;
    };
    std::vector<int> found(places.size());
    for (std::size_t i = 0; i + 1 < image.size(); ++i) {
        const std::int32_t one = target(at, i);
        if (one < 0)
            continue;
        const TMapPlace &place = places[static_cast<std::size_t>(one)].place;
        const auto isAnother = [&](std::size_t beside) {
            const std::int32_t other = target(otherAt, beside);
            return other >= 0 && !Overlap(place, others[static_cast<std::size_t>(other)].place);
        };
        int &pointed = found[static_cast<std::size_t>(one)];
        pointed = std::max(pointed, isAnother(i + 2) || (i >= 2 && isAnother(i - 2)) ? 2 : 1);
    }
    for (std::size_t i = 0; i < places.size(); ++i) // those at the same address
        found[i] =
            std::max(found[i], found[static_cast<std::size_t>(at[places[i].place.offset & mask])]);
    return found;
}
