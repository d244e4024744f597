// What each line of the overview strip stands for, and which colours it has.
#include "filedisplay/OverviewLines.h"

#include "filedisplay/MapSearch.h"
#include "searches/TestCells.h"

#include <gmock/gmock.h>

namespace {
using testing::ElementsAre;
using testing::IsEmpty;

constexpr TColor green = 0x008000;
constexpr TColor purple = 0x800080;
constexpr TColor yellow = 0x00FFFF;
constexpr TColor olive = 0x008080;
constexpr TColor blue = 0xFF0000;
constexpr TColor lime = 0x00FF00;
constexpr TColor fuchsia = 0xFF00FF;
const TOverviewLine unmarkedLine;

/// So many rows of unmarked cells but for the given ones.
std::vector<TColor> Rows(std::size_t rows,
                         const std::vector<std::pair<std::size_t, TColor>> &cells) {
    std::vector<TColor> colors(rows * cellsPerRow, unmarkedColor);
    for (const auto &[offset, color] : cells)
        colors.at(offset) = color;
    return colors;
}

std::vector<TOverviewLine> Lines(std::vector<TColor> colors, std::size_t lines) {
    return OverviewLines(TSeenColors(colors), lines);
}

TEST(OverviewLines, AreNoneWithoutALine) {
    EXPECT_THAT(Lines(Rows(4, {}), 0), IsEmpty());
}

TEST(OverviewLines, AreUnmarkedWithoutCells) {
    EXPECT_THAT(OverviewLines({}, 3), ElementsAre(unmarkedLine, unmarkedLine, unmarkedLine));
    EXPECT_THAT(Lines(Rows(5, {}), 2), ElementsAre(unmarkedLine, unmarkedLine));
}

TEST(OverviewLines, HaveOneRowEachWhereThereAreAsMany) {
    EXPECT_THAT(Lines(Rows(3, {{15, searchedColor}, {32, possibleFuelColor}}), 3),
                ElementsAre(TOverviewLine{olive}, unmarkedLine, TOverviewLine{lime}));
}

TEST(OverviewLines, ShareARowWhereThereAreMore) {
    EXPECT_THAT(Lines(Rows(2, {{20, searchedColor}}), 5),
                ElementsAre(unmarkedLine, unmarkedLine, unmarkedLine, TOverviewLine{olive},
                            TOverviewLine{olive}));
}

/// Wherever the one marked cell is, one line shows it and it is the one in its place.
TEST(OverviewLines, LoseNoCell) {
    constexpr std::size_t rows = 37;
    for (const std::size_t lines : {1U, 2U, 5U, 36U, 37U})
        for (std::size_t offset = 0; offset < rows * cellsPerRow; ++offset) {
            const std::vector<TOverviewLine> shown =
                Lines(Rows(rows, {{offset, searchedColor}}), lines);
            std::vector<std::size_t> marked;
            for (std::size_t line = 0; line < lines; ++line)
                if (shown[line] != unmarkedLine)
                    marked.push_back(line);
            ASSERT_EQ(marked.size(), 1U) << offset << " in " << lines;
            EXPECT_NEAR(double(marked[0]), double(offset / cellsPerRow * lines) / rows, 1);
        }
}

struct TShare {
    TColor mark;
    TColor shown;
    bool axis;
};

/// As they stand from left to right.
const TShare shares[] = {
    {Shaded(fuelMapColor, 77), green, false},
    {Shaded(timingMapColor, 77), purple, false},
    {Shaded(anyMapColor, 77), yellow, false},
    {searchedColor, olive, false},
    {axisCountColor, blue, true},
    {Shaded(linearAxisColor, 77), green, true},
    {possibleFuelColor, lime, false},
    {possibleTimingColor, fuchsia, false},
};
constexpr std::size_t mapKinds = 3; ///< of them, the first ones

TEST(OverviewLines, AreSharedByTheKindsOfTheirMarks) {
    for (std::size_t left = 0; left < std::size(shares); ++left)
        for (std::size_t right = left + 1; right < std::size(shares); ++right) {
            const TShare &a = shares[left];
            const TShare &b = shares[right];
            const bool givesWay = left < mapKinds && b.axis;
            const TOverviewLine expected =
                givesWay ? TOverviewLine{a.shown} : TOverviewLine{a.shown, b.shown};
            EXPECT_THAT(Lines(Rows(2, {{3, a.mark}, {20, b.mark}}), 1), ElementsAre(expected));
            EXPECT_THAT(Lines(Rows(2, {{3, b.mark}, {20, a.mark}}), 1), ElementsAre(expected));
        }
}

TEST(OverviewLines, ShowAllKindsAtOnce) {
    std::vector<std::pair<std::size_t, TColor>> cells;
    for (const TShare &share : shares)
        cells.emplace_back(cells.size() * 3, share.mark);
    EXPECT_THAT(Lines(Rows(2, cells), 1),
                ElementsAre(TOverviewLine{green, purple, yellow, olive, lime, fuchsia}));
}

TEST(OverviewLines, ShowEveryMarkAndShade) {
    for (const TMark &mark : marks)
        for (TCellValue value = 0; value <= (mark.shaded ? 255 : 0); ++value) {
            const TColor color = mark.shaded ? Shaded(mark.color, value) : mark.color;
            EXPECT_EQ(Lines(Rows(1, {{7, color}}), 1)[0].size(), 1U) << mark.name << " " << value;
        }
}

TEST(OverviewLines, ShowNoColourThatIsNoMark) {
    EXPECT_THAT(Lines(Rows(1, {{0, 0x123456}, {1, 0x0000FF}}), 1), ElementsAre(unmarkedLine));
}

TEST(OverviewLines, TellFuelMapsFromTimingMaps) {
    TBytes image(64 * cellsPerRow, 0xFF);
    const TBytes fuel = TwoDMap(4, 4, 100);
    const TBytes timing = TwoDMap(4, 4, 40);
    std::copy(fuel.begin(), fuel.end(), image.begin() + 16 * cellsPerRow);
    std::copy(timing.begin(), timing.end(), image.begin() + 40 * cellsPerRow);
    TTestCells cells(image);
    const TSearchParameters parameters;
    TMapCounters counters;
    for (const TMapContents contents : {TMapContents::Fuel, TMapContents::Timing})
        HighlightAllMaps(cells.Grid(), TMapShape::TwoD, contents, parameters, counters);
    ASSERT_EQ(counters.twoD, 2);
    const TOverviewLine fuelLine{green, olive}; // the olive one is the second header
    const TOverviewLine timingLine{purple, olive};
    EXPECT_THAT(Lines(cells.colors, 8),
                ElementsAre(unmarkedLine, unmarkedLine, fuelLine, unmarkedLine, unmarkedLine,
                            timingLine, unmarkedLine, unmarkedLine));
}
} // namespace
