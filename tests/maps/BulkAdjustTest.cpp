// The bulk adjust tool's ranges and arithmetic, and what it does to a grid's texts and colours.
#include "maps/BulkAdjust.h"

#include "model/Numbers.h"
#include "support/FakeMapViews.h"
#include "system/Errors.h"

#include <limits>

#include <gtest/gtest.h>

namespace {
struct TCase {
    const char *name;
    int sign;
    bool percent;
    std::int32_t amount;
    double value;
    double expected;
};
void PrintTo(const TCase &tested, std::ostream *stream) {
    *stream << tested.name;
}

constexpr std::int32_t highestAmount = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t lowestAmount = std::numeric_limits<std::int32_t>::min();

class TAdjustedTest : public testing::TestWithParam<TCase> {};

TEST_P(TAdjustedTest, GivesTheNewValue) {
    const TCase &tested = GetParam();
    EXPECT_EQ(Adjusted(tested.value, {tested.sign, tested.percent, tested.amount}),
              tested.expected);
}
INSTANTIATE_TEST_SUITE_P(
    Cases, TAdjustedTest,
    testing::Values(
        // name, sign, percent, amount, value, expected
        TCase{"units are added", 1, false, 5, 12.5, 17.5},
        TCase{"units are subtracted", -1, false, 5, 12.5, 7.5},
        TCase{"a negative amount subtracts", 1, false, -3, 10, 7},
        TCase{"minus a negative amount adds", -1, false, -3, 10, 13},
        TCase{"units are not rounded", 1, false, 1, 0.996, 1.996},
        TCase{"no limit above", 1, false, 300, 200, 500},
        TCase{"no limit below", -1, false, 300, 200, -100},
        TCase{"the largest amount", 1, false, highestAmount, 1, 2147483648.0},
        TCase{"the least amount negated", -1, false, lowestAmount, 0, 2147483648.0},
        TCase{"the change is rounded, not the value", 1, true, 10, 12.5, 13.5},
        TCase{"tie down to 2", -1, true, 10, 15, 13},
        TCase{"tie to 2 from below", -1, true, 10, 25, 23}, TCase{"tie to 0", 1, true, 50, 1, 1},
        TCase{"tie up to 2", 1, true, 50, 3, 5},
        TCase{"tie of a negative value", 1, true, 50, -1, -1},
        TCase{"tie of a negative value to -2", 1, true, 50, -3, -5},
        TCase{"above the tie", 1, true, 51, 1, 2},
        TCase{"a negative percentage", 1, true, -10, 100, 90},
        TCase{"all of it", -1, true, 100, 77, 0}, TCase{"nothing", 1, true, 0, 12.34, 12.34},
        TCase{"percent of zero", 1, true, 100, 0, 0},
        TCase{"the least amount in percent", -1, true, lowestAmount, 100, 2147483748.0},
        // With 53 bits these would be ties, 0.5 and 3.5: the double is just above or below its
        // text.
        TCase{"just above a tie", 1, true, 125, 0.4, 0.4 + 1},
        TCase{"just below a tie", 1, true, 125, 2.8, 2.8 + 3}));

TEST(TAdjustedErrorTest, AChangeBeyond64BitsIsRefused) {
    EXPECT_THROW(Adjusted(1e19, {1, true, 100}), ERangeError);
    EXPECT_THROW(Adjusted(-1e300, {1, true, 100}), ERangeError);
    EXPECT_EQ(Adjusted(1e19, {1, true, 1}), 1e19 + 1e17);
    EXPECT_EQ(Adjusted(1e300, {1, false, 1}), 1e300);
}

struct TRangeCase {
    const char *name;
    TMapKind map;
    TAdjustRange range;
    TGridPlace grid;
    TCellRange expected;
};
void PrintTo(const TRangeCase &tested, std::ostream *stream) {
    *stream << tested.name;
}

using enum TMapKind;
using enum TAdjustRange;

class TCellsToAdjustTest : public testing::TestWithParam<TRangeCase> {};

TEST_P(TCellsToAdjustTest, AreThoseOfTheRange) {
    const TRangeCase &tested = GetParam();
    const TCellRange cells = CellsToAdjust(tested.map, tested.range, tested.grid);
    EXPECT_EQ(cells, tested.expected)
        << cells.left << " " << cells.top << " " << cells.right << " " << cells.bottom;
}
INSTANTIATE_TEST_SUITE_P(
    Cases, TCellsToAdjustTest,
    testing::Values(
        // name, map, range, {columns, rows, current column, current row}, {left, top, right,
        // bottom}
        TRangeCase{"the body", PT, All, {5, 4, 2, 3}, {1, 1, 4, 3}},
        TRangeCase{"the current row", PT, Row, {5, 4, 2, 3}, {1, 3, 4, 3}},
        TRangeCase{"the current column", PT, Column, {5, 4, 2, 3}, {2, 1, 2, 3}},
        TRangeCase{"the first row", PT, Row, {5, 4, 4, 1}, {1, 1, 4, 1}},
        TRangeCase{"the last column", PT, Column, {5, 4, 4, 1}, {4, 1, 4, 3}},
        TRangeCase{"the row of the engine speeds", PT, Row, {5, 4, 2, 0}, {1, 0, 4, 0}},
        TRangeCase{"the column of the loads", PT, Column, {5, 4, 0, 2}, {0, 1, 0, 3}},
        TRangeCase{"a row although a load is current", PT, Row, {5, 4, 0, 2}, {1, 2, 4, 2}},
        TRangeCase{"a column although a speed is current", PT, Column, {5, 4, 3, 0}, {3, 1, 3, 3}},
        TRangeCase{"the body although the corner is current", PT, All, {5, 4, 0, 0}, {1, 1, 4, 3}},
        TRangeCase{"one column", PT, All, {2, 4, 1, 1}, {1, 1, 1, 3}},
        TRangeCase{"nothing of a grid without a body", PT, All, {1, 1, 0, 0}, {1, 1, 0, 0}},
        TRangeCase{"no row of a grid without a body", PT, Row, {1, 1, 0, 0}, {1, 0, 0, 0}},
        TRangeCase{"no column of a grid without a body", PT, Column, {1, 1, 0, 0}, {0, 1, 0, 0}},
        TRangeCase{"idle", Idle, Row, {5, 2, 2, 1}, {1, 1, 4, 1}},
        TRangeCase{"idle with its header current", Idle, Row, {5, 2, 2, 0}, {1, 1, 4, 1}},
        TRangeCase{"idle whatever the range", Idle, Column, {5, 2, 2, 1}, {1, 1, 4, 1}},
        TRangeCase{"full throttle", WOT, Row, {21, 2, 7, 1}, {1, 1, 20, 1}},
        TRangeCase{"full throttle whatever the range", WOT, All, {21, 2, 7, 0}, {1, 1, 20, 1}},
        TRangeCase{"one row even of a taller grid", WOT, All, {5, 4, 2, 3}, {1, 1, 4, 1}}));

TEST(TRangeForTest, IdleAndFullThrottleHaveNothingButTheirRow) {
    for (const TAdjustRange requested : {All, Row, Column}) {
        EXPECT_EQ(RangeFor(PT, requested), requested);
        EXPECT_EQ(RangeFor(Idle, requested), Row);
        EXPECT_EQ(RangeFor(WOT, requested), Row);
    }
}

class TAdjustCellsTest : public testing::Test {
protected:
    TAdjustCellsTest() {
        grid.SetShape(4, 4);
        for (int row = 0; row < 4; ++row)
            for (int column = 0; column < 4; ++column)
                grid.SetCell(column, row, std::to_string(10 * row + column));
    }
    /// The colours of one row, b for blue, r for red, . for untouched.
    std::string Colors(int row) {
        std::string colors;
        for (int column = 0; column < 4; ++column) {
            const TColor color = grid.FontColor(column, row);
            colors += color == clBlue ? 'b' : color == clRed ? 'r' : '.';
        }
        return colors;
    }
    using TTexts = std::vector<std::string>;

