// A program that saves is killed at random moments. The files are always wholly the old or the new
// ones, and what stays behind is gone after the next save.
//   FERROLYN_KILLS=2000 build/dev/tests/kills/test_kills --gtest_filter='TKilledSaver.*'
#include "SavingProgram.h"
#include "saver/Alternating.h"
#include "spec/SpecFile.h"
#include "support/TemporaryFolder.h"

#include <chrono>
#include <random>

#include <gmock/gmock.h>

namespace {

using TFileBytes = std::vector<std::uint8_t>;
using testing::UnorderedElementsAre;

class TKilledSaver : public testing::Test {
protected:
    bool IsOneOfTwo(const std::string &name) const {
        const TFileBytes bytes = GetFile(folder / name);
        return bytes == BytesOf(name, 0) || bytes == BytesOf(name, 1);
    }
    static TFileBytes BytesOf(const std::string &name, int turn) {
        if (name == savedImage)
            return ImageOf(turn);
        const std::string text = NewSpecFile(LabelOf(turn), TFuelMapSet(), TTimingMapSet());
        return {text.begin(), text.end()};
    }
    std::size_t RemainsCount() const { return folder.Names().size() - 2; }

    /// Spins for a random part of about a round.
    void LetItRun() {
        const auto end =
            std::chrono::steady_clock::now() + std::chrono::microseconds(microseconds_(random_));
        while (std::chrono::steady_clock::now() < end) {
        }
    }
    int RandomRounds() { return rounds_(random_); }

    const TTemporaryFolder folder;

private:
    std::mt19937 random_{20240229};
    std::uniform_int_distribution<int> rounds_{1, 2};
    std::uniform_int_distribution<int> microseconds_{0, 30000};
};

TEST_F(TKilledSaver, LeavesWholeFilesAndNoPileOfRemains) {
    constexpr int enoughToHit = 50; // about one in five hits a save on its way
    const int kills = KillsWanted(100);
    int withRemains = 0;
    for (int i = 0; i < kills; ++i) {
        SCOPED_TRACE("kill " + std::to_string(i));
        TSavingProgram saver(folder.Path());
        ASSERT_TRUE(saver.WaitForRounds(RandomRounds()));
        LetItRun();
        ASSERT_TRUE(saver.Kill());
        ASSERT_TRUE(IsOneOfTwo(savedImage));
        ASSERT_TRUE(IsOneOfTwo(savedSpec));
        ASSERT_LE(RemainsCount(), 1U);
        withRemains += RemainsCount() == 1;
    }
    if (kills >= enoughToHit) {
        EXPECT_GT(withRemains, 0) << "no kill hit a save on its way";
    }
    RecordProperty("kills", kills);
    RecordProperty("with_remains", withRemains);
    TSavingProgram last(folder.Path(), 1);
    EXPECT_EQ(last.WaitForEnd(), 0);
    EXPECT_THAT(folder.Names(), UnorderedElementsAre(savedImage, savedSpec));
}

TEST_F(TKilledSaver, SaversSideBySideLeaveEachOtherAlone) {
    constexpr int rounds = 20;
    TSavingProgram first(folder.Path(), rounds);
    TSavingProgram second(folder.Path(), rounds);
    EXPECT_TRUE(first.WaitForRounds(rounds));
    EXPECT_TRUE(second.WaitForRounds(rounds));
    EXPECT_EQ(first.WaitForEnd(), 0);
    EXPECT_EQ(second.WaitForEnd(), 0);
    EXPECT_TRUE(IsOneOfTwo(savedImage));
    EXPECT_TRUE(IsOneOfTwo(savedSpec));
    EXPECT_EQ(RemainsCount(), 0U);
}

} // namespace
