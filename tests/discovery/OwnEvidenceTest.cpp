// What a place tells by itself: each feature at its edges.
#include "discovery/OwnEvidence.h"

#include "MadeMaps.h"

#include <random>

#include <gtest/gtest.h>

namespace {

float Measured(const TBytes &image, const TMapPlace &place, TFeature feature) {
    return MeasureOwn(image, place, TSurroundings(image))[static_cast<std::size_t>(feature)];
}

float Linear(const TBytes &map, TFeature feature) {
    return Measured(map, *PlaceAt(map, 0, TMapShape::Linear), feature);
}

float TwoD(const TBytes &map, TFeature feature) {
    return Measured(map, *PlaceAt(map, 0, TMapShape::TwoD), feature);
}

int Flat(int) {
    return 120;
}

TEST(OwnEvidence, TakesAxesUpToOneScaleAlone) {
    TBytes map{0x4A, 2, 128, 128, 0x4C, 2, 128, 128, 100, 100, 100, 100};
    const auto fits = [&](TMapShape shape) { return AxesFit(map, *PlaceAt(map, 0, shape)); };
    EXPECT_TRUE(fits(TMapShape::Linear));
    EXPECT_TRUE(fits(TMapShape::TwoD));
    map[7] = 129;
    EXPECT_TRUE(fits(TMapShape::Linear)) << "has no load axis";
    EXPECT_FALSE(fits(TMapShape::TwoD));
    map[7] = 128;
    map[3] = 129;
    EXPECT_FALSE(fits(TMapShape::Linear));
    EXPECT_FALSE(fits(TMapShape::TwoD));
}

TEST(OwnEvidence, IsSurprisedByStepsThatAreSmallForTheirSurroundings) {
    std::mt19937 random(1);
    TBytes among(600);
    for (std::uint8_t &byte : among)
        byte = static_cast<std::uint8_t>(random());
    Put(among, 300, LinearMap(16, Flat));
    const float amongLarge =
        Measured(among, *PlaceAt(among, 300, TMapShape::Linear), TFeature::RpmAxis);
    for (std::size_t i = 0; i < among.size(); ++i)
        if (i < 300 || i >= 334)
            among[i] %= 30;
    const float amongSmall =
        Measured(among, *PlaceAt(among, 300, TMapShape::Linear), TFeature::RpmAxis);
    EXPECT_GT(amongLarge, 6);
    EXPECT_LT(amongSmall, 1);
}

TEST(OwnEvidence, IsFiniteWithNothingAround) {
    const float surprise = Linear(LinearMap(30, Flat), TFeature::RpmAxis);
    EXPECT_GE(surprise, 0);
    EXPECT_LE(surprise, 40);
}

TEST(OwnEvidence, TellsStepsThatRise) {
    const struct {
        TBytes steps;
        float kind;
    } cases[] = {
        {{0, 0, 20, 100}, 0}, {{0, 10, 20, 100}, 1}, {{20, 20, 20, 100}, 2},
        {{20, 20, 10, 0}, 3}, {{20, 10, 30, 0}, 4},
    };
    for (const auto &row : cases) {
        TBytes map{0x4A, 4};
        map.insert(map.end(), row.steps.begin(), row.steps.end());
        map.insert(map.end(), 4, 100);
        EXPECT_EQ(Linear(map, TFeature::RpmSteps), row.kind) << int(row.steps[1]);
    }
}

TEST(OwnEvidence, TellsPointsSpanAndEnd) {
    const TBytes map{0x4A, 2, 64, 128, 0x4C, 3, 10, 90, 25, 1, 2, 3, 4, 5, 6};
    EXPECT_FLOAT_EQ(TwoD(map, TFeature::RpmPoints), 2);
    EXPECT_FLOAT_EQ(TwoD(map, TFeature::RpmSpan), 0.75F);
    EXPECT_FLOAT_EQ(TwoD(map, TFeature::RpmEnd), 0.5F);
    EXPECT_FLOAT_EQ(TwoD(map, TFeature::LoadPoints), 3);
    EXPECT_FLOAT_EQ(TwoD(map, TFeature::LoadSpan), 0.5F);
    EXPECT_FLOAT_EQ(TwoD(map, TFeature::LoadEnd), 0.1F);
    EXPECT_FLOAT_EQ(Linear(map, TFeature::LoadPoints), 0);
}

TEST(OwnEvidence, FindsNothingSmoothInAConstantBody) {
    EXPECT_EQ(Linear(LinearMap(16, Flat), TFeature::SmoothByRpm), 0);
    const TBytes map = TwoDMap(8, 6, [](int, int) { return 0; });
    EXPECT_EQ(TwoD(map, TFeature::SmoothByRpm), 0);
    EXPECT_EQ(TwoD(map, TFeature::SmoothByLoad), 0);
}

TEST(OwnEvidence, FindsASlopeSmoothAndAZigzagRough) {
    EXPECT_GT(Linear(LinearMap(16, [](int r) { return 100 + 3 * r; }), TFeature::SmoothByRpm), 2);
    EXPECT_LT(Linear(LinearMap(16, [](int r) { return r % 2 * 50; }), TFeature::SmoothByRpm), -2);
}

TEST(OwnEvidence, TellsTheTwoDirectionsOfABody) {
    const TBytes byLoad = TwoDMap(8, 8, [](int r, int t) { return r * 37 % 50 + t; });
    EXPECT_GT(TwoD(byLoad, TFeature::SmoothByLoad), 4);
    EXPECT_LT(TwoD(byLoad, TFeature::SmoothByRpm), 2);
    const TBytes byRpm = TwoDMap(8, 8, [](int r, int t) { return t * 37 % 50 + r; });
    EXPECT_GT(TwoD(byRpm, TFeature::SmoothByRpm), 4);
    EXPECT_LT(TwoD(byRpm, TFeature::SmoothByLoad), 2);
}

TEST(OwnEvidence, LeavesOutWhereOneRunEndsAndTheNextBegins) {
    // Each run rises slowly from 0 to 63 and falls back at once: only the falls are rough.
    const TBytes map = TwoDMap(4, 8, [](int, int t) { return 9 * t; });
    EXPECT_GT(TwoD(map, TFeature::SmoothByLoad), 2);
    EXPECT_GT(TwoD(map, TFeature::SmoothByRpm), 4) << "the runs are alike";
}

TEST(OwnEvidence, CountsUsualValues) {
    const struct {
        int low;
        int high;
        float share;
    } cases[] = {
        {90, 200, 1}, {10, 90, 1}, {89, 201, 0.5F}, {0, 255, 0}, {9, 91, 0.5F}, {50, 150, 0.5F},
    };
    for (const auto &row : cases)
        EXPECT_FLOAT_EQ(Linear(LinearMap(8, [&](int r) { return r % 2 ? row.low : row.high; }),
                               TFeature::Values),
                        row.share)
            << row.low;
}

TEST(OwnEvidence, MeasuresHowFarValuesPart) {
    EXPECT_EQ(Linear(LinearMap(8, Flat), TFeature::Variety), 0);
    EXPECT_EQ(Linear(LinearMap(8, [](int r) { return r ? 10 : 255; }), TFeature::Variety), 245);
}

TEST(OwnEvidence, MeasuresTheImage) {
    TBytes image(0x2000, 200);
    Put(image, 16, LinearMap(8, Flat));
    EXPECT_EQ(Measured(image, *PlaceAt(image, 16, TMapShape::Linear), TFeature::ImageSize), 13);
}

TEST(OwnEvidence, TellsFuelFromTimingByTheMean) {
    const auto contents = [](int value) {
        const TBytes map = LinearMap(8, [&](int) { return value; });
        return ContentsOf(map, *PlaceAt(map, 0, TMapShape::Linear));
    };
    EXPECT_EQ(contents(128), TMapContents::Fuel);
    EXPECT_EQ(contents(90), TMapContents::Fuel);
    EXPECT_EQ(contents(89), TMapContents::Timing);
    EXPECT_EQ(contents(30), TMapContents::Timing);
}

TEST(Surroundings, AreThoseOnBothSides) {
    TBytes image(1024, 10);
    std::fill(image.begin() + 512, image.end(), 30);
    const TSpread around = TSurroundings(image).Around(480, 544);
    EXPECT_DOUBLE_EQ(around.mean, 20);
    EXPECT_DOUBLE_EQ(around.deviation, 10);
    EXPECT_DOUBLE_EQ(TSurroundings(image).Around(64, 128).deviation, 0);
}

TEST(Surroundings, AreFewerAtTheEndsAndMayBeNone) {
    const TBytes image(40, 7);
    EXPECT_DOUBLE_EQ(TSurroundings(image).Around(0, 32).mean, 7);
    EXPECT_DOUBLE_EQ(TSurroundings(image).Around(0, 40).mean, 0);
    EXPECT_DOUBLE_EQ(TSurroundings({}).Around(0, 0).mean, 0);
}

} // namespace
