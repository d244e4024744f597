#include "discovery/MapPointers.h"

#include <algorithm>
#include <bit>
#include <cstdlib>

namespace {
constexpr std::size_t busAddresses = 0x10000; ///< of the processor
constexpr std::int64_t tableSize = 64;        ///< bytes between pointers of one table, at most

constexpr std::int64_t besidePointer = 4; ///< bytes in front of a pointer, and behind it
constexpr int enoughAround = 6;           ///< of these eight

/// Bytes beside two pointers that are the same, but for those that repeat the one before.
int SameBeside(TRomBytes image, std::int64_t pointer, TRomBytes there, std::int64_t other) {
    int same = 0;
    for (std::int64_t i = -besidePointer; i < 2 + besidePointer; ++i) {
        const std::int64_t at = pointer + i;
        const std::int64_t atThere = other + i;
        const bool isPointer = i == 0 || i == 1;
        if (isPointer || std::min(at, atThere) < 1 || at >= std::ssize(image) ||
            atThere >= std::ssize(there))
            continue;
        const std::uint8_t byte = image[static_cast<std::size_t>(at)];
        const bool repeats = byte == image[static_cast<std::size_t>(at - 1)];
        same += !repeats && byte == there[static_cast<std::size_t>(atThere)] ? 1 : 0;
    }
    return same;
}

/// The distances between pointers to the one and to the other, sorted.
std::vector<std::int64_t> PointerDistances(const std::vector<std::uint32_t> &toOne,
                                           const std::vector<std::uint32_t> &toOther) {
    std::vector<std::int64_t> distances;
    for (const std::int64_t one : toOne)
        for (const std::int64_t other : toOther)
            if (std::abs(other - one) <= tableSize && other != one)
                distances.push_back(other - one);
    std::sort(distances.begin(), distances.end());
    return distances;
}
} // namespace

std::vector<std::vector<std::uint32_t>> PointersTo(TRomBytes image,
                                                   const std::vector<std::uint32_t> &offsets) {
    std::vector<std::vector<std::uint32_t>> pointers(offsets.size());
    const std::size_t mask = std::min(std::bit_ceil(image.size()), busAddresses) - 1;
    std::vector<std::uint8_t> wanted(busAddresses);
    for (const std::uint32_t offset : offsets)
        wanted[offset & mask] = 1;
    for (std::size_t at = 0; at + 1 < image.size(); ++at) {
        const std::size_t word = (image[at] * std::size_t{256} + image[at + 1]) & mask;
        if (!wanted[word])
            continue;
        for (std::size_t i = 0; i < offsets.size(); ++i)
            if ((offsets[i] & mask) == word && pointers[i].size() < mostPointers)
                pointers[i].push_back(static_cast<std::uint32_t>(at));
    }
    for (std::vector<std::uint32_t> &found : pointers)
        if (found.size() == mostPointers)
            found.clear();
    return pointers;
}

bool PointersLieAlike(TRomBytes image, const std::vector<std::uint32_t> &pointers, TRomBytes there,
                      const std::vector<std::uint32_t> &pointersThere) {
    return std::any_of(pointers.begin(), pointers.end(), [&](std::uint32_t pointer) {
        return std::any_of(pointersThere.begin(), pointersThere.end(), [&](std::uint32_t other) {
            return SameBeside(image, pointer, there, other) >= enoughAround;
        });
    });
}

bool PointersStandAlike(const std::vector<std::uint32_t> &toOne,
                        const std::vector<std::uint32_t> &toOther,
                        const std::vector<std::uint32_t> &toOneThere,
                        const std::vector<std::uint32_t> &toOtherThere) {
    const auto here = PointerDistances(toOne, toOther);
    const auto there = PointerDistances(toOneThere, toOtherThere);
    return std::any_of(here.begin(), here.end(), [&there](std::int64_t distance) {
        return std::binary_search(there.begin(), there.end(), distance);
    });
}
