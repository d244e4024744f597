// A process that saves is killed at every single file call. The target is always the old file or
// the new one, and what stays behind is gone after the next save.
#include "FaultCases.h"
#include "Savings.h"

#include <algorithm>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace {

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

} // namespace
