#include "specfile/SpecFixture.h"

#include <memory>
#include <new>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StrEq;

namespace {

const std::string direct = "[Fuel Maps]\npt_offset=$100\nidle_offset=$200\nwot_offset=768\n"
                           "[Timing Maps]\npt_offset=$400\nidle_offset=$500\nwot_offset=$600\n"
                           "[Other Maps]\nrevlimit_offset=$1F0\n";

const std::string pointers = "[Main]\nprimary_offset=$8000\nbitmask=$7F\n"
                             "fuelmap_pt_pointer_offset=$10\nfuelmap_id_pointer_offset=$12\n"
                             "fuelmap_wot_pointer_offset=$14\ntimingmap_pt_pointer_offset=$16\n"
                             "timingmap_id_pointer_offset=$18\ntimingmap_wot_pointer_offset=$1A\n"
                             "[Other Maps]\nrevlimit_offset=$1F0\n";

std::string Replaced(std::string text, const std::string &from, const std::string &to) {
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return text.replace(at, from.size(), to);
}

std::string ConversionError(const std::function<void()> &run) {
    try {
        run();
    } catch (const EConvertError &error) {
        return error.what();
    }
    return "no error";
}

class TSpecRead : public TSpecFixture {
protected:
    TSpecRead() {
        Put(0x8010, {0x81, 0x00, 0x82, 0x00, 0x83, 0x00, 0x84, 0x00, 0x85, 0x00, 0x86, 0x00});
    }

