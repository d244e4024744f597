#include "forms/AligridCursor.h"

#include <ostream>

#include <gmock/gmock.h>

namespace {
struct TCursorCase {
    const char *name;
    TNextCell order;
    TGridCell from;
    std::optional<TGridCell> to;
};

void PrintTo(const TCursorCase &test, std::ostream *out) {
    *out << test.name;
}

// Columns 1 to 3, rows 1 to 2.
constexpr TGridRect body{1, 1, 3, 2};

const TCursorCase cases[] = {
    {"right", nc_rightdown, {1, 1}, TGridCell{2, 1}},
    {"right end goes on below at the left", nc_rightdown, {3, 1}, TGridCell{1, 2}},
    {"right ends at the bottom right", nc_rightdown, {3, 2}, {}},
    {"down", nc_downright, {1, 1}, TGridCell{1, 2}},
    {"bottom goes on to the right at the top", nc_downright, {1, 2}, TGridCell{2, 1}},
    {"down ends at the bottom right", nc_downright, {3, 2}, {}},
    {"left", nc_leftdown, {3, 1}, TGridCell{2, 1}},
    {"left end goes on below at the right", nc_leftdown, {1, 1}, TGridCell{3, 2}},
    {"left ends at the bottom left", nc_leftdown, {1, 2}, {}},
    {"down before left", nc_downleft, {3, 1}, TGridCell{3, 2}},
    {"bottom goes on to the left at the top", nc_downleft, {3, 2}, TGridCell{2, 1}},
    {"down left ends at the bottom left", nc_downleft, {1, 2}, {}},
};

class TNextCellTest : public testing::TestWithParam<TCursorCase> {};

TEST_P(TNextCellTest, Goes) {
    EXPECT_EQ(NextCell(GetParam().order, GetParam().from, body), GetParam().to);
}

INSTANTIATE_TEST_SUITE_P(Orders, TNextCellTest, testing::ValuesIn(cases));

class TOrderTest : public testing::TestWithParam<TNextCell> {};

TEST_P(TOrderTest, VisitsEachCellOnceFromTheFirst) {
    std::optional<TGridCell> cell = FirstCell(GetParam(), body);
    std::vector<std::pair<int, int>> visited;
    for (; cell && visited.size() < 10; cell = NextCell(GetParam(), *cell, body))
        visited.emplace_back(cell->column, cell->row);
    EXPECT_THAT(visited,
                testing::UnorderedElementsAre(std::pair(1, 1), std::pair(2, 1), std::pair(3, 1),
                                              std::pair(1, 2), std::pair(2, 2), std::pair(3, 2)));
}

INSTANTIATE_TEST_SUITE_P(Orders, TOrderTest,
                         testing::Values(nc_rightdown, nc_downright, nc_leftdown, nc_downleft));
} // namespace
