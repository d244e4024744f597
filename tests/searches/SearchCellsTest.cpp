#include "filedisplay/SearchCells.h"

#include "filedisplay/MapStarts.h"
#include "searches/TestCells.h"

#include <limits>
#include <ostream>
#include <random>
#include <string>

#include <gmock/gmock.h>

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::TestWithParam;
using testing::ValuesIn;

constexpr std::int32_t highest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t lowest = std::numeric_limits<std::int32_t>::min();

TEST(SearchParameters, StartAsTheContentsViewShowsThem) {
    const TSearchParameters parameters;
    EXPECT_EQ(parameters.fuelMinimum, 90);
    EXPECT_EQ(parameters.fuelMaximum, 200);
    EXPECT_EQ(parameters.timingMinimum, 10);
    EXPECT_EQ(parameters.timingMaximum, 90);
    EXPECT_EQ(parameters.rpmLocation, -1);
    EXPECT_EQ(parameters.loadLocation, -1);
    EXPECT_EQ(parameters.pointerMask, 15);
}

TEST(HeaderAddress, TakesThreeDigitsOfTheRow) {
    const struct {
        std::size_t offset;
        std::int32_t address;
    } cases[] = {{0, 0},
                 {0x1A5C, 0x1A5C},
                 {0xFFFF, 0xFFFF},
                 {0x10000, 0x1000},
                 {0x1000F, 0x100F},
                 {0x1A5BC, 0x1A5C},
                 {0xFFFFF, 0xFFFF}};
    for (const auto &item : cases)
        EXPECT_EQ(HeaderAddress(item.offset), item.address) << std::hex << item.offset;
}

struct TRangeCase {
    const char *name;
    std::int32_t minimum;
    std::int32_t maximum;
    int first; ///< the bytes in range; first > last: none
    int last;
};

std::ostream &operator<<(std::ostream &out, const TRangeCase &c) {
    return out << c.name;
}

class CellsInRange : public TestWithParam<TRangeCase> {};

const TRangeCase rangeCases[] = {
    {"fuel", 90, 200, 90, 200},
    {"one byte", 7, 7, 7, 7},
    {"every byte", 0, 255, 0, 255},
    {"unset minimum", -1, 10, 0, 10},
    {"very low minimum", lowest, 10, 0, 10},
    {"unset maximum", 0, -1, 1, 0},
    {"both unset", -1, -1, 1, 0},
    {"crossed", 10, 9, 1, 0},
    {"huge maximum", 250, highest, 250, 255},
    {"byte 0 only", -1, 0, 0, 0},
    {"beyond the bytes", 256, highest, 1, 0},
    {"the widest", lowest, highest, 0, 255},
    {"widest crossed", highest, lowest, 1, 0},
};

TEST_P(CellsInRange, AreTheBytesBetweenTheLimits) {
    const TRangeCase &c = GetParam();
    TTestCells cells(TBytes(257));
    for (std::size_t i = 0; i < cells.values.size(); ++i)
        cells.values[i] = i < 256 ? static_cast<TCellValue>(i) : TCellValue{-1};
    const TCellsInRange inRange(cells.Grid(), {c.minimum, c.maximum});
    for (std::size_t i = 0; i < cells.values.size(); ++i) {
        const int value = cells.values[i];
        EXPECT_EQ(inRange.All(i, i + 1), value >= 0 && c.first <= value && value <= c.last)
            << value;
    }
}

INSTANTIATE_TEST_SUITE_P(Limits, CellsInRange, ValuesIn(rangeCases));

TEST(CellsInRange, AreToldOfEachRunOfCells) {
    std::mt19937 random(1);
    for (const std::size_t size : {0U, 1U, 15U, 16U, 17U, 63U, 64U, 65U, 127U, 128U, 129U, 200U}) {
        for (const unsigned kinds : {1U, 2U, 20U, 200U}) {
            TBytes bytes(size);
            for (std::uint8_t &byte : bytes)
                byte = static_cast<std::uint8_t>(random() % kinds);
            TTestCells cells(bytes, false);
            const TCellsInRange inRange(cells.Grid(), {kinds == 1 ? 0 : 1, 255});
            for (std::size_t first = 0; first <= size; ++first) {
                bool all = true;
                for (std::size_t end = first; end <= size + 2; ++end) {
                    ASSERT_EQ(inRange.All(first, end), all && end <= size)
                        << first << " to " << end << " of " << size;
                    all = all && end < size && (kinds == 1 || bytes[end] != 0);
                }
            }
        }
    }
}

