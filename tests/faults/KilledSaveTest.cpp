// A process that saves is killed: at every single file call, and at random moments. The target is
// always the old file or the new one, and what stays behind is gone after the next save.
#include "FaultCases.h"
#include "SavingProgram.h"
#include "Savings.h"
#include "saver/Alternating.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

#include <gmock/gmock.h>

namespace {

using testing::UnorderedElementsAre;

// At every file call

struct TDeath {
    const char *name;
    TEffect effect;
    TCalls calls;
};
constexpr TDeath deaths[] = {
    {"before", TEffect::DiesBefore, TCalls::All()},
    {"behind", TEffect::DiesAfter, TCalls::All()},
    {"half_way", TEffect::DiesHalfWay, {TCall::Write}},
};

/// Those that write into the target itself are not for people who pull the plug.
std::vector<TSaving> Replacing() {
    std::vector<TSaving> savings = Savings();
    std::erase_if(savings, [](const TSaving &saving) { return saving.inPlace; });
    return savings;
}

class TKilledAtACall : public testing::TestWithParam<std::tuple<TSaving, TDeath>> {};

/// Whether the fault killed a process of its own that saves.
bool DiesWhileSaving(TSavingRun &run, const TFault &fault) {
    const pid_t child = fork();
    if (child == 0)
        _exit(run.Save({fault}).empty() ? 0 : 1);
    int status = -1;
    waitpid(child, &status, 0);
    const bool killed = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    EXPECT_TRUE(killed || (WIFEXITED(status) && WEXITSTATUS(status) == 0)) << status;
    return killed;
}

TEST_P(TKilledAtACall, LeavesTheOldFileOrTheNewOne) {
    const auto &[saving, death] = GetParam();
    const TSaving &tested = saving;
    int old = 0;
    int fresh = 0;
    int left = 0;
    const TSweep sweep = Sweep({death.effect, 0, death.calls}, [&](const TFault &due) {
        TSavingRun run(tested);
        const bool killed = DiesWhileSaving(run, due);
        EXPECT_TRUE(run.IsOld() || run.IsNew()) << "neither the old file nor the new one";
        old += run.IsOld();
        fresh += run.IsNew();
        left += !run.Remains().empty();
        EXPECT_LE(run.Remains().size(), 1U);
        run.ExpectNextSaveWorks();
        return TOutcome{killed, {}, false};
    });
    EXPECT_GE(sweep.faults, 1);
    EXPECT_GT(old, 0);
    EXPECT_GT(fresh, 0);
    EXPECT_GT(left, 0) << "no kill hit a save on its way";
}
INSTANTIATE_TEST_SUITE_P(All, TKilledAtACall,
                         testing::Combine(testing::ValuesIn(Replacing()),
                                          testing::ValuesIn(deaths)),
                         [](const auto &test) {
                             return std::string(std::get<0>(test.param).name) + "_" +
                                    std::get<1>(test.param).name;
                         });

// At random moments

/// How many kills; FERROLYN_KILLS asks for more than the daily share.
int KillCount() {
    const char *wanted = std::getenv("FERROLYN_KILLS");
    return wanted ? std::max(1, std::atoi(wanted)) : 100;
}

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
    const int kills = KillCount();
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
