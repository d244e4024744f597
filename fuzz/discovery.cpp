// Fuzz target: the maps of an unknown image. The first byte chooses. Either the rest is the image;
// or it is changes to an image that has maps, three bytes each: where, and what stands there.
#include "FuzzInput.h"
#include "discovery/FindTexts.h"
#include "truth/Corpus.h"

#include <array>

namespace {

constexpr std::size_t largestImage = 0x4000; // larger ones only take longer

/// Images of 2 to 16 KiB that have maps.
const std::vector<TBytes> &ImagesWithMaps() {
    static const std::vector<TBytes> images = [] {
        std::vector<TBytes> few;
        for (std::uint32_t i = 0; few.size() < 8; ++i) {
            TTruthImage image = MakeTruthImage(TCorpusHalf::Training, i);
            if (image.maps.size() > 3 && image.bytes.size() <= largestImage)
                few.push_back(std::move(image.bytes));
        }
        return few;
    }();
    return images;
}

TBytes Changed(TBytes image, std::span<const std::uint8_t> changes) {
    for (; changes.size() >= 3; changes = changes.subspan(3)) {
        const std::size_t offset = (std::size_t{changes[0]} * 256 + changes[1]) % image.size();
        image[offset] = changes[2];
    }
    return image;
}

void ExpectOrder(const TBytes &image, const TFoundMaps &found) {
    Demand(found.maps.size() <= mostFound, "more than the most");
    Demand(found.likely <= found.maps.size(), "more likely maps than maps");
    for (std::size_t i = 0; i < found.maps.size(); ++i) {
        const TFoundMap &map = found.maps[i];
        Demand(PlaceAt(image, map.place.offset, map.place.shape) == map.place, "no place of a map");
        Demand((map.Chance() >= likelyChance) == (i < found.likely), "the line");
        Demand(map.place.Is2D() == (map.kind == TMapKind::PT), "kind and shape");
        for (std::size_t other = 0; other < i; ++other) {
            Demand(found.maps[other].score >= map.score, "order");
            Demand(!Overlap(found.maps[other].place, map.place), "a byte of two maps");
        }
        Demand(!KindText(map).empty() && !ChanceText(map).empty(), "texts");
        for (const TReason &reason : Reasons(map))
            Demand(!reason.text.empty(), "reasons");
    }
}

void ExpectSix(const TFoundMaps &found) {
    std::vector<std::size_t> six;
    for (const auto contents : {TMapContents::Fuel, TMapContents::Timing})
        for (const auto kind : {TMapKind::PT, TMapKind::Idle, TMapKind::WOT}) {
            const auto &map =
                found.six[static_cast<std::size_t>(contents)][static_cast<std::size_t>(kind)];
            if (!map)
                continue;
            Demand(*map < found.likely, "an unlikely one of the six");
            Demand(found.maps[*map].contents == contents, "contents of the six");
            Demand(found.maps[*map].kind == kind, "kind of the six");
            Demand(std::ranges::find(six, *map) == six.end(), "one map twice");
            six.push_back(*map);
        }
}

void Find(const TBytes &image) {
    const TFoundMaps found = FindMaps(image);
    ExpectOrder(image, found);
    ExpectSix(found);
    Demand(!found.rpmLocation || found.rpmLocation->maps <= found.rpmLocation->ofMaps, "votes");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    if (size == 0)
        return 0;
    const std::span rest(data + 1, size - 1);
    const std::size_t choice = data[0] % (ImagesWithMaps().size() + 1);
    if (choice == 0)
        Find(TBytes(rest.begin(), rest.begin() + static_cast<std::ptrdiff_t>(
                                                     std::min(rest.size(), largestImage))));
    else
        Find(Changed(ImagesWithMaps()[choice - 1], rest));
    return 0;
}
