// What is said of numbers that a byte will not show again, and that nothing is stored by saying it.
#include "maps/StoredValue.h"

#include "model/Numbers.h"
#include "support/ModelFixture.h"

#include <gtest/gtest.h>

namespace {
enum class TShown { Bytes, Trims, Degrees };

struct TNoteCase {
    const char *name;
    TShown shown;
    const char *text;
    const char *before;
    const char *after;
};
void PrintTo(const TNoteCase &tested, std::ostream *stream) {
    *stream << tested.name;
}

class TStoredNoteTest : public TModelTest, public testing::WithParamInterface<TNoteCase> {
protected:
    TStoredNoteTest() {
        PutMap(0x100, {60, 60, 60, 16}, {100, 100, 0});
        TimingConstants() = {0.65, 12.7};
        for (TMap *map : std::initializer_list<TMap *>{&fuel, &timing})
            map->SetOffset(0x100);
    }
    TMap &Shown(TShown shown) {
        TMap &map = shown == TShown::Degrees ? static_cast<TMap &>(timing) : fuel;
        map.data->SetShowConverted(shown != TShown::Bytes);
        return map;
    }

    TFuelMap fuel{2};
    TTimingMap timing{2};
};

TEST_P(TStoredNoteTest, SaysWhatTheByteBecomes) {
    TMap &map = Shown(GetParam().shown);
    EXPECT_EQ(StoredNote(map, 2, 3, GetParam().text), GetParam().before);
    EXPECT_EQ(StoredNote(map, 2, 3, GetParam().text, TNoteTime::After), GetParam().after);
    EXPECT_EQ(map.data->values->GetItem(1, 2)->raw, 6);
    EXPECT_FALSE(map.data->HasModified());
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, TStoredNoteTest,
    testing::Values(
        // name, how the map is shown, text, before Commit, after it
        TNoteCase{"a byte", TShown::Bytes, "255", "", ""},
        TNoteCase{"the least", TShown::Bytes, "0", "", ""},
        TNoteCase{"one more", TShown::Bytes, "256", "256 does not fit a byte: 0 will be stored",
                  "256 does not fit a byte: 0 was stored"},
        TNoteCase{"one less", TShown::Bytes, "-1", "-1 does not fit a byte: 255 will be stored",
                  "-1 does not fit a byte: 255 was stored"},
        TNoteCase{"far beyond", TShown::Bytes, "70000",
                  "70000 does not fit a byte: 112 will be stored",
                  "70000 does not fit a byte: 112 was stored"},
        TNoteCase{"half a count", TShown::Bytes, "12.5", "12.5 will be stored as 12",
                  "12.5 was stored as 12"},
        TNoteCase{"half a count above the last", TShown::Bytes, "255.5",
                  "255.5 does not fit a byte: 0 will be stored",
                  "255.5 does not fit a byte: 0 was stored"},
        TNoteCase{"another writing of a byte", TShown::Bytes, " 7.0 ", "", ""},
        TNoteCase{"beyond 32 bits", TShown::Bytes, "1e10",
                  "1e10 cannot be stored: the old byte stays",
                  "1e10 could not be stored: the old byte stays"},
        TNoteCase{"no number", TShown::Bytes, "abc", "", ""},
        TNoteCase{"nothing", TShown::Bytes, "", "", ""},
        TNoteCase{"a trim", TShown::Trims, "0.95", "", ""},
        TNoteCase{"the greatest trim", TShown::Trims, "1.99", "", ""},
        TNoteCase{"a trim of 2", TShown::Trims, "2", "2 does not fit a byte: 0.00 will be stored",
                  "2 does not fit a byte: 0.00 was stored"},
        TNoteCase{"a trim far beyond", TShown::Trims, "5.87",
                  "5.87 does not fit a byte: 1.87 will be stored",
                  "5.87 does not fit a byte: 1.87 was stored"},
        TNoteCase{"a trim below 0", TShown::Trims, "-0.01",
                  "-0.01 does not fit a byte: 1.99 will be stored",
                  "-0.01 does not fit a byte: 1.99 was stored"},
        TNoteCase{"a trim that rounds to 0", TShown::Trims, "-0.003",
                  "-0.003 will be stored as 0.00", "-0.003 was stored as 0.00"},
        TNoteCase{"a third digit", TShown::Trims, "0.999", "0.999 will be stored as 1.00",
                  "0.999 was stored as 1.00"},
        TNoteCase{"digits that are a byte", TShown::Trims, "0.9921875", "", ""},
        TNoteCase{"another writing of a trim", TShown::Trims, "1", "", ""},
        TNoteCase{"degrees", TShown::Degrees, "30.7", "", ""},
        TNoteCase{"degrees between two bytes", TShown::Degrees, "30.5",
                  "30.5 will be stored as 30.7", "30.5 was stored as 30.7"},
        TNoteCase{"degrees below the least", TShown::Degrees, "-10",
                  "-10 does not fit a byte: 156.2 will be stored",
                  "-10 does not fit a byte: 156.2 was stored"},
        TNoteCase{"degrees beyond 32 bits", TShown::Degrees, "1e10",
                  "1e10 cannot be stored: the old byte stays",
                  "1e10 could not be stored: the old byte stays"}));

using TStoredNoteTests = TStoredNoteTest;

TEST_F(TStoredNoteTests, WithoutADividerNoDegreesAreStoredAndNoMessageComes) {
    TimingConstants() = {0, 0};
    EXPECT_EQ(StoredNote(Shown(TShown::Degrees), 1, 1, "30"),
              "30 cannot be stored: the old byte stays");
    EXPECT_TRUE(Messages().empty());
    timing.data->values->GetItem(0, 0)->SetValue(30);
    EXPECT_EQ(Messages().size(), 1U) << "the next message is shown again";
}

TEST_F(TStoredNoteTests, WhatOnlyArithmeticMakesAnotherNumberIsStoredExactly) {
    const TThrVal load;
    EXPECT_EQ(StoredNote(load, "##0", "99.6"), "");
    EXPECT_EQ(StoredNote(load, "##0", "99.7"), "99.7 will be stored as 100");
    EXPECT_EQ(StoredNote(Shown(TShown::Degrees), 1, 1, "0.845"), "") << "14 counts";
}

TEST_F(TStoredNoteTests, ANumberCanBeStoredWhenItFits32Bits) {
    EXPECT_TRUE(CanBeStored(TFuelVal(), 16777215));
    EXPECT_TRUE(CanBeStored(TRPMVal(), -1e9));
    EXPECT_FALSE(CanBeStored(TRPMVal(), 1e12));
    TTimingVal angle;
    angle.showConverted = true;
    TimingConstants() = {};
    EXPECT_FALSE(CanBeStored(angle, 1));
}

TEST_F(TStoredNoteTests, CellsWithoutAByteHaveNone) {
    TMap &map = Shown(TShown::Bytes);
    for (const auto &[column, row] : {std::pair{0, 1}, {1, 0}, {0, 0}, {5, 1}, {1, 4}})
        EXPECT_EQ(StoredNote(map, column, row, "300"), "") << column << ' ' << row;
    EXPECT_NE(StoredNote(map, 4, 3, "300"), "");
}

TEST_F(TStoredNoteTests, FollowTheSeparatorOfTheProgram) {
    SetDecimalSeparator(",");
    EXPECT_EQ(StoredNote(Shown(TShown::Trims), 1, 1, "5,87"),
              "5,87 does not fit a byte: 1,87 will be stored");
    SetDecimalSeparator(".");
}

TEST_F(TStoredNoteTests, EveryByteIsShownAsItself) {
    for (const TShown shown : {TShown::Bytes, TShown::Trims, TShown::Degrees}) {
        TMap &map = Shown(shown);
        for (int byte = 0; byte < 256; ++byte) {
            TVal &value = *map.data->values->GetItem(1, 2);
            value.raw = byte;
            const std::string text = FormatReal(map.GetCellFormat(), value.GetValue());
            EXPECT_EQ(StoredNote(map, 2, 3, text), "");
        }
    }
}

using TEntryTest = TStoredNoteTest;

TEST_F(TEntryTest, GivesEachByteInAllUnits) {
    for (const TShown shown : {TShown::Bytes, TShown::Trims, TShown::Degrees}) {
        TMap &map = Shown(shown);
        TVal &value = *map.data->values->GetItem(0, 0);
        for (int byte = 0; byte < 256; ++byte) {
            const auto wanted = static_cast<std::uint8_t>(byte);
            value.SetValue(ParseReal(EntryFor(value, map.GetCellFormat(), wanted)));
            ASSERT_EQ(value.raw, byte);
        }
    }
}

TEST_F(TEntryTest, IsAsShownWhereThatIsEnough) {
    TMap &map = Shown(TShown::Trims);
    const TVal &value = *map.data->values->GetItem(0, 0);
    EXPECT_EQ(EntryFor(value, "###0.00", 128), "1.00");
    EXPECT_EQ(EntryFor(value, "###0.00", 67), "0.52");
    EXPECT_EQ(EntryFor(value, "###0.00", 66), "0.516");
}

TEST_F(TEntryTest, IsNoneOfAnAngleWithoutADivider) {
    TimingConstants() = {};
    TMap &map = Shown(TShown::Degrees);
    EXPECT_EQ(EntryFor(*map.data->values->GetItem(0, 0), "###0.0", 7), "");
    EXPECT_TRUE(Messages().empty());
}

TEST_F(TEntryTest, OfAPictureWithoutAPointGetsOne) {
    const TThrVal load;
    EXPECT_EQ(EntryFor(load, "##0", 75), "30");
    EXPECT_EQ(EntryFor(load, "##0", 126), "50.4");
}

TEST_F(TEntryTest, IsOfAnyCountThatPointsOfAxesHave) {
    const TRPMVal speed;
    EXPECT_EQ(EntryFor(speed, "####0", 256), "10240");
    EXPECT_EQ(EntryFor(speed, "####0", -3), "-120");
}

TEST_F(TEntryTest, IsNoneOfAnAngleTooLargeToBeWritten) {
    TimingConstants() = {1e308, 0};
    TMap &map = Shown(TShown::Degrees);
    EXPECT_EQ(EntryFor(*map.data->values->GetItem(0, 0), "###0.0", 7), "");
}

using TCountTest = TStoredNoteTest;

TEST_F(TCountTest, IsWhatATextIsForAValue) {
    TMap &map = Shown(TShown::Trims);
    const TVal &value = *map.data->values->GetItem(0, 0);
    EXPECT_EQ(CountOf(value, "0.52"), 67);
    EXPECT_EQ(CountOf(value, "3"), 384);
    EXPECT_EQ(CountOf(value, "1e10"), std::nullopt);
    EXPECT_EQ(CountOf(value, "x"), std::nullopt);
    TimingConstants() = {};
    EXPECT_EQ(CountOf(*Shown(TShown::Degrees).data->values->GetItem(0, 0), "7"), std::nullopt);
}

TEST_F(TCountTest, StandsForItsValueAndForItsEntry) {
    TMap &map = Shown(TShown::Trims);
    const TVal &value = *map.data->values->GetItem(0, 0);
    EXPECT_TRUE(StandsFor(value, "###0.00", 66, "0.516"));
    EXPECT_TRUE(StandsFor(value, "###0.00", 66, "0.515625"));
    EXPECT_FALSE(StandsFor(value, "###0.00", 66, "0.52"));
    EXPECT_FALSE(StandsFor(value, "###0.00", 66, "0.515"));
    EXPECT_FALSE(StandsFor(value, "###0.00", 66, "x"));
    EXPECT_TRUE(StandsFor(TThrVal(), "##0", 249, "99.6"));
}
} // namespace
