// The images with the truth about them, which fit and report rely on.
#include "truth/Corpus.h"
#include "truth/Fillers.h"

#include <set>

#include <gtest/gtest.h>

namespace {

TEST(Truth, IsTheSameForTheSameNumber) {
    for (const TCorpusHalf half : {TCorpusHalf::Training, TCorpusHalf::HeldOut}) {
        EXPECT_TRUE(MakeTruthImage(half, 7).bytes == MakeTruthImage(half, 7).bytes);
        EXPECT_TRUE(MakeRevision(half, 7, 1).bytes == MakeRevision(half, 7, 1).bytes);
        EXPECT_TRUE(MakeOtherFile(half, 7).bytes == MakeOtherFile(half, 7).bytes);
    }
}

TEST(Truth, IsAnotherInEachHalf) {
    for (std::uint32_t i = 0; i < 20; ++i)
        EXPECT_FALSE(MakeTruthImage(TCorpusHalf::Training, i).bytes ==
                     MakeTruthImage(TCorpusHalf::HeldOut, i).bytes);
}

TEST(Truth, NamesMapsThatLieInTheImage) {
    std::set<TFlavour> flavours;
    for (std::uint32_t i = 0; i < 60; ++i) {
        const TTruthImage image = MakeTruthImage(TCorpusHalf::Training, i);
        flavours.insert(image.flavour);
        for (const TTrueMap &map : image.maps) {
            EXPECT_TRUE(PlaceAt(image.bytes, map.place.offset, map.place.shape) == map.place);
            EXPECT_EQ(map.place.Is2D(), map.kind == TMapKind::PT);
            if (image.rpmLocation) {
                EXPECT_EQ(image.bytes[map.place.offset], *image.rpmLocation);
            }
        }
        EXPECT_EQ(image.flavour == TFlavour::NoMaps, image.maps.empty()) << image.name;
    }
    EXPECT_EQ(flavours.size(), static_cast<std::size_t>(TFlavour::Count));
}

TEST(Truth, OfARevisionIsThatOfTheSameMapsElsewhere) {
    int moved = 0;
    for (std::uint32_t i = 0; i < 10; ++i) {
        const TTruthImage first = MakeTruthImage(TCorpusHalf::HeldOut, i);
        const TTruthImage later = MakeRevision(TCorpusHalf::HeldOut, i, 1);
        EXPECT_EQ(first.bytes.size(), later.bytes.size());
        for (const TTrueMap &map : later.maps) {
            const auto same = std::ranges::find(first.maps, map.number, &TTrueMap::number);
            ASSERT_TRUE(same != first.maps.end());
            EXPECT_EQ(map.place.rpmPoints, same->place.rpmPoints);
            EXPECT_EQ(map.contents, same->contents);
            EXPECT_EQ(map.kind, same->kind);
            moved += map.place.offset != same->place.offset ? 1 : 0;
        }
    }
    EXPECT_GT(moved, 20);
}

TEST(Truth, HasFillersOfEachKindAndSize) {
    for (int i = 0; i < static_cast<int>(TFiller::Count); ++i) {
        const auto filler = static_cast<TFiller>(i);
        TChance chance(3);
        EXPECT_EQ(Fill(filler, 1000, chance).size(), 1000U) << FillerName(filler);
        EXPECT_EQ(Fill(filler, 0, chance).size(), 0U) << FillerName(filler);
        const TBytes bytes = Fill(filler, 5000, chance);
        const std::set<std::uint8_t> distinct(bytes.begin(), bytes.end());
        EXPECT_EQ(distinct.size() == 1, filler == TFiller::Constant) << FillerName(filler);
    }
}

} // namespace
