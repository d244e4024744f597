// Where two byte buffers differ, against a plain loop.
#include "changes/ByteRuns.h"

#include <random>
#include <utility>

#include <gmock/gmock.h>

namespace {
using TBytes = std::vector<std::uint8_t>;
using testing::ElementsAre;
using testing::IsEmpty;

/// Every differing byte by itself.
std::vector<std::size_t> Plain(const TBytes &before, const TBytes &after) {
    std::vector<std::size_t> offsets;
    for (std::size_t i = 0; i < before.size() && i < after.size(); ++i)
        if (before[i] != after[i])
            offsets.push_back(i);
    return offsets;
}

std::vector<std::size_t> Spread(const std::vector<TByteRun> &runs) {
    std::vector<std::size_t> offsets;
    for (const TByteRun &run : runs)
        for (std::size_t i = 0; i < run.length; ++i)
            offsets.push_back(run.offset + i);
    return offsets;
}

TEST(DifferingRuns, OfEqualBuffersAreNone) {
    EXPECT_THAT(DifferingRuns({}, {}), IsEmpty());
    const TBytes bytes(10000, 7);
    EXPECT_THAT(DifferingRuns(bytes, bytes), IsEmpty());
}

TEST(DifferingRuns, AreAsLongAsTheyCanBe) {
    const TBytes before(8);
    EXPECT_THAT(DifferingRuns(before, TBytes{1, 0, 0, 2, 3, 4, 0, 5}),
                ElementsAre(TByteRun{0, 1}, TByteRun{3, 3}, TByteRun{7, 1}));
}

TEST(DifferingRuns, GoOnOverTheBlocksThatAreComparedAtOnce) {
    const TBytes before(3 * 4096);
    TBytes after = before;
    std::fill(after.begin() + 4000, after.begin() + 8200, 1);
    EXPECT_THAT(DifferingRuns(before, after), ElementsAre(TByteRun{4000, 4200}));
    EXPECT_EQ(BytesOf(DifferingRuns(before, after)), 4200U);
}

TEST(DifferingRuns, OfBuffersOfTwoLengthsAreThoseOfTheCommonPart) {
    EXPECT_THAT(DifferingRuns(TBytes{1, 2, 3}, TBytes{1, 9}), ElementsAre(TByteRun{1, 1}));
    EXPECT_THAT(DifferingRuns(TBytes{1}, TBytes{1, 9}), IsEmpty());
}

TEST(DifferingRuns, OfRandomPairsAreThoseOfAPlainLoop) {
    std::mt19937 random(3);
    for (int pair = 0; pair < 10000; ++pair) {
        TBytes before(random() % 300);
        for (std::uint8_t &byte : before)
            byte = static_cast<std::uint8_t>(random() % 3);
        TBytes after = before;
        after.resize(random() % 8 == 0 ? random() % 300 : before.size());
        for (auto change = random() % 20; change > 0 && !after.empty(); --change)
            after[random() % after.size()] = static_cast<std::uint8_t>(random() % 3);
        const std::vector<TByteRun> runs = DifferingRuns(before, after);
        ASSERT_EQ(Spread(runs), Plain(before, after)) << pair;
        for (std::size_t i = 1; i < runs.size(); ++i)
            ASSERT_LT(runs[i - 1].offset + runs[i - 1].length, runs[i].offset) << pair;
    }
}
} // namespace
