// How much a place resembles a map, what lies around included.
#include "discovery/MapLikeness.h"

#include "discovery/AlikePlaces.h"
#include "discovery/PlainFamily.h"

#include <gmock/gmock.h>

namespace {
class TMapLikenessTest : public testing::Test {
protected:
    static constexpr std::size_t body = 18; // of a linear map of 16 points

    static TMapPlace PlaceOf(const TBytes &image) { return *PlaceAt(image, 1, TMapShape::Linear); }
    /// A byte in front, a linear map, a byte behind.
    static TBytes With(const TPlainMap &map) {
        TBytes image{77};
        const TBytes bytes = map.Bytes();
        image.insert(image.end(), bytes.begin(), bytes.end());
        image.push_back(78);
        return image;
    }
    TMapLikeness Likeness(const TBytes &other) {
        return MapLikeness(known, PlaceOf(known), other, PlaceOf(other));
    }
    /// The known image with other bytes in the body.
    template <class Change>
    TBytes WithBody(Change change) {
        TBytes other = known;
        for (std::size_t i = 0; i < 16; ++i)
            other[1 + body + i] = static_cast<std::uint8_t>(change(other[1 + body + i]));
        return other;
    }

    TBytes known = With(TPlainFamily().maps[1]);
};

TEST_F(TMapLikenessTest, OfTheMapItselfIsWhole) {
    const TMapLikeness same = Likeness(known);
    EXPECT_EQ(same.equalSteps, 16);
    EXPECT_EQ(same.steps, 16);
    EXPECT_EQ(same.equalHeaders, 1);
    EXPECT_EQ(same.equalCells, 16);
    EXPECT_EQ(same.bodyCost, 0);
    EXPECT_EQ(same.fit, TBodyFit::Same);
    EXPECT_EQ(same.around, 2);
    EXPECT_EQ(same.axisBits, 32);
}

TEST_F(TMapLikenessTest, FallsWithEachDifference) {
    const double whole = Likeness(known).bits;
    for (const std::size_t place : {0U, 1U, 5U, 25U, 35U}) { // around, header, step, value, around
        TBytes other = known;
        other[place] ^= 0x15;
        EXPECT_LT(Likeness(other).bits, whole) << place;
    }
}

TEST_F(TMapLikenessTest, TellsByWhatTheValuesDiffer) {
    const auto fitOf = [this](const TBytes &other) { return Likeness(other).fit; };
    EXPECT_EQ(fitOf(WithBody([](int byte) { return byte + byte % 2; })), TBodyFit::Same);
    EXPECT_EQ(fitOf(WithBody([](int byte) { return byte + 20; })), TBodyFit::Shifted);
    EXPECT_EQ(fitOf(WithBody([](int byte) { return 110 + (byte - 110) * 5 / 4 - 12; })),
              TBodyFit::Scaled);
    EXPECT_EQ(fitOf(WithBody([](int byte) { return byte - 70; })), TBodyFit::Same)
        << "so far is another map";
}

TEST_F(TMapLikenessTest, OfABodyOfEqualBytesTellsNothingByValues) {
    TPlainMap flat = TPlainFamily().maps[1];
    flat.body = TBytes(16, 50);
    known = With(flat);
    EXPECT_EQ(Likeness(known).bits, Likeness(WithBody([](int) { return 200; })).bits);
}

TEST_F(TMapLikenessTest, DoesNotCountFillingsAround) {
    TBytes filled(40, 0xFF);
    filled.insert(filled.end(), known.begin() + 1, known.end() - 1);
    filled.resize(filled.size() + 40, 0xFF);
    const TMapPlace place = *PlaceAt(filled, 40, TMapShape::Linear);
    EXPECT_EQ(MapLikeness(filled, place, filled, place).around, 2);
}

TEST_F(TMapLikenessTest, NeedsAxesThatAreAlike) {
    TBytes other = known;
    const auto alike = [&] { return AxesAreAlike(known, PlaceOf(known), other, PlaceOf(other)); };
    for (std::size_t step = 0; step < 5; ++step)
        other[3 + step] ^= 0x40;
    EXPECT_TRUE(alike()) << "a third of the steps";
    other[8] ^= 0x40;
    EXPECT_FALSE(alike());
}

TEST(TAlikePlacesTest, HoldTheBestOnesFirst) {
    const TPlainFamily family;
    const TBytes image = family.Image(1, TPlainFamily::places);
    const TMapPlace map = *PlaceAt(image, TPlainFamily::places[1], TMapShape::Linear);
    TBytes other = family.Filling(2);
    TPlainFamily::Put(other, 0x100, family.maps[1].Bytes());
    TPlainFamily::Put(other, 0x200, family.maps[1].Bytes());
    other[0x100 + 20] ^= 0x3F;
    other[0x300 + 1] = 16; // the form alone
    const TAlikePlaces places = AlikePlaces(image, map, other);
    EXPECT_EQ(places.ofForm, 3);
    EXPECT_EQ(places.alike, 2);
    ASSERT_EQ(places.best.size(), 2);
    EXPECT_EQ(places.best[0].place.offset, 0x200);
    EXPECT_EQ(places.best[1].place.offset, 0x100);
}
} // namespace
