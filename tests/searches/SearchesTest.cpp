#include "filedisplay/Searches.h"

#include "searches/TestCells.h"

#include <limits>
#include <ostream>
#include <string>

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::TestWithParam;
using testing::ValuesIn;

constexpr std::uint8_t operator""_b(unsigned long long byte) {
    return static_cast<std::uint8_t>(byte);
}

/// Whether what was found begins at these places.
MATCHER_P(Tells, places, "") {
    return arg.count == places.size() && (places.empty() || arg.first == places.front());
}

/// Rows of 16 cells: "." out of range, "o" in range and not to be marked, "#" in range and marked.
struct TPicture {
    const char *name;
    const char *cells;
};

std::ostream &operator<<(std::ostream &out, const TPicture &picture) {
    return out << picture.name;
}

const TPicture pictures[] = {
    {"no cells", ""},
    {"one cell", "o"},
    {"two cells", "##"},
    {"the first byte has no predecessor", "o.............."},
    {"lone bytes", "..o...o.o......."},
    {"a run of two", "...##..........."},
    {"a run of five between lone ones", "o.#####.o......."},
    {"columns 15 and 16", "..............##"},
    {"over the row's end: only the successor", "...............o"
                                               "#..............."},
    {"over the row's end, longer", "..............##"
                                   "##.............."},
    {"column 16 alone before a run", "...............o"
                                     "##.............."},
    {"column 1 behind a byte out of range", "................"
                                            "o..............."},
    {"a full row between two lone ends", "...............o"
                                         "################"
                                         "#..............."},
    {"the last row ends early", "...............o"
                                "#.##"},
    {"the last byte of a short row", "................"
                                     "..o"},
    {"over the end of the fourth row", "................................................"
                                       "...............o"
                                       "#..............."},
    {"over the end of the fourth row, last byte alone",
     "................................................"
     "...............o"
     "#"},
};

class PossibleValues : public TestWithParam<TPicture> {
protected:
    /// The cells of the picture, those in range being `in`.
    static TBytes Bytes(std::uint8_t in, std::uint8_t out) {
        TBytes bytes;
        for (const char c : std::string(GetParam().cells))
            bytes.push_back(c == '.' ? out : in);
        return bytes;
    }

    static std::string Shown(const TTestCells &cells, std::uint8_t in, TColor color) {
        std::string shown;
        for (std::size_t i = 0; i < cells.values.size() && cells.values[i] >= 0; ++i) {
            if (cells.colors[i] == color)
                shown += '#';
            else
                shown += cells.values[i] == in ? 'o' : '.';
        }
        return shown;
    }
};

TEST_P(PossibleValues, OfFuelAreMarkedLime) {
    for (const std::uint8_t in : {90_b, 200_b}) {
        for (const std::uint8_t out : {89_b, 201_b}) {
            TTestCells cells(Bytes(in, out));
            const TFound found =
                MarkPossibleValues(cells.Grid(), TSearchParameters().Fuel(), possibleFuelColor);
            EXPECT_EQ(Shown(cells, in, 0x00FF00), GetParam().cells);
            EXPECT_THAT(found, Tells(cells.Marked()));
        }
    }
}

