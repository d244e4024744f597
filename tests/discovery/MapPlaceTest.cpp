// What is a place of a map by the written form, at the edges.
#include "discovery/MapPlace.h"

#include "discovery/Candidates.h"

#include <algorithm>
#include <random>
#include <vector>

#include <gtest/gtest.h>

namespace {

using TBytes = std::vector<std::uint8_t>;

/// The smallest map of either shape: two points on each axis.
const TBytes smallestLinear{0x4A, 2, 10, 20, 100, 101};
const TBytes smallestTwoD{0x4A, 2, 10, 20, 0x4C, 2, 30, 40, 100, 101, 102, 103};

TEST(MapPlace, NamesThePartsOfALinearMap) {
    const auto place = PlaceAt(smallestLinear, 0, TMapShape::Linear);
    ASSERT_TRUE(place);
    EXPECT_EQ(place->RpmSteps(), 2U);
    EXPECT_EQ(place->Body(), 4U);
    EXPECT_EQ(place->BodySize(), 2U);
    EXPECT_EQ(place->End(), 6U);
}

TEST(MapPlace, NamesThePartsOfA2DMap) {
    const auto place = PlaceAt(smallestTwoD, 0, TMapShape::TwoD);
    ASSERT_TRUE(place);
    EXPECT_EQ(place->LoadHeader(), 4U);
    EXPECT_EQ(place->LoadSteps(), 6U);
    EXPECT_EQ(place->Body(), 8U);
    EXPECT_EQ(place->BodySize(), 4U);
    EXPECT_EQ(place->End(), 12U);
}

TEST(MapPlace, IsNoneWhereAByteIsMissing) {
    for (TBytes bytes = smallestLinear; !bytes.empty();) {
        bytes.pop_back();
        EXPECT_FALSE(PlaceAt(bytes, 0, TMapShape::Linear)) << bytes.size();
    }
    for (TBytes bytes = smallestTwoD; !bytes.empty();) {
        bytes.pop_back();
        EXPECT_FALSE(PlaceAt(bytes, 0, TMapShape::TwoD)) << bytes.size();
    }
    EXPECT_FALSE(PlaceAt(smallestTwoD, 1000, TMapShape::TwoD));
}

TEST(MapPlace, Has2To30PointsOnEachAxis) {
    for (const auto &[count, isMap] : {std::pair{1, false}, {2, true}, {30, true}, {31, false}}) {
        TBytes bytes(2000, 0);
        bytes[1] = static_cast<std::uint8_t>(count);
        EXPECT_EQ(PlaceAt(bytes, 0, TMapShape::Linear).has_value(), isMap) << count;
        bytes[static_cast<std::size_t>(count) + 3] = 30;
        EXPECT_EQ(PlaceAt(bytes, 0, TMapShape::TwoD).has_value(), isMap) << count;
        bytes[1] = 30;
        bytes[33] = static_cast<std::uint8_t>(count);
        EXPECT_EQ(PlaceAt(bytes, 0, TMapShape::TwoD).has_value(), isMap) << count;
    }
}

TEST(MapPlace, OverlapsWhatSharesAByte) {
    const auto at = [](std::uint32_t offset) {
        return TMapPlace{offset, TMapShape::Linear, 2, 1}; // of 6 bytes
    };
    EXPECT_FALSE(Overlap(at(0), at(6)));
    EXPECT_TRUE(Overlap(at(0), at(5)));
    EXPECT_TRUE(Overlap(at(5), at(0)));
    EXPECT_TRUE(Overlap(at(3), at(3)));
    EXPECT_FALSE(Overlap(at(6), at(0)));
}

std::vector<TMapPlace> Candidates(const TBytes &bytes) {
    std::vector<TMapPlace> places;
    ForEachCandidate(bytes, [&](const TMapPlace &place) { places.push_back(place); });
    return places;
}

TEST(Candidates, AreAllPlacesInReadingOrder) {
    std::mt19937 random(15);
    TBytes bytes(5000);
    for (std::uint8_t &byte : bytes)
        byte = static_cast<std::uint8_t>(random() % 40);
    std::vector<TMapPlace> literal;
    for (std::size_t offset = 0; offset < bytes.size(); ++offset) {
        if (const auto place = PlaceAt(bytes, offset, TMapShape::Linear))
            literal.push_back(*place);
        if (const auto place = PlaceAt(bytes, offset, TMapShape::TwoD))
            literal.push_back(*place);
    }
    ASSERT_GT(literal.size(), 1000U);
    EXPECT_TRUE(Candidates(bytes) == literal);
}

TEST(Candidates, AreNoneOfImagesTooShortForOne) {
    EXPECT_TRUE(Candidates({}).empty());
    EXPECT_TRUE(Candidates({2}).empty());
    EXPECT_TRUE(Candidates({2, 2, 2, 2, 2}).empty());
    EXPECT_EQ(Candidates({2, 2, 2, 2, 2, 2}).size(), 1U);
}

} // namespace
