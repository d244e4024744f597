// Tables on the clipboard: what is copied of a grid, what of a pasted text is entered where, and
// the one problem that stops all of it.
#include "maps/CellTable.h"

#include "model/Numbers.h"
#include "support/FakeMapViews.h"

#include <random>

#include <gmock/gmock.h>

namespace {
using testing::ElementsAre;

/// 4 x 3 body cells, 11 to 43: column, then row.
TFakeMapGrid SmallMap() {
    TFakeMapGrid grid;
    grid.SetShape(5, 4);
    const char *const rpm[] = {"2400", "4800", "7200", "9600"};
    const char *const load[] = {"20%", "60%", "100%"};
    for (int column = 1; column <= 4; ++column)
        grid.SetCell(column, 0, rpm[column - 1]);
    for (int row = 1; row <= 3; ++row)
        grid.SetCell(0, row, load[row - 1]);
    for (int column = 1; column <= 4; ++column)
        for (int row = 1; row <= 3; ++row)
            grid.SetCell(column, row, std::to_string(10 * column + row));
    return grid;
}

struct TFieldsCase {
    const char *name;
    std::string text;
    TTextTable expected;
};
void PrintTo(const TFieldsCase &tested, std::ostream *stream) {
    *stream << tested.name;
}
class TTableOfTest : public testing::TestWithParam<TFieldsCase> {};

TEST_P(TTableOfTest, PartsRowsAndFields) {
    EXPECT_EQ(TableOf(GetParam().text), GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(
    Texts, TTableOfTest,
    testing::Values(TFieldsCase{"nothing", "", {}}, TFieldsCase{"one field", "5", {{"5"}}},
                    TFieldsCase{"a line feed ends a row", "5\n6", {{"5"}, {"6"}}},
                    TFieldsCase{"so does a return", "5\r6", {{"5"}, {"6"}}},
                    TFieldsCase{"and both together", "5\r\n6", {{"5"}, {"6"}}},
                    TFieldsCase{"the other way round they are two", "5\n\r6", {{"5"}, {""}, {"6"}}},
                    TFieldsCase{"an empty last line is none", "5\r\n6\r\n", {{"5"}, {"6"}}},
                    TFieldsCase{"another one before it counts", "5\n\n", {{"5"}, {""}}},
                    TFieldsCase{"an empty line", "\n", {{""}}},
                    TFieldsCase{"tabs part fields", "1\t2\n3\t4", {{"1", "2"}, {"3", "4"}}},
                    TFieldsCase{"empty fields count", "\t1\t\n", {{"", "1", ""}}},
                    TFieldsCase{"rows of several lengths", "1\t2\n3", {{"1", "2"}, {"3"}}},
                    TFieldsCase{"blanks stay", " 1 \t 2", {{" 1 ", " 2"}}}));

struct TCopyCase {
    const char *name;
    TCellRange range;
    bool withHeaders;
    std::string expected;
};
void PrintTo(const TCopyCase &tested, std::ostream *stream) {
    *stream << tested.name;
}
class TTableTextTest : public testing::TestWithParam<TCopyCase> {};

TEST_P(TTableTextTest, HasTheCellsAsShown) {
    EXPECT_EQ(TableText(SmallMap(), GetParam().range, GetParam().withHeaders), GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(
    Ranges, TTableTextTest,
    testing::Values(TCopyCase{"one cell", {2, 1, 2, 1}, false, "21"},
                    TCopyCase{"a row", {1, 3, 3, 3}, false, "13\t23\t33"},
                    TCopyCase{"a column", {4, 1, 4, 3}, false, "41\n42\n43"},
                    TCopyCase{"a rectangle", {2, 2, 3, 3}, false, "22\t32\n23\t33"},
                    TCopyCase{"headers of the grid", {0, 0, 1, 1}, false, "\t2400\n20%\t11"},
                    TCopyCase{"one cell with headers", {2, 1, 2, 1}, true, "\t4800\n20%\t21"},
                    TCopyCase{"a rectangle with headers",
                              {3, 2, 4, 3},
                              true,
                              "\t7200\t9600\n60%\t32\t42\n100%\t33\t43"}));

TEST(TableTextOfEmptyCells, KeepsTheirRows) {
    TFakeMapGrid grid = SmallMap();
    grid.SetCell(1, 1, "");
    EXPECT_EQ(TableText(grid, {1, 1, 1, 2}, false), "\n12");
}

using TEntries = std::vector<TCellEntry>;

struct TPasteCase {
    const char *name;
    std::string text;
    int column;
    int row;
    TEntries expected;
};
void PrintTo(const TPasteCase &tested, std::ostream *stream) {
    *stream << tested.name;
}
class TPastingTest : public testing::TestWithParam<TPasteCase> {};

TEST_P(TPastingTest, EntersTheNumbers) {
    const TPasting pasting =
        PastingOf(GetParam().text, SmallMap(), GetParam().column, GetParam().row);
    EXPECT_EQ(pasting.problem, "");
    EXPECT_EQ(pasting.entries, GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(
    Tables, TPastingTest,
    testing::Values(
        TPasteCase{"one number", "7", 2, 3, {{2, 3, "7"}}},
        TPasteCase{"as it was typed", " 0.9921875 ", 1, 1, {{1, 1, " 0.9921875 "}}},
        TPasteCase{"a rectangle",
                   "1\t2\r\n3\t4\r\n",
                   3,
                   2,
                   {{3, 2, "1"}, {4, 2, "2"}, {3, 3, "3"}, {4, 3, "4"}}},
        TPasteCase{
            "with both headers", "\t7200\t9600\n60%\t1\t2", 3, 2, {{3, 2, "1"}, {4, 2, "2"}}},
        TPasteCase{"headers in another writing",
                   "\t7200.0\n60\t1\n1e2%\t2",
                   3,
                   2,
                   {{3, 2, "1"}, {3, 3, "2"}}},
        TPasteCase{"with the RPM header", "4800\t7200\n1\t2", 2, 1, {{2, 1, "1"}, {3, 1, "2"}}},
        TPasteCase{"with the load header", "20%\t1\n60%\t2", 4, 1, {{4, 1, "1"}, {4, 2, "2"}}},
        TPasteCase{"loads without their sign are numbers",
                   "20\t1\n60\t2",
                   1,
                   1,
                   {{1, 1, "20"}, {2, 1, "1"}, {1, 2, "60"}, {2, 2, "2"}}},
        TPasteCase{"the RPM header alone is numbers",
                   "2400\t4800",
                   1,
                   1,
                   {{1, 1, "2400"}, {2, 1, "4800"}}},
        TPasteCase{
            "RPM of other cells are numbers", "2400\n5", 2, 1, {{2, 1, "2400"}, {2, 2, "5"}}},
        TPasteCase{
            "the whole map",
            "\t2400\t4800\t7200\t9600\n20%\t1\t2\t3\t4\n60%\t5\t6\t7\t8\n100%\t9\t10\t11\t12\n",
            1,
            1,
            {{1, 1, "1"},
             {2, 1, "2"},
             {3, 1, "3"},
             {4, 1, "4"},
             {1, 2, "5"},
             {2, 2, "6"},
             {3, 2, "7"},
             {4, 2, "8"},
             {1, 3, "9"},
             {2, 3, "10"},
             {3, 3, "11"},
             {4, 3, "12"}}}));

TEST(PastingOfLowRPM, TakesNumbersThatABytesMayShowForNumbers) {
    TFakeMapGrid grid = SmallMap();
    grid.SetCell(1, 0, "40");
    grid.SetCell(2, 0, "255");
    EXPECT_EQ(PastingOf("40\t255\n1\t2", grid, 1, 1).entries,
              (TEntries{{1, 1, "40"}, {2, 1, "255"}, {1, 2, "1"}, {2, 2, "2"}}));
    grid.SetCell(2, 0, "280");
    EXPECT_EQ(PastingOf("40\t280\n1\t2", grid, 1, 1).entries, (TEntries{{1, 1, "1"}, {2, 1, "2"}}));
}

struct TProblemCase {
    const char *name;
    std::string text;
    int column;
    int row;
    std::string expected;
};
void PrintTo(const TProblemCase &tested, std::ostream *stream) {
    *stream << tested.name;
}
class TPasteProblemTest : public testing::TestWithParam<TProblemCase> {};

TEST_P(TPasteProblemTest, NamesRowColumnAndText) {
    const TPasting pasting =
        PastingOf(GetParam().text, SmallMap(), GetParam().column, GetParam().row);
    EXPECT_EQ(pasting.problem, GetParam().expected);
    EXPECT_THAT(pasting.entries, ElementsAre());
}
INSTANTIATE_TEST_SUITE_P(
    Tables, TPasteProblemTest,
    testing::Values(
        TProblemCase{"nothing", "", 1, 1, "There is no text on the clipboard"},
        TProblemCase{"a word", "1\t2\n3\tx", 1, 1,
                     "Row 2, column 2 of what is pasted: 'x' is no number"},
        TProblemCase{"an empty field", "1\n\n2", 1, 1,
                     "Row 2, column 1 of what is pasted: '' is no number"},
        TProblemCase{"a missing field", "1\t2\n3", 1, 1,
                     "Row 2, column 2 of what is pasted: '' is no number"},
        TProblemCase{"a foreign separator", "0,5", 1, 1,
                     "Row 1, column 1 of what is pasted: '0,5' is no number"},
        TProblemCase{"a quoted number", "\"5\"", 1, 1,
                     "Row 1, column 1 of what is pasted: '\"5\"' is no number"},
        TProblemCase{"a percentage among the numbers", "1\t20%", 1, 1,
                     "Row 1, column 2 of what is pasted: '20%' is no number"},
        TProblemCase{"too wide", "1\t2\n3\t4", 4, 1,
                     "Row 1, column 2 of what is pasted: '2' lies outside the map"},
        TProblemCase{"too high", "1\n2\n3", 1, 2,
                     "Row 3, column 1 of what is pasted: '3' lies outside the map"},
        TProblemCase{"a word before what is outside", "x\t2", 4, 1,
                     "Row 1, column 1 of what is pasted: 'x' is no number"},
        TProblemCase{"headers of other cells", "\t2400\n20%\t5", 2, 1,
                     "Row 1, column 2 of what is pasted: '2400' is not the header of the map "
                     "there, 4800"},
        TProblemCase{"loads of other cells", "\t4800\n20%\t5", 2, 2,
                     "Row 2, column 1 of what is pasted: '20%' is not the header of the map "
                     "there, 60%"},
        TProblemCase{"headers beyond the map", "\t9600\t9999\n20%\t5\t6", 4, 1,
                     "Row 1, column 3 of what is pasted: '9999' lies outside the map"},
        TProblemCase{"an empty first field and no headers", "\t5\n6\t7", 1, 1,
                     "Row 1, column 2 of what is pasted: '5' is not the header of the map there, "
                     "2400"},
        TProblemCase{"a long text is cut", std::string(50, 'x'), 1, 1,
                     "Row 1, column 1 of what is pasted: '" + std::string(40, 'x') +
                         "' is no number"}));

TEST(PastingOfCommas, FollowsTheSeparatorOfTheProgram) {
    const std::string old = SetDecimalSeparator(",");
    EXPECT_EQ(PastingOf("0,5", SmallMap(), 1, 1).entries, (TEntries{{1, 1, "0,5"}}));
    EXPECT_EQ(PastingOf("0.5", SmallMap(), 1, 1).problem,
              "Row 1, column 1 of what is pasted: '0.5' is no number");
    SetDecimalSeparator(old);
}

/// A map of any size with any bytes, and axes as they come in images.
TFakeMapGrid AnyMap(std::mt19937 &random) {
    const auto pick = [&](int count) {
        return static_cast<int>(random() % static_cast<unsigned>(count));
    };
    TFakeMapGrid grid;
    grid.SetShape(2 + pick(31), 2 + pick(20));
    int rpm = 40 * pick(10);
    for (int column = 1; column < grid.ColCount(); ++column)
        grid.SetCell(column, 0, std::to_string(rpm += 40 * pick(9)));
    int load = 0;
    for (int row = 1; row < grid.RowCount(); ++row)
        grid.SetCell(0, row, std::to_string(load += pick(7)) + "%");
    const bool converted = pick(2) == 1;
    for (int row = 1; row < grid.RowCount(); ++row)
        for (int column = 1; column < grid.ColCount(); ++column) {
            const int byte = pick(256);
            grid.SetCell(column, row,
                         converted ? FormatReal("###0.00", byte / 128.0) : FormatReal("##0", byte));
        }
    return grid;
}

TEST(PastingOfACopy, EntersWhatIsThere) {
    std::mt19937 random(7);
    for (int round = 0; round < 600; ++round) {
        const TFakeMapGrid grid = AnyMap(random);
        const auto between = [&](int least, int most) {
            return least + static_cast<int>(random() % static_cast<unsigned>(most - least + 1));
        };
        TCellRange range{};
        range.left = between(1, grid.ColCount() - 1);
        range.right = between(range.left, grid.ColCount() - 1);
        range.top = between(1, grid.RowCount() - 1);
        range.bottom = between(range.top, grid.RowCount() - 1);
        const bool withHeaders = random() % 2 == 0;
        const TPasting pasting =
            PastingOf(TableText(grid, range, withHeaders), grid, range.left, range.top);
        ASSERT_EQ(pasting.problem, "") << round;
        TEntries expected;
        for (int row = range.top; row <= range.bottom; ++row)
            for (int column = range.left; column <= range.right; ++column)
                expected.push_back({column, row, grid.Cell(column, row)});
        ASSERT_EQ(pasting.entries, expected) << round;
    }
}
} // namespace