    TFakeMapGrid grid;
};

TEST_F(TAdjustCellsTest, TouchesTheRangeAndNothingElse) {
    AdjustCells(grid, {1, 2, 2, 3}, {1, false, 100}, "##0");
    EXPECT_EQ(grid.Row(0), (TTexts{"0", "1", "2", "3"}));
    EXPECT_EQ(grid.Row(1), (TTexts{"10", "11", "12", "13"}));
    EXPECT_EQ(grid.Row(2), (TTexts{"20", "121", "122", "23"}));
    EXPECT_EQ(grid.Row(3), (TTexts{"30", "131", "132", "33"}));
    EXPECT_EQ(Colors(0) + Colors(1), "........");
    EXPECT_EQ(Colors(2), ".bb.");
    EXPECT_EQ(Colors(3), ".bb.");
}

TEST_F(TAdjustCellsTest, AnEmptyRangeTouchesNothing) {
    AdjustCells(grid, {1, 1, 0, 3}, {1, false, 100}, "##0");
    AdjustCells(grid, {1, 1, 3, 0}, {1, false, 100}, "##0");
    EXPECT_EQ(Colors(1) + Colors(2) + Colors(3), "............");
}

TEST_F(TAdjustCellsTest, ACellThatIsNoNumberTurnsRedAndTheOthersGoOn) {
    grid.SetCell(1, 1, "abc");
    grid.SetCell(2, 1, "");
    grid.SetCell(3, 1, "20%");
    grid.SetCell(2, 2, "nan");
    AdjustCells(grid, {1, 1, 3, 2}, {1, false, 1}, "##0");
    EXPECT_EQ(grid.Row(1), (TTexts{"10", "abc", "", "20%"}));
    EXPECT_EQ(grid.Row(2), (TTexts{"20", "22", "nan", "24"}));
    EXPECT_EQ(Colors(1), ".rrr");
    EXPECT_EQ(Colors(2), ".brb");
}

TEST_F(TAdjustCellsTest, AnEditedCellThatIsNoNumberTurnsRedToo) {
    grid.SetCell(1, 1, "abc");
    grid.SetFontColor(1, 1, clBlue);
    grid.SetFontColor(2, 1, clGreen);
    grid.SetCell(2, 1, "1,5");
    AdjustCells(grid, {1, 1, 3, 1}, {1, false, 1}, "##0");
    EXPECT_EQ(Colors(1), ".rrb");
}

TEST_F(TAdjustCellsTest, AChangeOutOfRangeTurnsRedAndKeepsTheText) {
    grid.SetCell(1, 1, "1e30");
    AdjustCells(grid, {1, 1, 2, 1}, {1, true, 100}, "##0");
    EXPECT_EQ(grid.Row(1), (TTexts{"10", "1e30", "24", "13"}));
    EXPECT_EQ(Colors(1), ".rb.");
}

TEST_F(TAdjustCellsTest, Amount0ReformatsAndMarks) {
    grid.SetCell(1, 1, " 1.005e1 ");
    grid.SetCell(2, 1, "7");
    AdjustCells(grid, {1, 1, 2, 1}, {1, false, 0}, "###0.00");
    EXPECT_EQ(grid.Row(1), (TTexts{"10", "10.05", "7.00", "13"}));
    EXPECT_EQ(Colors(1), ".bb.");
}

TEST_F(TAdjustCellsTest, ARedCellThatWasCorrectedTurnsBlue) {
    grid.SetFontColor(1, 1, clRed);
    AdjustCells(grid, {1, 1, 1, 1}, {1, false, 1}, "##0");
    EXPECT_EQ(Colors(1), ".b..");
}

TEST_F(TAdjustCellsTest, TheDecimalSeparatorRulesBothWays) {
    const std::string old = SetDecimalSeparator(",");
    grid.SetCell(1, 1, "1,5");
    grid.SetCell(2, 1, "1.5");
    AdjustCells(grid, {1, 1, 2, 1}, {1, false, 1}, "###0.00");
    SetDecimalSeparator(old);
    EXPECT_EQ(grid.Row(1), (TTexts{"10", "2,50", "1.5", "13"}));
    EXPECT_EQ(Colors(1), ".br.");
}
} // namespace
