// Every file call of every way to save goes wrong in turn, in every way: the target is the old file
// or the new one, nothing else is left, the error names file and reason, and the next save works.
#include "FaultCases.h"
#include "Savings.h"

#include <gmock/gmock.h>

namespace {

using testing::HasSubstr;

const std::string notPutBack = "the old contents could not be put back";

class TSaveFaults : public testing::TestWithParam<std::tuple<TSaving, TFaultCase>> {
protected:
    const TSaving saving = std::get<0>(GetParam());
    const TFaultCase fault = std::get<1>(GetParam());

    std::string Reason() const {
        return fault.fault.effect == TEffect::Nothing ? ReasonOf(EIO) : ReasonOf(fault.fault.code);
    }
    /// Written in place, a file that can neither be written nor put back is spoilt; nothing else
    /// ever is.
    bool MayBeSpoilt() const {
        return saving.inPlace && (fault.fault.lasting || fault.fault.effect == TEffect::Nothing);
    }

    TOutcome Attempt(const TFault &due) const {
        TSavingRun run(saving);
        const std::string error = run.Save({due});
        if (error.empty()) {
            EXPECT_TRUE(run.IsNew());
        } else {
            EXPECT_THAT(error, HasSubstr("Cannot write '" + run.Named().string() + "': "));
            EXPECT_THAT(error, HasSubstr(Reason()));
            ExpectWhole(run, error);
        }
        run.ExpectTheRestAsItWas(!error.empty());
        // What cannot be removed stays, until the next save removes it.
        if (!saving.remains && !run.HitCalls().Has(TCall::Unlink)) {
            EXPECT_EQ(run.Remains(), std::vector<std::string>());
        }
        const TOutcome outcome{run.Hits(), run.HitCalls(), !error.empty()};
        run.ExpectNextSaveWorks();
        return outcome;
    }
    void ExpectWhole(const TSavingRun &run, const std::string &error) const {
        const bool late = fault.fault.effect == TEffect::DoneButFails;
        const bool whole = run.IsOld() || (late && run.IsNew());
        if (MayBeSpoilt() && !whole)
            EXPECT_THAT(error, HasSubstr(notPutBack));
        else
            EXPECT_TRUE(whole) << "neither the old file nor the new one";
    }
};

TEST_P(TSaveFaults, LeaveTheOldFileOrTheNewOne) {
    const TSweep sweep = Sweep(fault.fault, [&](const TFault &due) { return Attempt(due); });
    const TCalls expected = saving.calls & fault.fault.calls;
    EXPECT_EQ((sweep.calls & expected).Text(), expected.Text()) << "not every kind of call was hit";
    if (fault.harmless) {
        EXPECT_EQ(sweep.failing.Text(), "");
    }
    if (fault.fault.code == EIO && !fault.fault.lasting && fault.fault.effect == TEffect::Fails) {
        EXPECT_EQ(sweep.failing.Text(), saving.failing.Text()) << "swallowed, or told for nothing";
    }
}

INSTANTIATE_TEST_SUITE_P(All, TSaveFaults,
                         testing::Combine(testing::ValuesIn(Savings()),
                                          testing::ValuesIn(FaultCases())),
                         [](const auto &test) {
                             return std::string(std::get<0>(test.param).name) + "_" +
                                    std::get<1>(test.param).name;
                         });

class TSaveCalls : public testing::TestWithParam<TSaving> {};

TEST_P(TSaveCalls, AreTheOnesThatTheFaultsAreFor) {
    TSavingRun run(GetParam());
    EXPECT_EQ(run.Save(), "");
    EXPECT_TRUE(run.IsNew());
    EXPECT_EQ(run.Made().Text(), GetParam().calls.Text());
    EXPECT_EQ(run.Remains(), std::vector<std::string>());
}
INSTANTIATE_TEST_SUITE_P(All, TSaveCalls, testing::ValuesIn(Savings()),
                         [](const auto &test) { return std::string(test.param.name); });

} // namespace