struct TShadeCase {
    const char *name;
    TColor color;
    TCellValue value;
    TColor wanted;
};

std::ostream &operator<<(std::ostream &out, const TShadeCase &c) {
    return out << c.name;
}

class Shade : public TestWithParam<TShadeCase> {};

const TShadeCase shadeCases[] = {
    {"fuel data: blue", 0x008000, 0x12, 0x128000},
    {"linear axis: blue is below red", 0x008001, 0x12, 0x128001},
    {"linear axis of 0 stays exact", 0x008001, 0, 0x008001},
    {"2-D axis", 0x008002, 0xFF, 0xFF8002},
    {"timing data: green", 0x800080, 0x12, 0x801280},
    {"timing data: highest byte", 0x800080, 0xFF, 0x80FF80},
    {"white carries into the top byte", 0xFFFFFF, 1, 0x100FFFF},
    {"white and the highest byte", 0xFFFFFF, 0xFF, 0x1FEFFFF},
    {"white and 0", 0xFFFFFF, 0, 0xFFFFFF},
    {"black: blue wins a triple tie", 0x000000, 5, 0x050000},
    {"blue and red tie", 0x10FF10, 5, 0x15FF10},
    {"green and red tie", 0xFF1010, 5, 0xFF1510},
    {"green carries into blue", 0xF0E0FF, 0x30, 0xF110FF},
    {"red", 0xFF8001, 5, 0xFF8006},
    {"red below green that is above blue", 0x40FF01, 5, 0x40FF06},
    {"red carries into green", 0xFFFFF0, 0x20, 0x1000010},
    {"lime: blue and red tie", 0x00FF00, 1, 0x01FF00},
    {"the sum wraps at 32 bits", 0xFFFFFFFF, 1, 0x0000FFFF},
};

TEST_P(Shade, AddsTheByteToTheSmallestChannel) {
    const TShadeCase &c = GetParam();
    EXPECT_EQ(Shaded(c.color, c.value), c.wanted);
}

INSTANTIATE_TEST_SUITE_P(Colors, Shade, ValuesIn(shadeCases));

TEST(MarkRun, ShadesEachCellOfARunWithItsOwnByte) {
    TTestCells cells({1, 2, 3, 4, 5});
    MarkRun(cells.Grid(), 1, 4, 0x008000);
    cells.colors.resize(5);
    EXPECT_THAT(cells.colors,
                ElementsAre(unmarkedColor, 0x028000, 0x038000, 0x048000, unmarkedColor));
}

TEST(MarkRun, OfNoCellsMarksNothing) {
    TTestCells cells({1, 2, 3});
    MarkRun(cells.Grid(), 1, 1, 0x008000);
    EXPECT_TRUE(cells.Marked().empty());
}

TEST(MarkRun, ShadesAsOneCellAfterAnotherWould) {
    for (const TColor color : {0x008000U, 0x800080U, 0xFFFFFFU, 0x808000U, 0x8001U, 0x010203U}) {
        TTestCells cells({0, 1, 127, 128, 255});
        MarkRun(cells.Grid(), 0, 5, color);
        for (std::size_t i = 0; i < 5; ++i)
            EXPECT_EQ(cells.colors[i], Shaded(color, cells.values[i]));
    }
}

TEST(ClearAllMarkers, UnmarksEveryCellAndZeroesBothCounters) {
    TTestCells cells({1, 2, 3, 4});
    cells.colors = {0, 0xFFFFFF, 0x1FEFFFF, unmarkedColor};
    TMapCounters counters{3, 4};
    ClearAllMarkers(cells.Grid(), counters);
    EXPECT_THAT(cells.colors, Each(0x80000005U));
    EXPECT_EQ(counters.linear, 0);
    EXPECT_EQ(counters.twoD, 0);
}

TEST(SearchGrid, AnswersMinusOneBehindTheLastCell) {
    const std::vector<TCellValue> values(33, 7);
    const TSearchGrid grid{values, {}};
    EXPECT_EQ(grid.At(32), 7);
    EXPECT_EQ(grid.At(33), -1);
    EXPECT_EQ(grid.At(std::numeric_limits<std::size_t>::max()), -1);
}

} // namespace
