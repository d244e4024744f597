// Fuzz target: the maps of a known image in another one. The first byte chooses the known image,
// and whether the rest is the other image or changes to a revision of the known one, three bytes
// each: where, and what stands there.
#include "FuzzInput.h"
#include "discovery/MovedTexts.h"
#include "truth/Corpus.h"

#include <algorithm>

namespace {

constexpr std::size_t mostBytes = 0x4000; // larger images only take longer

struct TFamily {
    TTruthImage known;
    TBytes revision;
};

const std::vector<TFamily> &Families() {
    static const std::vector<TFamily> families = [] {
        std::vector<TFamily> few;
        for (std::uint32_t i = 0; few.size() < 8; ++i) {
            TTruthImage image = MakeTruthImage(TCorpusHalf::Training, i);
            if (image.maps.size() > 3 && image.bytes.size() <= mostBytes)
                few.push_back({std::move(image), MakeRevision(TCorpusHalf::Training, i, 1).bytes});
        }
        return few;
    }();
    return families;
}

TKnownImage KnownOf(const TTruthImage &image) {
    TKnownImage known{image.bytes, {}, 0x20};
    for (const TTrueMap &map : image.maps) {
        const std::size_t set = map.contents == TMapContents::Fuel ? 0 : 3;
        known.maps[set + static_cast<std::size_t>(map.kind)] = map.place.offset;
    }
    return known;
}

void ExpectPlaces(const TBytes &image, const TMovedMaps &moved) {
    for (std::size_t map = 0; map < moved.maps.size(); ++map) {
        const TMovedMap &one = moved.maps[map];
        Demand(!ReasonsText(one.reasons).empty(), "no reason");
        Demand(one.place.has_value() == (one.sureness != TSureness::NotFound), "found or not");
        if (!one.place)
            continue;
        Demand(PlaceAt(image, one.place->offset, one.known->shape) == one.place, "no such place");
        Demand(one.place->rpmPoints == one.known->rpmPoints, "another shape");
        Demand(one.place->loadPoints == one.known->loadPoints, "another shape");
        for (std::size_t other = 0; other < map; ++other)
            Demand(!moved.maps[other].place || !Overlap(*moved.maps[other].place, *one.place),
                   "a byte of two maps");
    }
    Demand(!moved.revLimiter.offset || *moved.revLimiter.offset < image.size(), "rev limiter");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    if (size == 0)
        return 0;
    const TFamily &family = Families()[data[0] % Families().size()];
    std::span rest(data + 1, size - 1);
    TBytes image;
    if (data[0] >= 0x80) {
        image.assign(rest.begin(), rest.begin() + std::ptrdiff_t(std::min(rest.size(), mostBytes)));
    } else {
        image = family.revision;
        for (; rest.size() >= 3; rest = rest.subspan(3))
            image[(std::size_t{rest[0]} * 256 + rest[1]) % image.size()] = rest[2];
    }
    ExpectPlaces(image, FindMovedMaps(KnownOf(family.known), image));
    return 0;
}
