#include "filedisplay/ContentsTexts.h"

#include "system/Texts.h"

#include <ostream>

#include <gtest/gtest.h>

namespace {
struct TFoundCase {
    const char *name;
    std::string (*textOf)(const TFound &);
    TFound found;
    const char *text;
};

std::ostream &operator<<(std::ostream &out, const TFoundCase &item) {
    return out << item.name;
}

class FoundText : public testing::TestWithParam<TFoundCase> {};

TEST_P(FoundText, SaysHowManyAndWhereTheFirstBegins) {
    EXPECT_EQ(GetParam().textOf(GetParam().found), GetParam().text);
}

const TFoundCase foundCases[] = {
    {"no map", FoundMaps, {0, 0}, "No map found"},
    {"one map", FoundMaps, {1, 0xB2C6}, "1 map, at $B2C6"},
    {"many maps", FoundMaps, {12, 0xB2C6}, "12 maps, first at $B2C6"},
    {"no cell", FoundCells, {0, 0x1000}, "No cell found"},
    {"one cell", FoundCells, {1, 0}, "1 cell, at $0000"},
    {"two cells", FoundCells, {2, 0x00AF}, "2 cells, first at $00AF"},
    {"a whole large image", FoundCells, {0x100000, 0}, "1048576 cells, first at $0000"},
    {"no pointer", FoundPointers, {0, 0}, "No pointer found"},
    {"one pointer", FoundPointers, {1, 0xFFFFE}, "1 pointer, at $FFFFE"},
    {"many pointers", FoundPointers, {3, 0x10000}, "3 pointers, first at $10000"},
};
INSTANTIATE_TEST_SUITE_P(Cases, FoundText, testing::ValuesIn(foundCases));

TEST(MarkedInAll, CountsCellsAndMaps) {
    EXPECT_EQ(MarkedInAll(0, {}), "Marked cells in all: 0; 2-D maps counted: 0, linear maps: 0");
    EXPECT_EQ(MarkedInAll(147, {.linear = 3, .twoD = 12}),
              "Marked cells in all: 147; 2-D maps counted: 12, linear maps: 3");
}

TEST(NoMapAt, SaysWhereTheNextTryWouldBe) {
    EXPECT_EQ(NoMapAt(0x0F, 0x10), "No map begins at $000F; the next try is at $0010");
    EXPECT_EQ(NoMapAt(0xFFFF, 0x10000), "No map begins at $FFFF; the next try is at $10000");
}

TEST(MovedTo, NamesTheMapAsTheMenuDoes) {
    const struct {
        TMapContents contents;
        TMapKind kind;
        const char *name;
    } maps[] = {
        {TMapContents::Fuel, TMapKind::PT, "Fuel Maps - Part Throttle"},
        {TMapContents::Fuel, TMapKind::Idle, "Fuel Maps - Idle"},
        {TMapContents::Fuel, TMapKind::WOT, "Fuel Maps - WOT"},
        {TMapContents::Timing, TMapKind::PT, "Timing Maps - Part Throttle"},
        {TMapContents::Timing, TMapKind::Idle, "Timing Maps - Idle"},
        {TMapContents::Timing, TMapKind::WOT, "Timing Maps - WOT"},
    };
    for (const auto &map : maps) {
        EXPECT_EQ(MovedTo(map.contents, map.kind, 1), map.name + std::string(" is at $0001 now"));
        EXPECT_EQ(MovedTo(map.contents, map.kind, 0),
                  map.name + std::string(" was not moved: no map begins at $0000"));
    }
    EXPECT_EQ(MovedTo(TMapContents::Fuel, TMapKind::Idle, 0xC91A),
              "Fuel Maps - Idle is at $C91A now");
}

struct TCellCase {
    std::size_t offset;
    TCellValue value;
    const char *meaning;
    const char *text;
};

TEST(CellText, SaysWhereAndWhatInBothForms) {
    const TCellCase cases[] = {
        {0, 0, "", "Offset $0000 (0), value $00 (0)"},
        {0xB2C6, 100, "Possible Fuel Val",
         "Offset $B2C6 (45766), value $64 (100): Possible Fuel Val"},
        {0xFFFFF, 255, "", "Offset $FFFFF (1048575), value $FF (255)"},
        {17, -1, "", "Offset $0011 (17): behind the end of the image"},
        {17, -1, "Axis Count", "Offset $0011 (17): behind the end of the image"},
    };
    for (const TCellCase &each : cases)
        EXPECT_EQ(CellText(each.offset, each.value, each.meaning), each.text);
}

TEST(WentRound, SaysWhichWay) {
    EXPECT_EQ(WentRound(TWay::Forward, "THIS"), "From the beginning again: THIS");
    EXPECT_EQ(WentRound(TWay::Backward, "THIS"), "From the end again: THIS");
}

TEST(TypedOffsets, AreToldWhatIsWrong) {
    EXPECT_EQ(NoOffset("1A5C"),
              "'1A5C' is no offset: type a decimal number, or $ and a hexadecimal one");
    EXPECT_EQ(OutsideTheImage("$8000", 0x8000),
              "$8000 is outside the image: offsets are $0000 to $7FFF (32767)");
    EXPECT_EQ(OutsideTheImage("%2", 1), "%2 is outside the image: offsets are $0000 to $0000 (0)");
}

TEST(ContentsTexts, AreTranslated) {
    const TTextTranslator old = SetTextTranslator(
        [](const char *context, const char *text) { return std::string(context) + '/' + text; });
    EXPECT_EQ(FoundMaps({0, 0}), "ContentsTexts/No map found");
    EXPECT_EQ(FoundCells({2, 16}), "ContentsTexts/2 cells, first at $0010");
    EXPECT_EQ(MovedTo(TMapContents::Fuel, TMapKind::WOT, 5),
              "ContentsTexts/TFileMenu/Fuel Maps - WOT is at $0005 now");
    SetTextTranslator(old);
}
} // namespace
