// Where the maps of a known image lie in another one of its family, and how sure that is.
#include "discovery/MovedMaps.h"

#include "discovery/PlainFamily.h"

#include <gmock/gmock.h>

namespace {
using testing::Contains;
using testing::Each;
using testing::Field;
using testing::Not;

class TMovedMapsTest : public testing::Test {
protected:
    using TBytes = TPlainFamily::TBytes;
    using TPlaces = std::array<std::uint32_t, 6>;

    TMovedMaps Find() {
        known.bytes = image;
        return FindMovedMaps(known, other);
    }
    static TPlaces Shifted(std::uint32_t distance) {
        TPlaces places = TPlainFamily::places;
        for (std::uint32_t &place : places)
            place += distance;
        return places;
    }
    static void ExpectSureAt(const TMovedMap &map, std::uint32_t offset) {
        ASSERT_TRUE(map.place);
        EXPECT_EQ(map.place->offset, offset);
        EXPECT_EQ(map.sureness, TSureness::Sure);
    }
    static void ExpectAllSureAt(const TMovedMaps &moved, const TPlaces &places) {
        for (std::size_t map = 0; map < places.size(); ++map)
            ExpectSureAt(moved.maps[map], places[map]);
    }
    static auto Says(TMovedFact fact) {
        return Field(&TMovedMap::reasons, Contains(Field(&TMovedReason::fact, fact)));
    }

