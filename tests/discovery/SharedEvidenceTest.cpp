// What places tell about each other: votes on headers, pointers, likeness; and the scorecard.
#include "discovery/SharedEvidence.h"

#include "MadeMaps.h"
#include "discovery/HeaderVote.h"
#include "discovery/Pointers.h"

#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;

namespace {

constexpr float certain = 30; // the logarithm of odds

TScoredPlace Scored(std::uint32_t offset, TMapShape shape = TMapShape::Linear) {
    const std::uint8_t loadPoints = shape == TMapShape::TwoD ? 2 : 1;
    return {{offset, shape, 2, loadPoints}, TMapContents::Fuel, {}, certain};
}

/// An image of linear maps of two points, 16 bytes apart, with these headers.
TBytes ImageOf(const TBytes &headers) {
    TBytes image;
    for (const std::uint8_t header : headers) {
        image.insert(image.end(), {header, 2, 100, 100, 50, 50});
        image.resize((image.size() + 15) / 16 * 16);
    }
    return image;
}

TEST(HeaderVote, CountsTheOthersWithTheSameHeader) {
    const TBytes image = ImageOf({0x4A, 0x4A, 0x4A, 0x10});
    const TScoredPlaces places{Scored(0), Scored(16), Scored(32), Scored(48)};
    const THeaderVote vote(image, places, false);
    EXPECT_NEAR(vote.Support(places[0]), 2, 0.001);
    EXPECT_NEAR(vote.Support(places[3]), -3, 0.001) << "three have another one in common";
}

TEST(HeaderVote, CountsByWeight) {
    const TBytes image = ImageOf({0x4A, 0x4A});
    TScoredPlaces places{Scored(0), Scored(16)};
    places[1].score = 0; // even odds
    EXPECT_NEAR(THeaderVote(image, places, false).Support(places[0]), places[1].Weight(), 0.001);
    EXPECT_GT(places[1].Weight(), places[1].Chance()) << "what is in doubt still counts";
}

TEST(HeaderVote, LeavesOutWhatOverlaps) {
    const TBytes image = ImageOf({0x4A, 0x4A});
    const TScoredPlaces places{Scored(0), Scored(16)};
    EXPECT_NEAR(THeaderVote(image, places, false).Support(Scored(16)), 1, 0.001);
    EXPECT_NEAR(THeaderVote(image, {Scored(16)}, false).Support(Scored(16)), 0, 0.001);
}

TEST(HeaderVote, OfLoadIsAmong2DMapsAlone) {
    TBytes image(64, 50);
    for (const std::size_t offset : {0U, 20U, 40U})
        Put(image, offset, {0x4A, 2, 100, 100, 0x4C, 2, 100, 100});
    const TScoredPlaces places{Scored(0, TMapShape::TwoD), Scored(20, TMapShape::TwoD)};
    const THeaderVote vote(image, places, true);
    EXPECT_NEAR(vote.Support(places[0]), 1, 0.001);
    EXPECT_EQ(vote.Support(Scored(40)), 0) << "a linear map has no load axis";
}

TEST(HeaderVote, OfNobodySupportsNobody) {
    const TBytes image = ImageOf({0x4A});
    EXPECT_EQ(THeaderVote(image, {}, false).Support(Scored(0)), 0);
}

std::vector<int> PointersOf(const TBytes &image, const TScoredPlaces &places) {
    return PointersTo(image, places, places);
}

TEST(Pointers, CountMoreSideBySide) {
    TBytes image(0x8000, 0);
    const TScoredPlaces places{Scored(0x6000), Scored(0x6100), Scored(0x7000), Scored(0x7100)};
    Put(image, 0x210, {0xE0, 0x00, 0x61, 0x00}); // the first with a bit of the bus
    Put(image, 0x400, {0x70, 0x00});
    EXPECT_THAT(PointersOf(image, places), ElementsAre(2, 2, 1, 0));
}

TEST(Pointers, BesideThoseToUnlikelyPlacesAreSingle) {
    TBytes image(0x8000, 0);
    Put(image, 0x210, {0x60, 0x00, 0x61, 0x00, 0x62, 0x00});
    const TScoredPlaces places{Scored(0x6000), Scored(0x6100), Scored(0x6200)};
    EXPECT_THAT(PointersTo(image, places, {Scored(0x6200)}), ElementsAre(1, 2, 1));
}

TEST(Pointers, ToPlacesThatOverlapAreNoPair) {
    TBytes image(0x8000, 0);
    Put(image, 0x210, {0x60, 0x00, 0x60, 0x04});
    EXPECT_THAT(PointersOf(image, {Scored(0x6000), Scored(0x6004)}), ElementsAre(1, 1));
}

TEST(Pointers, AreFoundAtTheVeryEnd) {
    TBytes image(0x100, 0x77);
    Put(image, 0xFC, {0x00, 0x10, 0x00, 0x20});
    EXPECT_THAT(PointersOf(image, {Scored(0x10), Scored(0x20), Scored(0x30)}),
                ElementsAre(2, 2, 0));
}

TEST(Pointers, OfTinyImagesAreNone) {
    EXPECT_THAT(PointersOf({}, {}), ElementsAre());
    const TBytes one{0};
    EXPECT_THAT(PointersOf(one, {Scored(0)}), ElementsAre(0));
}

TEST(Pointers, NameAnAddressOfEachBankOfLargeImages) {
    TBytes image(0x20000, 0xFF);
    Put(image, 0x210, {0x60, 0x00});
    EXPECT_THAT(PointersOf(image, {Scored(0x6000), Scored(0x16000)}), ElementsAre(1, 1));
}

TEST(SharedEvidence, ComparesWithBothEndsOfTheLoadAxis) {
    TBytes image = TwoDMap(4, 3, [](int r, int t) { return 100 + r + 10 * t; });
    const TMapPlace partThrottle = *PlaceAt(image, 0, TMapShape::TwoD);
    const auto offset = static_cast<std::uint32_t>(image.size());
    const TBytes idle = LinearMap(4, [](int r) { return 102 + r; });
    image.insert(image.end(), idle.begin(), idle.end());
    const TMapPlace linear = *PlaceAt(image, offset, TMapShape::Linear);
    EXPECT_FLOAT_EQ(DifferenceFrom(image, linear, partThrottle, false), 2);
    EXPECT_FLOAT_EQ(DifferenceFrom(image, linear, partThrottle, true), 18);
}

TEST(SharedEvidence, ComparesLikePartsOfOtherAxes) {
    TBytes image = TwoDMap(9, 2, [](int r, int) { return 100 + r; });
    const TMapPlace partThrottle = *PlaceAt(image, 0, TMapShape::TwoD);
    const auto offset = static_cast<std::uint32_t>(image.size());
    const TBytes idle = LinearMap(3, [](int r) { return 100 + 4 * r; });
    image.insert(image.end(), idle.begin(), idle.end());
    EXPECT_FLOAT_EQ(
        DifferenceFrom(image, *PlaceAt(image, offset, TMapShape::Linear), partThrottle, false), 0);
}

TEST(ScoredPlaces, KeepTheBetterOfTwoThatOverlap) {
    TScoredPlaces places{Scored(10), Scored(0), Scored(12), Scored(16), Scored(5)};
    for (std::size_t i = 0; i < places.size(); ++i)
        places[i].score = 9 - float(i);
    const TScoredPlaces kept = WithoutOverlaps(places, 100);
    ASSERT_EQ(kept.size(), 3U);
    EXPECT_EQ(kept[0].place.offset, 10U);
    EXPECT_EQ(kept[1].place.offset, 0U);
    EXPECT_EQ(kept[2].place.offset, 16U) << "5 overlaps 0 and 10, 12 overlaps 10";
    EXPECT_EQ(WithoutOverlaps(places, 1).size(), 1U);
    EXPECT_TRUE(WithoutOverlaps({}, 5).empty());
}

TEST(ScoredPlaces, LeaveOutRunsOfOneByte) {
    for (const int byte : {2, 8, 16, 30})
        EXPECT_TRUE(
            BestPlaces(TBytes(0x1000, static_cast<std::uint8_t>(byte)), FittedCards()).empty())
            << byte;
}

TEST(ScoredPlaces, AreNoMoreThanTheMost) {
    TBytes image(0x4000);
    for (std::size_t i = 0; i < image.size(); ++i)
        image[i] = static_cast<std::uint8_t>(2 + i * i % 5);
    EXPECT_EQ(BestPlaces(image, FittedCards()).size(), mostPlaces);
}

TEST(Scorecard, GivesThePointsOfTheBin) {
    const TScoreRow row{{{1, 2, 3, 4, 5}}, {{10, 11, 12, 13, 14, 15}}};
    const struct {
        float measure;
        float points;
    } cases[] = {{-100, 10}, {0.99F, 10}, {1, 11}, {4.5F, 14}, {5, 15}, {1e9F, 15}};
    for (const auto &[measure, points] : cases)
        EXPECT_EQ(row.PointsOf(measure), points) << measure;
}

TEST(Scorecard, AddsUpWhatCounts) {
    TScorecard card{};
    card.base = -3;
    card.ownShare = 0.5F;
    card.sharedBase = 1;
    for (TScoreRow &row : card.rows)
        row.points.fill(2);
    EXPECT_FLOAT_EQ(OwnScore(card, {}), -3 + 2.0F * ownFeatures);
    EXPECT_FLOAT_EQ(FullScore(card, {}),
                    0.5F * OwnScore(card, {}) + 1 + 2.0F * (featureCount - ownFeatures));
    EXPECT_FLOAT_EQ(EvidenceOf(card, {}).front(), 1);
    EXPECT_FLOAT_EQ(EvidenceOf(card, {}).back(), 2);
}

TEST(Scorecard, TurnsOddsIntoChances) {
    EXPECT_DOUBLE_EQ(ChanceOf(0), 0.5);
    EXPECT_NEAR(ChanceOf(std::log(3.0)), 0.75, 1e-9);
    EXPECT_DOUBLE_EQ(ChanceOf(1000), 1);
    EXPECT_NEAR(ChanceOf(-1000), 0, 1e-9);
}

} // namespace