TEST_P(PossibleValues, OfTimingAreMarkedFuchsia) {
    for (const std::uint8_t in : {10_b, 90_b}) {
        for (const std::uint8_t out : {9_b, 91_b}) {
            TTestCells cells(Bytes(in, out), false);
            const TFound found =
                MarkPossibleValues(cells.Grid(), TSearchParameters().Timing(), possibleTimingColor);
            EXPECT_EQ(Shown(cells, in, 0xFF00FF), GetParam().cells);
            EXPECT_THAT(found, Tells(cells.Marked()));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Pictures, PossibleValues, ValuesIn(pictures));

TEST(MarkPossibleValues, LeaveOtherColorsAsTheyAre) {
    TTestCells cells({100, 100, 1, 100});
    cells.colors = {0x1FEFFFF, unmarkedColor, 0x1FEFFFF, 0x008001};
    MarkPossibleValues(cells.Grid(), TSearchParameters().Fuel(), possibleFuelColor);
    EXPECT_THAT(cells.colors, ElementsAre(0x00FF00, 0x00FF00, 0x1FEFFFF, 0x008001));
}

TEST(MarkPossibleValues, TakeTheLimitsByPlainComparison) {
    TSearchParameters parameters;
    parameters.fuelMinimum = -1;
    parameters.fuelMaximum = 5;
    TTestCells low({0, 5, 6, 0, 6});
    MarkPossibleValues(low.Grid(), parameters.Fuel(), possibleFuelColor);
    EXPECT_THAT(low.Marked(), ElementsAre(0U, 1U)); // cells without a byte are in no range

    parameters.fuelMinimum = 0;
    parameters.fuelMaximum = -1;
    TTestCells none({0, 5, 6, 0, 6});
    MarkPossibleValues(none.Grid(), parameters.Fuel(), possibleFuelColor);
    EXPECT_THAT(none.Marked(), IsEmpty());
}

TEST(MarkValue, MarksEveryInstanceOlive) {
    for (const std::uint8_t value : {0_b, 1_b, 254_b, 255_b}) {
        TBytes bytes(100, 7);
        for (const std::size_t position : {0U, 15U, 16U, 64U, 99U})
            bytes[position] = value;
        for (const bool padded : {false, true}) {
            TTestCells cells(bytes, padded);
            const TFound found = MarkValue(cells.Grid(), value);
            EXPECT_THAT(found, Tells(cells.Marked()));
            EXPECT_THAT(cells.Marked(), ElementsAre(0U, 15U, 16U, 64U, 99U));
            EXPECT_EQ(cells.colors[64], 0x008080U);
        }
    }
}

TEST(MarkValue, TellsOfEveryInstanceMarkedBeforeOrNot) {
    TTestCells cells({7, 3, 7, 3, 3});
    for (int time = 0; time < 2; ++time)
        EXPECT_THAT(MarkValue(cells.Grid(), 3), Tells(std::vector<std::size_t>{1, 3, 4}));
    EXPECT_THAT(MarkValue(cells.Grid(), 4), Tells(std::vector<std::size_t>{}));
}

TEST(MarkValue, OfNoByteMarksNothing) {
    for (const std::int32_t value : {-1, 256, 0x107, -249, 65543, 0x7FFFFFFF}) {
        TTestCells cells({7, 0, 255});
        EXPECT_EQ(MarkValue(cells.Grid(), value).count, 0U);
        EXPECT_THAT(cells.Marked(), IsEmpty()) << value;
    }
}

TEST(SplitAddress, TakesUpToFourHexadecimalDigits) {
    for (const std::int32_t address : {0, 1, 0xFF, 0x100, 0x1A5C, 0xFFFF}) {
        const auto split = SplitAddress(address);
        ASSERT_TRUE(split) << address;
        EXPECT_EQ(split->high, address / 256);
        EXPECT_EQ(split->low, address % 256);
    }
}

TEST(SplitAddress, RefusesLongerAndNegativeOnes) {
    for (const std::int32_t address :
         {0x10000, 0x7FFFFFFF, -1, -32768, std::numeric_limits<std::int32_t>::min()})
        EXPECT_FALSE(SplitAddress(address)) << address;
}

struct TPointerCase {
    const char *name;
    TBytes bytes;
    std::int32_t address;
    std::uint8_t mask;
    std::vector<std::size_t> marked;
};

std::ostream &operator<<(std::ostream &out, const TPointerCase &c) {
    return out << c.name;
}

class MarkPointersOf : public TestWithParam<TPointerCase> {};

const TPointerCase pointerCases[] = {
    {"no cells", {}, 0x0A5C, 15, {}},
    {"a single byte", {0x0A}, 0x0A5C, 15, {}},
    {"a plain pointer", {1, 0x0A, 0x5C, 1}, 0x0A5C, 15, {1, 2}},
    {"the default mask compares four bits", {1, 0xFA, 0x5C, 1}, 0x0A5C, 15, {1, 2}},
    {"a full mask compares all", {1, 0xFA, 0x5C, 0x0A, 0x5C}, 0x0A5C, 255, {3, 4}},
    {"the address is not masked", {0x1A, 0x5C, 0x0A, 0x5C}, 0x1A5C, 15, {}},
    {"a mask of 0 and the high byte 0: every byte", {9, 0x5C, 8, 0x5C}, 0x005C, 0, {0, 1, 2, 3}},
    {"a mask of 0 and another high byte: none", {0x0A, 0x5C}, 0x0A5C, 0, {}},
    {"the byte behind a high byte is no new one", {0x0A, 0x0A, 0x5C}, 0x0A5C, 15, {}},
    {"the third of three may be", {0x0A, 0x0A, 0x0A, 0x5C}, 0x0A5C, 15, {2, 3}},
    {"nor is the low byte of a pointer", {0x0A, 0x0A, 0x0A}, 0x0A0A, 15, {0, 1}},
    {"pairs of the same byte", {0x0A, 0x0A, 0x0A, 0x0A}, 0x0A0A, 15, {0, 1, 2, 3}},
    {"two pointers side by side", {0x0A, 0x5C, 0x0A, 0x5C}, 0x0A5C, 15, {0, 1, 2, 3}},
    {"a low byte without a high one", {1, 0x5C, 0x5C}, 0x0A5C, 15, {}},
    {"a high byte at the very end", {1, 2, 0x0A}, 0x0A00, 15, {}},
    {"a cell without a byte is no high byte", {0xFF}, 0x0F00, 15, {}},
};

TEST_P(MarkPointersOf, AnAddress) {
    const TPointerCase &c = GetParam();
    // Every start shows the pair over the ends of rows and of words of 64 cells.
    for (std::size_t before = 0; before < 130; ++before) {
        // 0xF5 fits no high byte of the table, except under a mask of 0.
        if (c.mask == 0 && before != 0)
            break;
        TBytes bytes(before, 0xF5);
        bytes.insert(bytes.end(), c.bytes.begin(), c.bytes.end());
        std::vector<std::size_t> wanted = c.marked;
        for (std::size_t &position : wanted)
            position += before;
        for (const bool padded : {false, true}) {
            TTestCells cells(bytes, padded);
            const TFound found =
                MarkPointers(cells.Grid(), SplitAddress(c.address).value(), c.mask);
            EXPECT_EQ(cells.Marked(), wanted) << before;
            EXPECT_EQ(found.count, wanted.size() / 2);
            if (!wanted.empty()) {
                EXPECT_EQ(found.first, wanted.front());
            }
            for (const std::size_t position : wanted)
                EXPECT_EQ(cells.colors[position], 0x008080U);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Bytes, MarkPointersOf, ValuesIn(pointerCases));

TEST(MarkPointers, TakesEverySecondByteOfALongRun) {
    for (const std::size_t before : {0U, 1U, 63U, 64U}) {
        for (const std::size_t run : {63U, 64U, 65U, 127U, 128U, 129U, 200U}) {
            TBytes bytes(before, 0xF5);
            Append(bytes, run, 0x0A);
            bytes.push_back(0x5C);
            TTestCells cells(bytes);
            MarkPointers(cells.Grid(), {0x0A, 0x5C}, 15);
            // The last byte of an odd run is a high byte; of an even one it was used up as a low
            // one.
            const std::size_t last = before + run - 1;
            EXPECT_EQ(cells.Marked(), run % 2 == 1 ? Positions(last, last + 2) : Positions(0, 0))
                << before << " and " << run;
        }
    }
}

} // namespace