    void ExpectNothingPlaced() const {
        EXPECT_THAT(FuelPlaces(), ElementsAre(0, 0, 0));
        EXPECT_THAT(TimingPlaces(), ElementsAre(0, 0, 0));
        EXPECT_EQ(fuel_.revLimiter.offset, -1);
    }
};

TEST_F(TSpecRead, DirectFormPlacesBothSetsAndTheRevLimiter) {
    EXPECT_TRUE(Place(direct));
    EXPECT_THAT(FuelPlaces(), ElementsAre(0x100, 0x200, 0x300));
    EXPECT_THAT(TimingPlaces(), ElementsAre(0x400, 0x500, 0x600));
    EXPECT_EQ(fuel_.PTMap->location->offset, -1);
    EXPECT_EQ(fuel_.PTMap->RPMCount(), 2);
    EXPECT_EQ(timing_.PTMap->LoadCount(), 2);
    EXPECT_EQ(fuel_.revLimiter.offset, 0x1F0);
    EXPECT_EQ(fuel_.revLimiter.GetValue(), 6800);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(TSpecRead, PointerFormPlacesBothSetsThroughTheMask) {
    EXPECT_TRUE(Place(pointers));
    EXPECT_THAT(FuelPlaces(), ElementsAre(0x100, 0x200, 0x300));
    EXPECT_THAT(TimingPlaces(), ElementsAre(0x400, 0x500, 0x600));
    EXPECT_EQ(fuel_.PTMap->location->offset, 0x8010);
    EXPECT_EQ(timing_.WOTMap->location->offset, 0x801A);
    for (const TMapSet *mapSet : {static_cast<TMapSet *>(&fuel_), static_cast<TMapSet *>(&timing_)})
        for (const TMapKind kind : {TMapKind::PT, TMapKind::Idle, TMapKind::WOT})
            EXPECT_EQ(mapSet->Map(kind).location->bitmask, 0x7F);
    EXPECT_EQ(fuel_.revLimiter.offset, 0x1F0) << "absolute, no primary offset added";
}

// The form is told by the lenient reading of primary_offset.
struct TPrimary {
    const char *name;
    std::string line;
    bool isPointerForm;
};

class TSpecForm : public TSpecRead, public testing::WithParamInterface<TPrimary> {};

TEST_P(TSpecForm, IsToldByThePrimaryOffset) {
    Put(0, {0x07, 0x00}); // where a pointer form without other keys finds all its maps
    ASSERT_TRUE(Place(direct + "[Main]\n" + GetParam().line + "\n"));
    EXPECT_EQ(fuel_.PTMap->GetLocation(), GetParam().isPointerForm ? 0x700 : 0x100);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, TSpecForm,
    testing::Values(TPrimary{"missing", "", false},
                    TPrimary{"minus_one", "primary_offset=-1", false},
                    TPrimary{"minus_one_in_hex", "primary_offset=$FFFFFFFF", false},
                    TPrimary{"minus_one_in_c_hex", "primary_offset=0xFFFFFFFF", false},
                    TPrimary{"empty", "primary_offset=", false},
                    TPrimary{"unreadable", "primary_offset=abc", false},
                    TPrimary{"trailing_text", "primary_offset=0 ; base", false},
                    TPrimary{"zero", "primary_offset=0", true},
                    TPrimary{"dollar", "PRIMARY_OFFSET=$0", true},
                    TPrimary{"c_hex", "primary_offset=0x0000", true}),
    [](const auto &test) { return std::string(test.param.name); });

TEST_F(TSpecRead, DirectFormKeepsAMapWhoseKeyIsMissing) {
    ASSERT_TRUE(Place(direct));
    fuel_.WOTMap->data->SetModified(true);
    ASSERT_TRUE(Place(Replaced(direct, "wot_offset=768\n", "")));
    EXPECT_EQ(fuel_.WOTMap->RPMCount(), 2);
    EXPECT_EQ(fuel_.WOTMap->axes->offset, 0x300);
    EXPECT_TRUE(fuel_.WOTMap->IsModified()) << "not even read again";
    EXPECT_EQ(fuel_.WOTMap->GetLocation(), 0) << "the location itself was set to 0";
    EXPECT_EQ(fuel_.IdleMap->GetLocation(), 0x200);
}

TEST_F(TSpecRead, EmptyFileIsADirectFormThatLeavesTheMapsAlone) {
    ASSERT_TRUE(Place(direct));
    ASSERT_TRUE(Place(""));
    EXPECT_EQ(fuel_.PTMap->axes->offset, 0x100);
    EXPECT_EQ(timing_.WOTMap->axes->offset, 0x600);
    EXPECT_EQ(fuel_.revLimiter.offset, 0);
    EXPECT_FALSE(fuel_.HasRevLimiter());
}

TEST_F(TSpecRead, DirectFormDoesNotZeroTheSets) {
    ASSERT_TRUE(Place(direct));
    ASSERT_TRUE(Place(""));
    EXPECT_FALSE(fuel_.IsModified());
    EXPECT_FALSE(timing_.IsModified());
}

TEST_F(TSpecRead, PointerFormZeroesTheSetsFirst) {
    ASSERT_TRUE(Place(direct));
    timing_.SetShowConverted(true);
    TimingConstants() = {};
    ASSERT_TRUE(Place(pointers));
    EXPECT_THAT(Messages(), ElementsAre(StrEq("Timing Divider Not yet Set")));
    EXPECT_THAT(TimingPlaces(), ElementsAre(0x400, 0x500, 0x600));
}

TEST_F(TSpecRead, PointerFormHasDefaultsForMissingKeys) {
    Put(0x20, {0xF1, 0x00});
    ASSERT_TRUE(Place("[Main]\nprimary_offset=$20\n"));
    EXPECT_EQ(fuel_.PTMap->location->offset, 0x20);
    EXPECT_EQ(timing_.WOTMap->location->offset, 0x20);
    EXPECT_EQ(timing_.WOTMap->location->bitmask, 15);
    EXPECT_THAT(FuelPlaces(), ElementsAre(0x100, 0x100, 0x100));
    EXPECT_EQ(fuel_.revLimiter.offset, 0);
}

TEST_F(TSpecRead, PlacesThatNoImageHasAreNoError) {
    EXPECT_TRUE(Place("[Fuel Maps]\npt_offset=-5\nidle_offset=$7FFFFFFF\nwot_offset=$80000000\n"
                      "[Timing Maps]\npt_offset=$FFFFF\nidle_offset=$100000\nwot_offset=$FFFFE\n"
                      "[Other Maps]\nrevlimit_offset=-1\n"));
    EXPECT_EQ(fuel_.IdleMap->GetLocation(), 0x7FFFFFFF);
    EXPECT_EQ(fuel_.revLimiter.offset, -1);
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_TRUE(Place("[Main]\nprimary_offset=$7FFFFFFF\nbitmask=-1\n"
                      "fuelmap_pt_pointer_offset=$7FFFFFFF\n"));
    EXPECT_EQ(fuel_.PTMap->location->offset, -2);
}

TEST_F(TSpecRead, WorksWithoutAnImage) {
    RemoveImage();
    EXPECT_TRUE(Place(direct));
    EXPECT_TRUE(Place(pointers));
    EXPECT_EQ(fuel_.revLimiter.offset, 0x1F0);
}

// What is no integer: placing is skipped silently, whatever the rev limiter's key holds.

struct TBadLine {
    const char *name;
    std::string form;
    std::string good;
    std::string bad;
};

class TSpecBadInteger : public TSpecRead, public testing::WithParamInterface<TBadLine> {};

TEST_P(TSpecBadInteger, SkipsThePlacingOfBothSets) {
    const std::string text = Replaced(GetParam().form, GetParam().good, GetParam().bad);
    EXPECT_FALSE(Place(text));
    ExpectNothingPlaced();
    EXPECT_FALSE(Place(Replaced(text, "revlimit_offset=$1F0", "revlimit_offset=abc")));
    ExpectNothingPlaced();
    EXPECT_THAT(Messages(), IsEmpty());
}

const TBadLine badLines[] = {
    {"fuel_pt", direct, "pt_offset=$100", "pt_offset=abc"},
    {"fuel_idle", direct, "idle_offset=$200", "idle_offset="},
    {"fuel_wot", direct, "wot_offset=768", "wot_offset=7 68"},
    {"timing_pt", direct, "pt_offset=$400", "pt_offset=0x400"},
    {"timing_idle", direct, "idle_offset=$500", "idle_offset=$500h"},
    {"timing_wot", direct, "wot_offset=$600", "wot_offset=$123456789"},
    {"comment_behind_the_value", direct, "pt_offset=$100", "pt_offset=$100 ; here"},
    {"real", direct, "pt_offset=$100", "pt_offset=256.0"},
    {"fuel_pt_pointer", pointers, "pt_pointer_offset=$10", "pt_pointer_offset=abc"},
    {"fuel_idle_pointer", pointers, "id_pointer_offset=$12", "id_pointer_offset="},
    {"fuel_wot_pointer", pointers, "wot_pointer_offset=$14", "wot_pointer_offset=0x14"},
    {"timing_pt_pointer", pointers, "pt_pointer_offset=$16", "pt_pointer_offset=$G"},
    {"timing_idle_pointer", pointers, "id_pointer_offset=$18", "id_pointer_offset=$"},
    {"timing_wot_pointer", pointers, "wot_pointer_offset=$1A", "wot_pointer_offset=--1"},
    {"bitmask", pointers, "bitmask=$7F", "bitmask=7F"},
    {"empty_bitmask", pointers, "bitmask=$7F", "bitmask="},
};

INSTANTIATE_TEST_SUITE_P(Lines, TSpecBadInteger, testing::ValuesIn(badLines),
                         [](const auto &test) { return std::string(test.param.name); });

class TSpecBadRevLimit : public TSpecRead, public testing::WithParamInterface<std::string> {};

TEST_P(TSpecBadRevLimit, EndsTheReadingWithNothingPlaced) {
    const std::string text = Replaced(GetParam(), "revlimit_offset=$1F0", "revlimit_offset=12rpm");
    EXPECT_THAT(ConversionError([&] { Place(text); }),
                StrEq("'12rpm' is not a valid integer value"));
    ExpectNothingPlaced();
    const std::string emptied = Replaced(GetParam(), "revlimit_offset=$1F0", "revlimit_offset=");
    EXPECT_THAT(ConversionError([&] { Place(emptied); }), StrEq("'' is not a valid integer value"));
    ExpectNothingPlaced();
}

TEST_P(TSpecBadRevLimit, KeepsWhatWasPlacedBefore) {
    ASSERT_TRUE(Place(direct));
    const std::string text = Replaced(GetParam(), "revlimit_offset=$1F0", "revlimit_offset=0x1F0");
    EXPECT_THROW(Place(text), EConvertError);
    EXPECT_THAT(FuelPlaces(), ElementsAre(0x100, 0x200, 0x300));
    EXPECT_EQ(fuel_.revLimiter.offset, 0x1F0);
    EXPECT_FALSE(fuel_.IsModified()) << "zeroed before the rev limiter was read";
}

INSTANTIATE_TEST_SUITE_P(Forms, TSpecBadRevLimit, testing::Values(direct, pointers));

struct TNumbers {
    std::string value;
    std::int32_t expected;
};

class TSpecInteger : public TSpecRead, public testing::WithParamInterface<TNumbers> {};

TEST_P(TSpecInteger, IsReadStrictly) {
    const TIniFile ini("[S]\na=" + GetParam().value + "\nc=\" 7\"\n");
    const auto offsets = ReadMapOffsets(ini, "s", "A", "missing", "c");
    ASSERT_TRUE(offsets);
    EXPECT_EQ(offsets->pt, GetParam().expected);
    EXPECT_EQ(offsets->idle, 0);
    EXPECT_EQ(offsets->wot, 7);
}

INSTANTIATE_TEST_SUITE_P(Values, TSpecInteger,
                         testing::Values(TNumbers{"0", 0}, TNumbers{"6144", 6144},
                                         TNumbers{"$1a2C", 0x1A2C}, TNumbers{"-3", -3},
                                         TNumbers{"+3", 3}, TNumbers{"\"  $10\"", 16},
                                         TNumbers{"$FFFFFFFF", -1},
                                         TNumbers{"2147483647", 2147483647}));

struct TSum {
    std::string primary;
    std::string offset;
    std::int32_t expected;
};

class TSpecPointer : public TSpecRead, public testing::WithParamInterface<TSum> {};

TEST_P(TSpecPointer, IsRelativeAndWraps) {
    const TIniFile ini("[Main]\nid=" + GetParam().offset + "\n");
    const auto found =
        ReadMapPointers(ini, "Main", "pt", "id", "wot", ParseInteger(GetParam().primary));
    ASSERT_TRUE(found);
    EXPECT_EQ(found->idle, GetParam().expected);
    EXPECT_EQ(found->pt, ParseInteger(GetParam().primary));
    EXPECT_EQ(found->bitmask, 15);
}

INSTANTIATE_TEST_SUITE_P(Sums, TSpecPointer,
                         testing::Values(TSum{"$8000", "$10", 0x8010}, TSum{"0", "0", 0},
                                         TSum{"$8000", "-$10", 0x7FF0}, TSum{"-2", "1", -1},
                                         TSum{"$7FFFFFFF", "1", INT32_MIN},
                                         TSum{"$80000000", "-1", INT32_MAX},
                                         TSum{"$FFFFFFFE", "$FFFFFFFE", -4}));

// The two timing constants, in the process's number format.

struct TConstants {
    const char *name;
    std::string separator;
    std::string lines;
    double divider;
    double subtractor;
    std::string error;
};

class TSpecConstants : public TSpecRead, public testing::WithParamInterface<TConstants> {};

TEST_P(TSpecConstants, AreReadInOrder) {
    SetDecimalSeparator(GetParam().separator);
    const TIniFile ini("[Main]\n" + GetParam().lines);
    EXPECT_EQ(ConversionError([&] { ReadTimingConstants(ini); }), GetParam().error);
    EXPECT_DOUBLE_EQ(TimingConstants().divider, GetParam().divider);
    EXPECT_DOUBLE_EQ(TimingConstants().subtractor, GetParam().subtractor);
}

// 1.5 and 2.5 stood before.
const TConstants constants[] = {
    {"missing", ".", "", 0.65, 12.7, "no error"},
    {"both", ".", "timing_divider=0.5\ntiming_subtractor=10\n", 0.5, 10, "no error"},
    {"negative", ".", "timing_divider=-1e-1\ntiming_subtractor= +3 \n", -0.1, 3, "no error"},
    {"zero", ".", "timing_divider=0\n", 0, 12.7, "no error"},
    {"bad_divider", ".", "timing_divider=abc\ntiming_subtractor=10\n", 1.5, 2.5,
     "'abc' is not a valid floating point value"},
    {"empty_divider", ".", "timing_divider=\n", 1.5, 2.5, "'' is not a valid floating point value"},
    {"bad_subtractor", ".", "timing_divider=0.5\ntiming_subtractor=1.2.3\n", 0.5, 2.5,
     "'1.2.3' is not a valid floating point value"},
    {"both_bad", ".", "timing_divider=x\ntiming_subtractor=y\n", 1.5, 2.5,
     "'x' is not a valid floating point value"},
    {"infinite", ".", "timing_divider=inf\n", 1.5, 2.5,
     "'inf' is not a valid floating point value"},
    {"missing_with_comma", ",", "", 0.65, 12.7, "no error"},
    {"comma", ",", "timing_divider=0,5\ntiming_subtractor=10,25\n", 0.5, 10.25, "no error"},
    {"point_where_a_comma_is_due", ",", "timing_divider=0.65\n", 1.5, 2.5,
     "'0.65' is not a valid floating point value"},
    {"comma_where_a_point_is_due", ".", "timing_subtractor=12,7\n", 0.65, 2.5,
     "'12,7' is not a valid floating point value"},
    {"other_section", ".", "[Other]\ntiming_divider=9\n", 0.65, 12.7, "no error"},
};

INSTANTIATE_TEST_SUITE_P(Lines, TSpecConstants, testing::ValuesIn(constants),
                         [](const auto &test) { return std::string(test.param.name); });

/// A map that cannot be placed, as when there is no memory for its cells.
class TUnplaceableMap : public TFuelMap {
public:
    TUnplaceableMap() : TFuelMap(2) {}
    void SetOffset(std::int32_t) override { throw std::bad_alloc(); }
    void SetPointer(std::int32_t, std::int32_t) override { throw std::bad_alloc(); }
};

class TSpecUnplaceable : public TSpecRead, public testing::WithParamInterface<std::string> {};

TEST_P(TSpecUnplaceable, IsNoErrorOfTheSpecFile) {
    fuel_.IdleMap = TOwned<TMap>(std::make_unique<TUnplaceableMap>());
    EXPECT_TRUE(Place(GetParam()));
    EXPECT_EQ(fuel_.revLimiter.offset, 0x1F0);
    EXPECT_EQ(fuel_.PTMap->GetLocation(), 0x100) << "what comes before it is placed";
    EXPECT_THAT(TimingPlaces(), ElementsAre(0, 0, 0)) << "what comes behind it is not";
    EXPECT_THAT(Messages(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Forms, TSpecUnplaceable, testing::Values(direct, pointers));

TEST_F(TSpecRead, ConstantsAreReadFromBothForms) {
    const std::string constantsLines = "[Main]\ntiming_divider=0.5\n";
    for (const std::string &text :
         {direct + constantsLines, Replaced(pointers, "[Main]\n", constantsLines)}) {
        TimingConstants() = {};
        EXPECT_TRUE(Place(text));
        ReadTimingConstants(TIniFile(text));
        EXPECT_DOUBLE_EQ(TimingConstants().divider, 0.5);
    }
}

} // namespace
