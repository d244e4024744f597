// Where two byte buffers differ, against a plain loop.
#include "changes/ByteRuns.h"

#include "changes/RandomPairs.h"

#include <gmock/gmock.h>

namespace {
using TBytes = std::vector<std::uint8_t>;
using testing::ElementsAre;
using testing::IsEmpty;

/// Byte by byte, none left out.
std::vector<TByteRun> PlainRuns(const TBytes &before, const TBytes &after) {
    std::vector<TByteRun> runs;
    bool inRun = false;
    for (std::uint32_t i = 0; i < before.size() && i < after.size(); ++i) {
        const bool differs = before[i] != after[i];
        if (differs && !inRun)
            runs.push_back({i, 0});
        if (differs)
            ++runs.back().length;
        inRun = differs;
    }
    return runs;
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
    TRandomPairs pairs;
    for (int pair = 0; pair < TRandomPairs::count; ++pair) {
        const auto [before, after] = pairs.NextOfAnyLengths();
        ASSERT_EQ(DifferingRuns(before, after), PlainRuns(before, after)) << pair;
    }
}
} // namespace