    TPlainFamily family;
    TBytes image = family.Image(1, TPlainFamily::places);
    TKnownImage known = family.Known(image);
    TBytes other;
};

TEST_F(TMovedMapsTest, FindsAllInTheImageItself) {
    other = image;
    const TMovedMaps moved = Find();
    ExpectAllSureAt(moved, TPlainFamily::places);
    EXPECT_EQ(moved.revLimiter.offset, TPlainFamily::revLimiter);
}

TEST_F(TMovedMapsTest, FindsABlockThatMovedIntoOtherBytes) {
    other = family.Image(2, Shifted(0x0411));
    const TMovedMaps moved = Find();
    ExpectAllSureAt(moved, Shifted(0x0411));
    EXPECT_THAT(moved.maps[0].reasons,
                testing::ElementsAre(TMovedReason{TMovedFact::Steps, 28, 28},
                                     TMovedReason{TMovedFact::Headers, 2, 2},
                                     TMovedReason{TMovedFact::Values, 192, 192},
                                     TMovedReason{TMovedFact::Together, 5, 0x0411}));
}

TEST_F(TMovedMapsTest, FindsMapsThatMovedEachByItself) {
    const TPlaces places{0x3500, 0x0200, 0x0A31, 0x1000, 0x2F02, 0x0801};
    other = family.Image(2, places);
    const TMovedMaps moved = Find();
    for (const std::size_t map : {0U, 3U})
        ExpectSureAt(moved.maps[map], places[map]);
    EXPECT_THAT(moved.maps[1], Says(TMovedFact::Alone));
}

// A body of few values is easily met, or left behind as an old copy.
TEST_F(TMovedMapsTest, IsUnsureOfLinearMapsForWhichNothingElseSpeaks) {
    const TPlaces places{0x3500, 0x0200, 0x0A31, 0x1000, 0x2F02, 0x0801};
    other = family.Image(2, places);
    const TMovedMaps moved = Find();
    for (const std::size_t map : {1U, 2U, 4U, 5U}) {
        ASSERT_TRUE(moved.maps[map].place);
        EXPECT_EQ(moved.maps[map].place->offset, places[map]);
        EXPECT_EQ(moved.maps[map].sureness, TSureness::Unsure);
        EXPECT_EQ(moved.maps[map].reasons.front().fact, TMovedFact::LittleToTell);
    }
}

TEST_F(TMovedMapsTest, FindsMapsWhoseValuesChanged) {
    for (TPlainMap &map : family.maps)
        for (std::size_t cell = 0; cell < map.body.size(); ++cell)
            map.body[cell] = static_cast<std::uint8_t>(map.body[cell] + cell % 4);
    other = family.Image(2, Shifted(0x100));
    ExpectAllSureAt(Find(), Shifted(0x100));
}

TEST_F(TMovedMapsTest, FindsMapsWhoseValuesAreAllHigher) {
    for (TPlainMap &map : family.maps)
        for (std::uint8_t &byte : map.body)
            byte = static_cast<std::uint8_t>(byte + 9);
    other = family.Image(2, Shifted(0x100));
    const TMovedMaps moved = Find();
    ExpectAllSureAt(moved, Shifted(0x100));
    EXPECT_THAT(moved.maps[4], Says(TMovedFact::Shifted));
}

TEST_F(TMovedMapsTest, FindsMapsWhoseAxesChangedALittle) {
    for (TPlainMap &map : family.maps)
        for (std::size_t step = 0; step < 5; ++step)
            map.rpm[step] = static_cast<std::uint8_t>(map.rpm[step] + 1);
    other = family.Image(2, Shifted(0x100));
    const TMovedMaps moved = Find();
    ExpectAllSureAt(moved, Shifted(0x100));
    EXPECT_EQ(moved.maps[1].reasons.front(), (TMovedReason{TMovedFact::Steps, 11, 16}));
}

TEST_F(TMovedMapsTest, IsUnsureOfOtherRamLocationsWithOtherAxes) {
    TBytes map = family.maps[0].Bytes();
    map[0] = 0x4B;
    map[18] = 0x4D; // the header of the load axis
    other = family.Filling(2);
    TPlainFamily::Put(other, 0x1000, map);
    ExpectSureAt(Find().maps[0], 0x1000);
    for (const std::size_t step : {2U, 5U, 8U, 11U})
        other[0x1000 + step] += 1;
    ASSERT_TRUE(Find().maps[0].place);
    EXPECT_EQ(Find().maps[0].sureness, TSureness::Sure);
    for (const std::size_t step : {3U, 6U, 9U, 12U})
        other[0x1000 + step] += 2;
    EXPECT_EQ(Find().maps[0].sureness, TSureness::Unsure);
    EXPECT_THAT(Find().maps[0], Says(TMovedFact::OtherAxes));
}

TEST_F(TMovedMapsTest, LeavesOutWhatIsNotThere) {
    other = family.Filling(2);
    for (const TMovedMap &map : Find().maps) {
        EXPECT_EQ(map.sureness, TSureness::NotFound);
        EXPECT_FALSE(map.place);
        EXPECT_THAT(map, Says(TMovedFact::NoneOfForm));
    }
}

TEST_F(TMovedMapsTest, LeavesOutAMapOfAnotherShape) {
    family.maps[3].rpm.push_back(3);
    other = family.Image(2, Shifted(0x100));
    const TMovedMaps moved = Find();
    EXPECT_EQ(moved.maps[3].reasons, (std::vector{TMovedReason{TMovedFact::GivenAway, 0x2100}}));
    ExpectSureAt(moved.maps[0], 0x2100);
}

TEST_F(TMovedMapsTest, LeavesOutWhatHasTheFormAlone) {
    family.maps[0].rpm = TBytes(16, 15);
    other = family.Image(2, Shifted(0x100));
    family.maps[3].rpm = TBytes(16, 15);
    other = family.Image(2, Shifted(0x100));
    EXPECT_EQ(Find().maps[0].reasons, (std::vector{TMovedReason{TMovedFact::NoneAlike, 2}}));
}

TEST_F(TMovedMapsTest, IsUnsureOfValuesThatAreQuiteOther) {
    std::mt19937 random(5);
    for (std::uint8_t &byte : family.maps[0].body)
        byte = static_cast<std::uint8_t>(byte + random() % 40);
    other = family.Image(2, Shifted(0x100));
    const TMovedMaps moved = Find();
    EXPECT_EQ(moved.maps[0].sureness, TSureness::Unsure);
    EXPECT_EQ(moved.maps[0].reasons.front().fact, TMovedFact::OtherValues);
    EXPECT_NE(moved.maps[0].reasons.at(1).fact, TMovedFact::LittleToTell);
    ExpectSureAt(moved.maps[3], 0x2300);
}

TEST_F(TMovedMapsTest, IsUnsureOfAMapOfFewBytes) {
    family.maps[1] = {{100, 80}, {}, {120, 130}};
    image = family.Image(1, TPlainFamily::places);
    other = family.Image(2, {0x3500, 0x0200, 0x0A31, 0x1000, 0x2F02, 0x0801});
    const TMovedMap map = Find().maps[1];
    ASSERT_TRUE(map.place);
    EXPECT_EQ(map.place->offset, 0x0200);
    EXPECT_EQ(map.sureness, TSureness::Unsure);
    EXPECT_EQ(map.reasons.front().fact, TMovedFact::LittleToTell);
}

// The bytes of a map stand twice, and nothing else tells which of them is used.
TEST_F(TMovedMapsTest, IsUnsureOfTwoCopies) {
    const TPlaces places{0x3500, 0x0200, 0x0A31, 0x1000, 0x2F02, 0x0801};
    other = family.Image(2, places);
    TPlainFamily::Put(other, 0x1800, family.maps[0].Bytes());
    const TMovedMaps moved = Find();
    EXPECT_EQ(moved.maps[0].sureness, TSureness::Unsure);
    EXPECT_THAT(moved.maps[0], Says(TMovedFact::Rival));
    ExpectSureAt(moved.maps[3], 0x1000);
}

// A copy of the old values, left where they were, beside new ones.
TEST_F(TMovedMapsTest, IsUnsureOfAnOldCopyBesideTheChangedMap) {
    for (const std::size_t change : {2U, 5U, 9U}) {
        TPlainFamily changed = family;
        for (std::size_t cell = 0; cell < changed.maps[0].body.size(); ++cell)
            changed.maps[0].body[cell] =
                static_cast<std::uint8_t>(changed.maps[0].body[cell] + cell % change);
        other = changed.Image(2, {0x3500, 0x0200, 0x0A31, 0x1000, 0x2F02, 0x0801});
        TPlainFamily::Put(other, 0x1800, family.maps[0].Bytes());
        EXPECT_EQ(Find().maps[0].sureness, TSureness::Unsure) << change;
        EXPECT_THAT(Find().maps[0], Says(TMovedFact::Rival)) << change;
    }
}

TEST_F(TMovedMapsTest, TellsCopiesByTheBlockThatMovedAsOne) {
    other = family.Image(2, Shifted(0x0411));
    TPlainFamily::Put(other, 0x0800, family.maps[0].Bytes());
    ExpectSureAt(Find().maps[0], 0x2411);
}

TEST_F(TMovedMapsTest, TellsCopiesByPointers) {
    const TPlaces places{0x3500, 0x0200, 0x0A31, 0x1000, 0x2F02, 0x0801};
    other = family.Image(2, places);
    TPlainFamily::Put(other, 0x1800, family.maps[0].Bytes());
    for (std::uint32_t map = 0; map < 6; ++map) {
        const auto pointer = [](std::uint32_t place) {
            return TBytes{static_cast<std::uint8_t>(0xC0 | place >> 8),
                          static_cast<std::uint8_t>(place)};
        };
        TPlainFamily::Put(image, 0x300 + 2 * map, pointer(TPlainFamily::places[map]));
        TPlainFamily::Put(other, 0x600 + 2 * map, pointer(places[map]));
    }
    const TMovedMaps moved = Find();
    ExpectAllSureAt(moved, places);
    EXPECT_THAT(moved.maps[0], Says(TMovedFact::Pointers));
}

TEST_F(TMovedMapsTest, TellsCopiesByTheCodeThatNamesThem) {
    other = family.Filling(2);
    for (const std::uint32_t copy : {0x1000U, 0x1800U})
        TPlainFamily::Put(other, copy, family.maps[0].Bytes());
    EXPECT_EQ(Find().maps[0].sureness, TSureness::Unsure);
    TPlainFamily::Put(image, 0x300, {0x96, 0x41, 0x27, 0xCE, 0xA0, 0x00, 0xBD, 0xC1, 0x17, 0x39});
    TPlainFamily::Put(other, 0x700, {0x96, 0x41, 0x27, 0xCE, 0x98, 0x00, 0xBD, 0xC1, 0x17, 0x39});
    ASSERT_TRUE(Find().maps[0].place);
    EXPECT_EQ(Find().maps[0].place->offset, 0x1800);
    EXPECT_THAT(Find().maps[0], Says(TMovedFact::Pointers));
}

// The known image has the map and one that is much like it; the other image has that one alone.
TEST_F(TMovedMapsTest, IsUnsureWhenAnotherKnownMapIsAsLike) {
    TPlainMap like = family.maps[0];
    for (std::uint8_t &byte : like.body)
        byte = static_cast<std::uint8_t>(byte + 2);
    TPlainFamily::Put(image, 0x3000, like.Bytes());
    other = family.Image(2, Shifted(0x100));
    other[0x2101] = 60; // the map is gone
    TPlainFamily::Put(other, 0x3200, like.Bytes());
    const TMovedMap map = Find().maps[0];
    EXPECT_EQ(map.sureness, TSureness::Unsure);
    EXPECT_THAT(map, Says(TMovedFact::KnownRival));
}

TEST_F(TMovedMapsTest, GivesNoPlaceTwice) {
    family.maps[2] = family.maps[1];
    image = family.Image(1, TPlainFamily::places);
    other = family.Image(2, Shifted(0x100));
    other[TPlainFamily::places[2] + 0x101] = 60; // one of the two is gone
    const TMovedMaps moved = Find();
    EXPECT_NE(moved.maps[1].place.has_value(), moved.maps[2].place.has_value());
    const TMovedMap &without = moved.maps[1].place ? moved.maps[2] : moved.maps[1];
    EXPECT_EQ(without.reasons, (std::vector{TMovedReason{TMovedFact::GivenAway, 0x2200}}));
}

TEST_F(TMovedMapsTest, SaysWhyThereIsNothingToLookFor) {
    known.maps[0].reset();
    image[0x2100 + 1] = 31;
    known.maps[2] = 0x3FF0;
    image[0x3FF1] = 20;
    other = image;
    const TMovedMaps moved = Find();
    EXPECT_EQ(moved.maps[0].reasons, (std::vector{TMovedReason{TMovedFact::NotPlaced}}));
    for (const std::size_t map : {1U, 2U})
        EXPECT_EQ(moved.maps[map].reasons, (std::vector{TMovedReason{TMovedFact::NoForm}}));
}

TEST_F(TMovedMapsTest, FindsTheRevLimiterByTheBytesAround) {
    other = family.Filling(2);
    std::copy(image.begin() + 0x0100, image.begin() + 0x010E, other.begin() + 0x0700);
    other[0x0705] = 200;
    EXPECT_EQ(Find().revLimiter.offset, 0x0705);
    std::copy(image.begin() + 0x0100, image.begin() + 0x010E, other.begin() + 0x0900);
    const TMovedByte twice = Find().revLimiter;
    EXPECT_FALSE(twice.offset);
    EXPECT_EQ(twice.reasons, (std::vector{TMovedReason{TMovedFact::ByteNotAlone}}));
}

TEST_F(TMovedMapsTest, LeavesOutARevLimiterWithoutEvidence) {
    other = family.Filling(2);
    EXPECT_EQ(Find().revLimiter.reasons, (std::vector{TMovedReason{TMovedFact::ByteNotFound}}));
    std::fill(image.begin() + 0x0100, image.begin() + 0x0110, std::uint8_t{0xFF});
    other = image;
    EXPECT_EQ(Find().revLimiter.reasons, (std::vector{TMovedReason{TMovedFact::ByteInFilling}}));
    known.revLimiter.reset();
    EXPECT_EQ(Find().revLimiter.reasons, (std::vector{TMovedReason{TMovedFact::NotPlaced}}));
    known.revLimiter = static_cast<std::uint32_t>(image.size());
    EXPECT_EQ(Find().revLimiter.reasons, (std::vector{TMovedReason{TMovedFact::NotPlaced}}));
}

TEST_F(TMovedMapsTest, OfNoBytesFindsNothing) {
    for (const TMovedMap &map : Find().maps)
        EXPECT_EQ(map.sureness, TSureness::NotFound);
    std::swap(image, other);
    for (const TMovedMap &map : Find().maps)
        EXPECT_EQ(map.reasons, (std::vector{TMovedReason{TMovedFact::NoForm}}));
}

TEST_F(TMovedMapsTest, OfHostileBytesIsNeverSure) {
    image = TBytes(0x10000, 0x10);
    other = TBytes(0x10000, 0x10);
    const TMovedMaps moved = Find();
    for (const std::size_t linear : {1U, 2U, 4U, 5U})
        EXPECT_THAT(moved.maps[linear], Says(TMovedFact::TooManyAlike));
    EXPECT_THAT(moved.maps, Each(Field(&TMovedMap::sureness, TSureness::NotFound)));
    EXPECT_FALSE(moved.revLimiter.offset);
}

TEST_F(TMovedMapsTest, KnowsWhatAMappedImageHas) {
    TMappedImage mapped(image);
    std::array<std::optional<std::uint32_t>, 6> offsets{};
    offsets[0] = 0x2000;
    offsets[5] = 0x2340;
    mapped.PlaceAt(offsets, {}, {});
    const TKnownImage found = KnownImage(mapped);
    EXPECT_EQ(found.maps, offsets);
    EXPECT_EQ(found.revLimiter, std::nullopt);
    EXPECT_EQ(found.bytes.size(), image.size());
}

TEST_F(TMovedMapsTest, NoneOfRandomRevisionsIsWrongAndSure) {
    std::mt19937 random(7);
    int right = 0;
    int all = 0;
    for (std::uint32_t seed = 1; seed <= 60; ++seed) {
        family = TPlainFamily(seed);
        image = family.Image(seed, TPlainFamily::places);
        TPlaces places{};
        for (std::size_t map = 0; map < 6; ++map)
            places[map] = static_cast<std::uint32_t>(0x400 + 0x500 * map + random() % 0x300);
        std::shuffle(places.begin(), places.end(), random);
        for (TPlainMap &map : family.maps)
            for (std::uint8_t &byte : map.body)
                byte = static_cast<std::uint8_t>(byte + random() % 5);
        other = family.Image(seed + 1000, places);
        const TMovedMaps moved = Find();
        for (std::size_t map = 0; map < 6; ++map, ++all) {
            const bool found =
                moved.maps[map].place && moved.maps[map].place->offset == places[map];
            right += found ? 1 : 0;
            EXPECT_TRUE(found || moved.maps[map].sureness != TSureness::Sure) << seed << ' ' << map;
        }
    }
    EXPECT_GE(right, all * 95 / 100);
}
} // namespace
