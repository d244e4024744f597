// What is found: in the samples, in images at the edges, and how well in images that the fit of the
// scores has never seen.
#include "discovery/FoundMaps.h"

#include "MadeMaps.h"
#include "discovery/FindTexts.h"
#include "samples/SampleImage.h"
#include "truth/Tally.h"

#include <numeric>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;

namespace {

std::vector<std::uint32_t> OffsetsOf(const TFoundMaps &found, const TSix::value_type &set) {
    std::vector<std::uint32_t> offsets;
    for (const std::optional<std::size_t> map : set)
        offsets.push_back(map ? found.maps[*map].place.offset : 0);
    return offsets;
}

void ExpectTheSixOf(const TSamplePlan &plan) {
    const TFoundMaps found = FindMaps(BuildSampleImage(plan));
    EXPECT_EQ(found.likely, 6U);
    EXPECT_THAT(OffsetsOf(found, found.six[0]),
                ElementsAre(plan.maps[0], plan.maps[1], plan.maps[2]));
    EXPECT_THAT(OffsetsOf(found, found.six[1]),
                ElementsAre(plan.maps[3], plan.maps[4], plan.maps[5]));
    ASSERT_TRUE(found.rpmLocation && found.loadLocation);
    EXPECT_EQ(found.rpmLocation->location, 0x4A);
    EXPECT_EQ(found.rpmLocation->maps, 6);
    EXPECT_EQ(found.rpmLocation->ofMaps, 6);
    EXPECT_EQ(found.loadLocation->location, 0x4C);
    EXPECT_EQ(found.loadLocation->maps, 2);
}

TEST(FoundMaps, AreTheSixOfTheSamples) {
    ExpectTheSixOf(Sample32K());
    ExpectTheSixOf(Sample64K());
}

/// What holds of every list.
void ExpectOrder(const TBytes &image, const TFoundMaps &found) {
    ASSERT_LE(found.maps.size(), mostFound);
    ASSERT_LE(found.likely, found.maps.size());
    for (std::size_t i = 0; i < found.maps.size(); ++i) {
        const TFoundMap &map = found.maps[i];
        EXPECT_LE(map.place.End(), image.size());
        EXPECT_TRUE(PlaceAt(image, map.place.offset, map.place.shape) == map.place);
        EXPECT_EQ(map.Chance() >= likelyChance, i < found.likely);
        EXPECT_EQ(map.kind == TMapKind::PT, map.place.Is2D());
        for (std::size_t other = 0; other < i; ++other) {
            EXPECT_GE(found.maps[other].score, map.score);
            EXPECT_FALSE(Overlap(found.maps[other].place, map.place));
        }
    }
    for (const auto &set : found.six)
        for (const auto &one : set)
            EXPECT_TRUE(!one || *one < found.likely);
}

TEST(FoundMaps, AreNoneOfImagesWithoutAny) {
    TBytes rising(256);
    std::iota(rising.begin(), rising.end(), std::uint8_t{0});
    for (const TBytes &image :
         {TBytes(), TBytes(1, 2), TBytes(15, 2), TBytes(0x10000, 0), TBytes(0x10000, 0xFF),
          TBytes(0x10000, 2), TBytes(0x10000, 16), rising}) {
        const TFoundMaps found = FindMaps(image);
        EXPECT_EQ(found.likely, 0U) << image.size();
        EXPECT_FALSE(found.rpmLocation);
        EXPECT_FALSE(found.loadLocation);
        ExpectOrder(image, found);
    }
}

int Hill(int r, int t) {
    return 110 + 2 * r + t - r * r / 8;
}

TEST(FoundMaps, MayFillTheImage) {
    const TBytes image = TwoDMap(16, 12, Hill);
    const TFoundMaps found = FindMaps(image);
    ASSERT_FALSE(found.maps.empty());
    EXPECT_EQ(found.maps[0].place.offset, 0U);
    EXPECT_EQ(found.maps[0].place.End(), image.size());
    EXPECT_EQ(found.likely, 1U);
    ExpectOrder(image, found);
}

TEST(FoundMaps, Have30PointsAtMost) {
    TBytes image = BuildSampleImage(Sample64K());
    Put(image, 0xD000, LinearMap(30, [](int r) { return 110 + r; }));
    Put(image, 0xD100, LinearMap(32, [](int r) { return 110 + r; }));
    const TFoundMaps found = FindMaps(image);
    ASSERT_GT(found.maps.size(), 6U);
    EXPECT_EQ(found.maps[6].place.offset, 0xD000U) << "behind the six of the sample";
    EXPECT_TRUE(std::ranges::none_of(
        found.maps, [](const TFoundMap &map) { return map.place.offset == 0xD100; }));
}

TEST(FoundMaps, AreThereWhenTheEndCutsAnother) {
    TBytes image = BuildSampleImage(Sample32K());
    const TBytes map = TwoDMap(16, 12, Hill);
    image.insert(image.end(), map.begin(), map.end() - 1);
    ExpectOrder(image, FindMaps(image));
    EXPECT_EQ(FindMaps(image).likely, 6U);
    image.push_back(map.back());
    EXPECT_EQ(FindMaps(image).likely, 7U);
}

TEST(FoundMaps, ComeOutOfDenseBytesInOrder) {
    for (const unsigned most : {3U, 5U, 8U, 12U, 31U}) {
        TBytes image(0x2000);
        std::mt19937 random(most);
        for (std::uint8_t &byte : image)
            byte = static_cast<std::uint8_t>(2 + random() % most);
        const TFoundMaps found = FindMaps(image);
        EXPECT_EQ(found.maps.size(), mostFound);
        ExpectOrder(image, found);
    }
}

TEST(FoundMaps, TellNoLocationOfTwoHeadersHalfAndHalf) {
    TBytes image = BuildSampleImage(Sample32K());
    for (const std::size_t timing : {3U, 4U, 5U})
        image[Sample32K().maps[timing]] = 0x5E;
    const TFoundMaps found = FindMaps(image);
    EXPECT_EQ(found.likely, 6U);
    EXPECT_FALSE(found.rpmLocation);
    EXPECT_TRUE(found.loadLocation);
}

// The goals, on images and files that the fit has not seen, two processors among them.

void Count(TListTally &tally, const TTruthImage &image) {
    const TFoundMaps found = FindMaps(image.bytes);
    ExpectOrder(image.bytes, found);
    tally.Count(image, found);
}

TEST(FoundMaps, ReachTheGoalsOnHeldOutImages) {
    TListTally tally;
    for (std::uint32_t i = 1000; i < 1080; ++i)
        Count(tally, MakeTruthImage(TCorpusHalf::HeldOut, i));
    ASSERT_GT(tally.maps, 300);
    ASSERT_GT(tally.withRpm, 40);
    ASSERT_GT(tally.withLoad, 40);
    EXPECT_GE(tally.amongFirst, 0.95 * tally.maps);
    EXPECT_LE(tally.falseBefore, tally.Units());
    EXPECT_GE(tally.rpmRight, 0.95 * tally.withRpm);
    EXPECT_GE(tally.loadRight, 0.95 * tally.withLoad);
}

TEST(FoundMaps, AreHardlyEverLikelyInOtherFiles) {
    TListTally tally;
    for (std::uint32_t i = 0; i < 42; ++i)
        Count(tally, MakeOtherFile(TCorpusHalf::HeldOut, i));
    EXPECT_LE(tally.likelyFalse, 0.1 * tally.Units());
}

// The counts that the goals are measured by.

TEST(ListTally, CountsTrueAndFalseOnesByTheirPlaces) {
    TTruthImage image = MakeTruthImage(TCorpusHalf::HeldOut, 0);
    ASSERT_EQ(image.maps.size(), 6U);
    TFoundMaps found = FindMaps(image.bytes);
    ASSERT_EQ(found.likely, 6U);
    TListTally tally;
    tally.Count(image, found);
    EXPECT_EQ(tally.amongFirst, 6);
    EXPECT_EQ(tally.likelyTrue, 6);
    EXPECT_EQ(tally.likelyFalse, 0);
    EXPECT_EQ(tally.falseBefore, 0);
    EXPECT_EQ(tally.inFront, 1);
    EXPECT_EQ(tally.rpmRight, 1);
    EXPECT_EQ(tally.wrong, 0);

    image.maps.erase(std::ranges::find(image.maps, found.maps[0].place, &TTrueMap::place));
    found.rpmLocation->location ^= 1;
    TListTally worse;
    worse.Count(image, found);
    EXPECT_EQ(worse.likelyTrue, 5);
    EXPECT_EQ(worse.likelyFalse, 1);
    EXPECT_EQ(worse.falseBefore, 1);
    EXPECT_EQ(worse.inFront, 0);
    EXPECT_EQ(worse.rpmRight, 0);
    EXPECT_EQ(worse.wrong, 1);
}

// In words.

TEST(FindTexts, NameKindShapeAndChance) {
    TFoundMap map;
    map.place = {0x6000, TMapShape::TwoD, 16, 12};
    EXPECT_EQ(KindText(map), "Fuel, part throttle");
    EXPECT_EQ(ShapeText(map.place), "16 x 12");
    EXPECT_EQ(ChanceText(map), "50 %");
    map = {.place = {0x6000, TMapShape::Linear, 16, 1},
           .contents = TMapContents::Timing,
           .kind = TMapKind::WOT,
           .score = 100};
    EXPECT_EQ(KindText(map), "Timing, full throttle");
    EXPECT_EQ(ShapeText(map.place), "16");
    EXPECT_EQ(ChanceText(map), "99 %");
    map.score = -100;
    EXPECT_EQ(ChanceText(map), "1 %");
}

TEST(FindTexts, GiveTheStrongestReasonFirst) {
    TFoundMap map;
    map.evidence[static_cast<std::size_t>(TFeature::RpmAxis)] = 1;
    map.evidence[static_cast<std::size_t>(TFeature::RpmHeader)] = -4;
    map.evidence[static_cast<std::size_t>(TFeature::Values)] = 0.1F;
    const std::vector<TReason> reasons = Reasons(map);
    ASSERT_EQ(reasons.size(), 2U) << "what says little is left out";
    EXPECT_EQ(reasons[0].text, "likely maps have another byte in front of the RPM axis");
    EXPECT_LT(reasons[0].points, 0);
    EXPECT_EQ(reasons[1].text, "the RPM steps fit into full scale, which is rare by chance");
}

TEST(FindTexts, HaveAReasonForEachLikelyMap) {
    const TFoundMaps found = FindMaps(BuildSampleImage(Sample64K()));
    for (std::size_t i = 0; i < found.likely; ++i)
        EXPECT_GT(Reasons(found.maps[i]).at(0).points, 0);
}

TEST(FindTexts, TellTheLocations) {
    TFoundMaps found;
    EXPECT_EQ(RpmLocationText(found), "RAM cell of RPM: cannot tell");
    EXPECT_EQ(LoadLocationText(found), "RAM cell of load: cannot tell");
    found.rpmLocation = TSharedHeader{0x4A, 5, 6};
    found.loadLocation = TSharedHeader{0x0C, 2, 2};
    EXPECT_EQ(RpmLocationText(found), "RPM in RAM cell $4A: 5 of 6 likely maps");
    EXPECT_EQ(LoadLocationText(found), "Load in RAM cell $0C: 2 of 2 likely maps");
}

} // namespace
