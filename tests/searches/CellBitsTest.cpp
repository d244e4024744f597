#include "filedisplay/CellBits.h"

#include <random>

#include <gmock/gmock.h>

namespace {

using testing::TestWithParam;
using testing::Values;

std::vector<TCellValue> RandomValues(std::size_t count, unsigned seed, unsigned kinds) {
    std::mt19937 random(seed);
    std::vector<TCellValue> values(count);
    for (TCellValue &value : values)
        value = static_cast<TCellValue>(random() % kinds);
    return values;
}

class CellBits : public TestWithParam<std::size_t> {};

TEST_P(CellBits, HaveOneBitForEachCell) {
    const std::vector<TCellValue> values = RandomValues(GetParam(), 1, 3);
    const std::span<const TCellValue> cells(values);
    for (std::size_t i = 0; i < GetParam() + 130; ++i) {
        const TCellBits bits = BitsOf(cells, i / 64, [](TCellValue value) { return value == 2; });
        EXPECT_EQ((bits >> i % 64 & 1) != 0, i < values.size() && values[i] == 2) << i;
    }
}

TEST_P(CellBits, ColorTheCellsOfTheirOwnWord) {
    const std::vector<TCellValue> values = RandomValues(GetParam(), 2, 2);
    for (std::size_t word = 0; word * 64 < GetParam(); ++word) {
        std::vector<TColor> colors(GetParam(), 5);
        MarkBits(colors, word,
                 BitsOf(std::span<const TCellValue>(values), word,
                        [](TCellValue value) { return value == 1; }),
                 0x1FEFFFF);
        for (std::size_t i = 0; i < colors.size(); ++i)
            EXPECT_EQ(colors[i], i / 64 == word && values[i] == 1 ? 0x1FEFFFFU : 5U) << i;
    }
}

TEST_P(CellBits, TellWhereARunOfBytesEnds) {
    for (const unsigned kinds : {2U, 20U, 2000U}) {
        const std::vector<TCellValue> values = RandomValues(GetParam(), kinds, kinds);
        const TRuns runs(values, TByteRange(1, 255));
        std::size_t end = values.size() + TRuns::margin;
        for (std::size_t i = end; i-- > 0;) {
            if (i >= values.size() || values[i] < 1 || values[i] > 255)
                end = i;
            ASSERT_EQ(runs.EndOfRun(i), end) << "position " << i << " of " << values.size();
        }
    }
}

TEST_P(CellBits, TellHowFarARunGoesOnFromEachCell) {
    for (const unsigned kinds : {1U, 2U, 20U, 2000U}) {
        const std::vector<TCellValue> values = RandomValues(GetParam(), kinds, kinds);
        const TRuns runs(values, TByteRange(kinds == 1 ? 0 : 1, 255));
        for (std::size_t word = 0; word * 64 <= values.size(); ++word) {
            bool any = false;
            for (std::size_t i = 0; i < 64; ++i) {
                const std::size_t length = runs.EndOfRun(word * 64 + i) - (word * 64 + i);
                EXPECT_EQ(runs.LengthsIn(word)[i], length) << "cell " << i << " of word " << word;
                any = any || length > 0;
            }
            EXPECT_EQ(runs.AnyIn(word), any) << "word " << word;
        }
    }
}

TEST(CellBits, TellNoMoreThanThatARunIsLong) {
    const std::vector<TCellValue> values(0x20000, 7);
    const TRuns runs(values, TByteRange(7, 7));
    EXPECT_GE(runs.LengthsIn(0)[0], TRuns::maxLength);
    EXPECT_EQ(runs.LengthsIn(0x7FF)[62], 2U);
    const std::size_t word = (values.size() - TRuns::maxLength) / 64;
    EXPECT_EQ(runs.LengthsIn(word)[0], TRuns::maxLength);
    EXPECT_EQ(runs.LengthsIn(word)[1], TRuns::maxLength - 1);
}

INSTANTIATE_TEST_SUITE_P(Sizes, CellBits,
                         Values(0U, 1U, 15U, 16U, 17U, 63U, 64U, 65U, 127U, 128U, 129U, 1000U));

} // namespace
