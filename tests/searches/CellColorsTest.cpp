// The searches' way to the colours of the data cells, wherever these are kept.
#include "filedisplay/SearchCells.h"

#include <gtest/gtest.h>

namespace {
TEST(CellColors, StandOneBesideTheOther) {
    std::vector<TColor> colors(33);
    const TCellColors cells(colors);
    ASSERT_EQ(cells.size(), 33U);
    for (std::size_t i = 0; i < cells.size(); ++i)
        EXPECT_EQ(&cells[i], &colors[i]) << i;
}

class TGridColors : public testing::TestWithParam<std::size_t> {};

TEST_P(TGridColors, StandBehindTheHeadersOfTheirRowAndColumn) {
    std::vector<TColor> colors(17 * (GetParam() + 1));
    const TCellColors cells = TCellColors::InGrid(colors);
    ASSERT_EQ(cells.size(), 16 * GetParam());
    for (std::size_t i = 0; i < cells.size(); ++i)
        EXPECT_EQ(&cells[i], &colors[(i / 16 + 1) * 17 + i % 16 + 1]) << i;
}
INSTANTIATE_TEST_SUITE_P(Rows, TGridColors, testing::Values(0, 1, 2, 3));

TEST(CellColors, OfNothingAreNone) {
    EXPECT_EQ(TCellColors().size(), 0U);
    EXPECT_EQ(TCellColors::InGrid({}).size(), 0U);
}
} // namespace
