// What is done to the numbers of a selection: tables of cases.
#include "maps/NumberBlock.h"

#include <functional>

#include <gmock/gmock.h>

namespace {
using TNumbers = std::vector<double>;
using TChange = std::function<std::string(TNumberBlock &)>;

TChange Units(int units) {
    return [units](TNumberBlock &block) { return AddUnits(block, units); };
}
TChange By(std::string (*change)(TNumberBlock &, double), double amount) {
    return [=](TNumberBlock &block) { return change(block, amount); };
}

struct TBlockCase {
    const char *name;
    TChange change;
    TNumbers rpm;
    TNumbers load;
    TNumbers values;
    TNumbers expected;
    double unit = 1;
};
void PrintTo(const TBlockCase &tested, std::ostream *stream) {
    *stream << tested.name;
}

class TNumberBlockTest : public testing::TestWithParam<TBlockCase> {};

TEST_P(TNumberBlockTest, GivesTheNewNumbers) {
    const TBlockCase &tested = GetParam();
    TNumberBlock block{tested.rpm, tested.load, tested.values, tested.unit};
    EXPECT_EQ(tested.change(block), "");
    ASSERT_EQ(block.values.size(), tested.expected.size());
    for (std::size_t i = 0; i < block.values.size(); ++i)
        EXPECT_DOUBLE_EQ(block.values[i], tested.expected[i]) << "number " << i;
    EXPECT_EQ(block.rpm, tested.rpm);
    EXPECT_EQ(block.load, tested.load);
}

INSTANTIATE_TEST_SUITE_P(
    EachNumber, TNumberBlockTest,
    testing::Values(
        // name, change, rpm, load, values, expected, unit
        TBlockCase{"a count up", Units(1), {400}, {20}, {254}, {255}},
        TBlockCase{"beyond a byte, which is not limited here", Units(1), {400}, {20}, {255}, {256}},
        TBlockCase{"ten counts down, below 0", Units(-10), {400}, {20}, {3}, {-7}},
        TBlockCase{"a hundredth up", Units(1), {400}, {20}, {0.95}, {0.96}, 0.01},
        TBlockCase{"ten tenths down", Units(-10), {400}, {20}, {30.7}, {29.7}, 0.1},
        TBlockCase{"all of them", Units(1), {400, 800}, {20, 60}, {1, 2, 3, 4}, {2, 3, 4, 5}},
        TBlockCase{"added", By(Add, -0.5), {400, 800}, {20}, {1, 0.25}, {0.5, -0.25}},
        TBlockCase{"set", By(SetTo, 7), {400}, {20, 60}, {1, 2}, {7, 7}},
        TBlockCase{
            "five percent more", By(MultiplyBy, 105), {400, 800}, {20}, {100, -20}, {105, -21}},
        TBlockCase{"all percent", By(MultiplyBy, 100), {400}, {20}, {0.07}, {0.07}},
        TBlockCase{"no percent", By(MultiplyBy, 0), {400}, {20}, {12}, {0}}));

INSTANTIATE_TEST_SUITE_P(
    Lines, TNumberBlockTest,
    testing::Values(
        TBlockCase{"a row with even steps",
                   InterpolateRows,
                   {400, 800, 1200, 1600},
                   {20},
                   {10, 99, 99, 40},
                   {10, 20, 30, 40}},
        TBlockCase{"a row by its engine speeds",
                   InterpolateRows,
                   {400, 800, 1600, 3600},
                   {20},
                   {0, 99, 99, 32},
                   {0, 4, 12, 32}},
        TBlockCase{"each row by itself",
                   InterpolateRows,
                   {0, 100, 400},
                   {20, 60},
                   {0, 99, 4, 10, 99, -10},
                   {0, 1, 4, 10, 5, -10}},
        TBlockCase{"a row without a middle", InterpolateRows, {400, 800}, {20}, {3, 9}, {3, 9}},
        TBlockCase{"one number", InterpolateRows, {400}, {20}, {3}, {3}},
        TBlockCase{"rows, although the loads repeat",
                   InterpolateRows,
                   {0, 1, 2},
                   {20, 20},
                   {0, 9, 2, 2, 9, 0},
                   {0, 1, 2, 2, 1, 0}},
        TBlockCase{"a column by its loads",
                   InterpolateColumns,
                   {400},
                   {0, 10, 40, 100},
                   {50, 99, 99, 150},
                   {50, 60, 90, 150}},
        TBlockCase{"each column by itself",
                   InterpolateColumns,
                   {400, 800},
                   {0, 50, 100},
                   {0, 10, 99, 99, 2, 30},
                   {0, 10, 1, 20, 2, 30}},
        TBlockCase{"a column without a middle", InterpolateColumns, {400}, {0, 50}, {1, 2}, {1, 2}},
        TBlockCase{"between four corners",
                   InterpolateBoth,
                   {0, 100, 400},
                   {0, 10, 50},
                   {0, 99, 40, 99, 99, 99, 100, 99, 140},
                   {0, 10, 40, 20, 30, 60, 100, 110, 140}},
        TBlockCase{"corners that are no plane",
                   InterpolateBoth,
                   {0, 1, 2},
                   {0, 1, 2},
                   {0, 9, 0, 9, 9, 9, 0, 9, 8},
                   {0, 0, 0, 0, 2, 4, 0, 4, 8}},
        TBlockCase{"both of one row", InterpolateBoth, {0, 1, 2}, {0}, {0, 9, 2}, {0, 1, 2}}));

INSTANTIATE_TEST_SUITE_P(Smoothing, TNumberBlockTest,
                         testing::Values(TBlockCase{"the middle of nine",
                                                    Smooth,
                                                    {0, 1, 2},
                                                    {0, 1, 2},
                                                    {1, 2, 3, 4, 90, 6, 7, 8, 5},
                                                    {1, 2, 3, 4, 14, 6, 7, 8, 5}},
                                         TBlockCase{"from the old numbers, not from smoothed ones",
                                                    Smooth,
                                                    {0, 1, 2, 3},
                                                    {0, 1, 2},
                                                    {0, 0, 0, 0, 0, 9, 18, 0, 0, 0, 0, 0},
                                                    {0, 0, 0, 0, 0, 3, 3, 0, 0, 0, 0, 0}},
                                         TBlockCase{"whatever the axes are",
                                                    Smooth,
                                                    {5, 5, 5},
                                                    {7, 7, 7},
                                                    {9, 9, 9, 9, 0, 9, 9, 9, 9},
                                                    {9, 9, 9, 9, 8, 9, 9, 9, 9}},
                                         TBlockCase{"two rows have no middle",
                                                    Smooth,
                                                    {0, 1, 2},
                                                    {0, 1},
                                                    {1, 2, 3, 4, 5, 7},
                                                    {1, 2, 3, 4, 5, 7}},
                                         TBlockCase{"two columns neither",
                                                    Smooth,
                                                    {0, 1},
                                                    {0, 1, 2},
                                                    {1, 2, 3, 4, 5, 7},
                                                    {1, 2, 3, 4, 5, 7}},
                                         TBlockCase{"one number", Smooth, {0}, {0}, {3}, {3}}));

struct TAxisCase {
    const char *name;
    TChange change;
    TNumbers rpm;
    TNumbers load;
    const char *expected;
};
void PrintTo(const TAxisCase &tested, std::ostream *stream) {
    *stream << tested.name;
}

class TAxisProblemTest : public testing::TestWithParam<TAxisCase> {};

TEST_P(TAxisProblemTest, LeavesTheNumbersAlone) {
    const TAxisCase &tested = GetParam();
    TNumberBlock block{tested.rpm, tested.load, {}, 1};
    block.values.resize(tested.rpm.size() * tested.load.size(), 3);
    block.values.front() = 5;
    const TNumberBlock before = block;
    EXPECT_EQ(tested.change(block), tested.expected);
    EXPECT_EQ(block, before);
}

constexpr auto rpmProblem = "Nothing is changed: the engine speeds of the selection do not rise "
                            "from cell to cell";
constexpr auto loadProblem = "Nothing is changed: the loads of the selection do not rise from cell "
                             "to cell";
INSTANTIATE_TEST_SUITE_P(
    Axes, TAxisProblemTest,
    testing::Values(
        TAxisCase{"all engine speeds the same", InterpolateRows, {9, 9, 9}, {1, 2}, rpmProblem},
        TAxisCase{"two that repeat", InterpolateRows, {1, 5, 5, 9}, {1, 2}, rpmProblem},
        TAxisCase{"one that falls", InterpolateRows, {1, 5, 4, 9}, {1, 2}, rpmProblem},
        TAxisCase{"loads that repeat", InterpolateColumns, {1, 2}, {0, 50, 50}, loadProblem},
        TAxisCase{"both, by the engine speeds", InterpolateBoth, {1, 1}, {0, 50}, rpmProblem},
        TAxisCase{"both, by the loads", InterpolateBoth, {1, 2, 3}, {0, 50, 50}, loadProblem}));

TEST(UnitOfAPicture, IsItsLastDigit) {
    EXPECT_EQ(UnitOf("##0"), 1);
    EXPECT_EQ(UnitOf("###0.0"), 0.1);
    EXPECT_EQ(UnitOf("###0.00"), 0.01);
}
} // namespace
