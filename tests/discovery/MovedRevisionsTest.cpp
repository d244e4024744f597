// The goal of moved maps on images that nothing was tried on: 95 of 100 maps placed rightly, and
// none wrongly that is called sure.
#include "discovery/MovedMaps.h"
#include "truth/Corpus.h"

#include <algorithm>

#include <gmock/gmock.h>

namespace {
constexpr std::uint32_t images = 40;

const TTrueMap *SameMap(const TTruthImage &image, std::size_t number) {
    const auto map = std::ranges::find(image.maps, number, &TTrueMap::number);
    return map == image.maps.end() ? nullptr : &*map;
}

/// The first map of each kind.
std::array<const TTrueMap *, 6> SpecMaps(const TTruthImage &image) {
    std::array<const TTrueMap *, 6> maps{};
    for (const TTrueMap &map : image.maps) {
        const std::size_t set = map.contents == TMapContents::Fuel ? 0 : 3;
        const TTrueMap *&first = maps[set + static_cast<std::size_t>(map.kind)];
        first = first ? first : &map;
    }
    return maps;
}

TEST(TMovedRevisionsTest, ArePlacedRightlyOrCalledUnsure) {
    int there = 0;
    int right = 0;
    for (std::uint32_t number = 0; number < images; ++number) {
        const TTruthImage known = MakeTruthImage(TCorpusHalf::HeldOut, number);
        const TTruthImage revision = MakeRevision(TCorpusHalf::HeldOut, number, 1);
        const std::array<const TTrueMap *, 6> maps = SpecMaps(known);
        TKnownImage from{known.bytes, {}, {}};
        for (std::size_t map = 0; map < maps.size(); ++map)
            if (maps[map])
                from.maps[map] = maps[map]->place.offset;
        const TMovedMaps moved = FindMovedMaps(from, revision.bytes);
        for (std::size_t map = 0; map < maps.size(); ++map) {
            const TTrueMap *truth = maps[map] ? SameMap(revision, maps[map]->number) : nullptr;
            const bool placed = truth && moved.maps[map].place == truth->place;
            there += truth ? 1 : 0;
            right += placed ? 1 : 0;
            EXPECT_TRUE(placed || moved.maps[map].sureness != TSureness::Sure)
                << known.name << ", map " << map;
        }
    }
    EXPECT_GT(there, 4 * static_cast<int>(images));
    EXPECT_GE(100 * right, 95 * there);
}
} // namespace
