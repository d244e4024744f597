// The way from mark to mark. Images are little pictures, a letter for each cell: "." is unmarked,
// "f" and "t" are possible fuel and timing values, "s" a searched one, "D" data of a fuel map, each
// cell in another shade.
#include "filedisplay/NextMark.h"

#include <ostream>

#include <gmock/gmock.h>

namespace {
std::vector<TColor> Painted(std::string_view picture) {
    std::vector<TColor> colors;
    for (const char letter : picture) {
        switch (letter) {
        case 'f':
            colors.push_back(possibleFuelColor);
            break;
        case 't':
            colors.push_back(possibleTimingColor);
            break;
        case 's':
            colors.push_back(searchedColor);
            break;
        case 'D':
            colors.push_back(Shaded(fuelMapColor, static_cast<TCellValue>(colors.size() % 256)));
            break;
        default:
            colors.push_back(unmarkedColor);
        }
    }
    return colors;
}

/// Where the way ends: the offset, behind "round " when it went round; "none".
std::string End(const std::optional<TMarkPlace> &place) {
    if (!place)
        return "none";
    return (place->wentRound ? "round " : "") + std::to_string(place->offset);
}

struct TWayCase {
    const char *name;
    const char *picture;
    std::size_t from;
    const char *forward;
    const char *backward;
};

std::ostream &operator<<(std::ostream &out, const TWayCase &item) {
    return out << item.name;
}

class MarkWay : public testing::TestWithParam<TWayCase> {};

TEST_P(MarkWay, LeadsToTheBeginningOfTheNextRun) {
    std::vector<TColor> colors = Painted(GetParam().picture);
    const TSeenColors seen(colors);
    EXPECT_EQ(End(NextMark(seen, GetParam().from, TWay::Forward)), GetParam().forward);
    EXPECT_EQ(End(NextMark(seen, GetParam().from, TWay::Backward)), GetParam().backward);
}

const TWayCase ways[] = {
    {"no cells", "", 0, "none", "none"},
    {"behind the last cell", "ff", 2, "none", "none"},
    {"one unmarked cell", ".", 0, "none", "none"},
    {"no mark", ".....", 2, "none", "none"},
    {"one cell, marked", "f", 0, "round 0", "round 0"},
    {"any mark from an unmarked cell", "f..t..s", 4, "6", "3"},
    {"any mark past the ends", "..ft...", 5, "round 2", "3"},
    {"any mark from before the first", "..ft...", 0, "2", "round 3"},
    {"the same kind alone", "f.tt.f.s.f", 5, "9", "0"},
    {"the same kind past the end", "f.tt.f.s.f", 9, "round 0", "5"},
    {"the same kind past the beginning", "f.tt.f.s.f", 0, "5", "round 9"},
    {"a run is one mark", "fff..ffff.f", 5, "10", "0"},
    {"from within a run", "fff..ffff.f", 7, "10", "5"},
    {"the only run, from its beginning", "..fff..", 2, "round 2", "round 2"},
    {"the only run, from within", "..fff..", 3, "round 2", "2"},
    {"runs side by side are two", "fftt..", 5, "round 0", "2"},
    {"another kind ends a run", "ffsff..", 0, "3", "round 3"},
    {"shades are one mark", "..DDDD..DD", 3, "8", "2"},
    {"a run that fills the image", "DDDDDD", 4, "round 0", "0"},
    {"runs at both ends are two", "ff..ff", 0, "4", "round 4"},
    {"past the end of a row", "...............ff...............f", 15, "32", "round 32"},
};
INSTANTIATE_TEST_SUITE_P(Cases, MarkWay, testing::ValuesIn(ways));

TEST(MarkWays, RowsOfTheTableWithOneNameAreOneKind) {
    // Axis values of a linear map, then of a 2-D map; a map of any values and the start of one.
    std::vector<TColor> colors{Shaded(linearAxisColor, 5),
                               unmarkedColor,
                               Shaded(twoDAxisColor, 7),
                               unmarkedColor,
                               anyMapColor + 2,
                               Shaded(anyMapColor, 9)};
    EXPECT_EQ(End(NextMark(TSeenColors(colors), 0, TWay::Forward)), "2");
    EXPECT_EQ(End(NextMark(TSeenColors(colors), 5, TWay::Backward)), "4");
}

TEST(MarkWays, AColourThatIsNoMarkIsNone) {
    std::vector<TColor> colors{0x123456, possibleFuelColor, 0x123456, unmarkedColor};
    EXPECT_EQ(End(NextMark(TSeenColors(colors), 3, TWay::Backward)), "1");
    EXPECT_EQ(End(NextMark(TSeenColors(colors), 0, TWay::Forward)), "1");
}
} // namespace
