// Every file call on the folder of kept changes goes wrong in turn, in every way: what was kept
// before is there whole or the new one is, nothing of others is touched, and loads, commits and
// saves are as without it, also while a call never comes back.
#include "FaultCases.h"
#include "changes/EarlierVersions.h"
#include "changes/Recovery.h"
#include "pages/WindowFixture.h"
#include "system/Errors.h"
#include "system/Sha256.h"

#include <condition_variable>
#include <mutex>

#include <QLabel>
#include <QStatusBar>
#include <gmock/gmock.h>

namespace {
namespace fs = std::filesystem;
using testing::AnyOf;
using testing::HasSubstr;

TPatch PatchTo(std::uint8_t byte) {
    const std::vector<std::uint8_t> before(300, 1);
    return MakePatch("A.BIN", std::string(64, 'a'), before, std::vector(300, byte));
}

/// The folder of patches by itself, with a store that the test's own thread uses.
class TStoreFaults : public testing::TestWithParam<TFaultCase> {
protected:
    std::vector<TPatch> Kept() const {
        std::vector<TPatch> patches;
        for (const TKeptPatch &kept : store.Read([](const fs::path &) { return true; }).patches)
            patches.push_back(kept.patch);
        return patches;
    }
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        if (fs::exists(path))
            for (const fs::directory_entry &entry : fs::directory_iterator(path))
                names.push_back(entry.path().filename().string());
        return names;
    }
    /// Runs `step` with the fault in its first call, its second and so on; `check(outcome, error)`
    /// looks at what it left.
    template <class TPrepare, class TStep, class TCheck>
    TSweep SweepOver(TPrepare prepare, TStep step, TCheck check) {
        return Sweep(GetParam().fault, [&](const TFault &due) {
            fs::remove_all(path);
            prepare();
            std::string error;
            TOutcome outcome;
            {
                const TFaultInjection injection(folder.Path(), {due});
                try {
                    step();
                } catch (const EFileError &failure) {
                    error = failure.what();
                }
                outcome = {injection.Hits(), injection.HitCalls(), !error.empty()};
            }
            if (!error.empty()) {
                EXPECT_THAT(error, HasSubstr(path.string()));
                // A folder that cannot be looked at is taken for one that is not there.
                EXPECT_THAT(error, AnyOf(HasSubstr(Reason()), HasSubstr("its length changed"),
                                         HasSubstr(ReasonOf(ENOENT))));
            }
            check(outcome);
            return outcome;
        });
    }
    static std::string Reason() {
        const TFault &fault = GetParam().fault;
        return ReasonOf(fault.effect == TEffect::Nothing ? EIO : fault.code);
    }
    static void ExpectHarmless(const TSweep &sweep) {
        if (GetParam().harmless) {
            EXPECT_EQ(sweep.failing.Text(), "");
        }
    }

    const TTemporaryFolder folder;
    const fs::path path = folder / "state" / "ferrolyn";
    const TPatchStore store{path, "mine-####.patch", 3};
    const fs::path own = path / "mine-0000.patch";
};

TEST_P(TStoreFaults, KeepTheFirstPatchOrNone) {
    const TSweep sweep =
        SweepOver([&] { fs::remove_all(path.parent_path()); }, [&] { store.Keep(own, PatchTo(7)); },
                  [&](const TOutcome &outcome) {
                      if (!outcome.failed || fs::exists(own)) {
                          EXPECT_EQ(Kept(), std::vector{PatchTo(7)});
                      }
                      store.Keep(own, PatchTo(8));
                      EXPECT_EQ(Kept(), std::vector{PatchTo(8)});
                      EXPECT_EQ(Names().size(), 1U);
                  });
    ExpectHarmless(sweep);
}

TEST_P(TStoreFaults, KeepTheOldPatchOrTheNewOne) {
    const TSweep sweep =
        SweepOver([&] { store.Keep(own, PatchTo(7)); }, [&] { store.Keep(own, PatchTo(8)); },
                  [&](const TOutcome &outcome) {
                      const std::vector<TPatch> kept = Kept();
                      ASSERT_EQ(kept.size(), 1U);
                      EXPECT_THAT(kept.front(), AnyOf(PatchTo(7), PatchTo(8)));
                      if (!outcome.failed) {
                          EXPECT_EQ(kept.front(), PatchTo(8));
                      }
                      if (!outcome.calls.Has(TCall::Unlink)) {
                          EXPECT_EQ(Names().size(), 1U);
                      }
                  });
    ExpectHarmless(sweep);
}

TEST_P(TStoreFaults, ReadWholePatchesAndNameTheOthers) {
    TKeptPatches read;
    const auto prepare = [&] {
        for (const std::uint8_t byte : {std::uint8_t{7}, std::uint8_t{8}})
            store.Keep(path / ("mine-000" + std::to_string(byte) + ".patch"), PatchTo(byte));
        read = {};
    };
    const TSweep sweep = SweepOver(
        prepare, [&] { read = store.Read([](const fs::path &) { return true; }); },
        [&](const TOutcome &outcome) {
            for (const TKeptPatch &kept : read.patches)
                EXPECT_THAT(kept.patch, AnyOf(PatchTo(7), PatchTo(8)));
            const bool looked = !outcome.failed && !outcome.calls.Has(TCall::Status);
            if (looked) {
                EXPECT_EQ(read.patches.size() + read.leftAlone.size(), 2U);
            }
            for (const std::string &text : read.leftAlone)
                EXPECT_THAT(text, AnyOf(HasSubstr(Reason()), HasSubstr("its length changed")));
            EXPECT_EQ(Kept().size(), 2U);
        });
    ExpectHarmless(sweep);
    if (GetParam().harmless) {
        EXPECT_EQ(read.patches.size(), 2U);
    }
}

TEST_P(TStoreFaults, RemoveOldPatchesOrNone) {
    const auto prepare = [&] {
        for (int i = 0; i < 6; ++i) {
            const fs::path file = path / ("mine-000" + std::to_string(i) + ".patch");
            store.Keep(file, PatchTo(7));
            fs::last_write_time(file, fs::file_time_type::clock::now() + std::chrono::hours(i));
        }
        PutFile(path / "mine-00ff.patch", {'x'});
        fs::last_write_time(path / "mine-00ff.patch",
                            fs::file_time_type::clock::now() - std::chrono::hours(1));
    };
    const TSweep sweep = SweepOver(
        prepare, [&] { store.RemoveOldest(own); },
        [&](const TOutcome &outcome) {
            const std::vector<std::string> names = Names();
            for (const char *name :
                 {"mine-0000.patch", "mine-0005.patch", "mine-0004.patch", "mine-00ff.patch"})
                EXPECT_THAT(names, testing::Contains(name));
            if (outcome.hits == 0) {
                EXPECT_EQ(names.size(), 4U);
            }
        });
    ExpectHarmless(sweep);
}

TEST_P(TStoreFaults, KeepAnEarlierVersionWholeOrNot) {
    const fs::path file = folder / "A.BIN";
    const std::vector<std::uint8_t> bytes(300, 5);
    const std::vector<std::uint8_t> older(200, 6);
    const auto versions = [&] {
        std::vector<std::vector<std::uint8_t>> all;
        for (const TEarlier &version : EarlierVersions(path, file))
            all.push_back(version.bytes);
        return all;
    };
    const TSweep sweep =
        SweepOver([&] { KeepEarlier(path, file, older, "20261121"); },
                  [&] { KeepEarlier(path, file, bytes, "20261122"); },
                  [&](const TOutcome &) {
                      // Under a fault in resolving its name it may be another file's.
                      for (const auto &version : versions())
                          EXPECT_THAT(version, AnyOf(bytes, older));
                      EXPECT_THAT(versions(), testing::Contains(older));
                      KeepEarlier(path, file, bytes, "20261122");
                      EXPECT_THAT(versions(), testing::UnorderedElementsAre(older, bytes));
                  });
    ExpectHarmless(sweep);
}

const auto byFaultName = [](const auto &test) { return std::string(test.param.name); };
INSTANTIATE_TEST_SUITE_P(All, TStoreFaults, testing::ValuesIn(FaultCases()), byFaultName);

/// The whole window: an image, its mapping chosen, edited and saved.
class TWindowWithFaults : public TWindowTest {
protected:
    void SetUp() override {
        MakeSpec("A.SPC");
        file = MakeImage("A.BIN");
        original = GetFile(folder / "A.BIN");
        fs::create_directories(ownState.Folder());
    }
    void Commit(const QString &text) {
        Enter(fuelTab);
        Type(fuelTab, "grdPTMap", 1, 1, text);
        Click(fuelTab, "btnSavePT");
        Enter(romTab);
    }
    /// Waits until the folder has answered, which may take longer than the window waits.
    void Settle() {
        window.Recovery().Finish();
        window.StateChanged();
    }
    void Save() {
        dialogs.saves = {file};
        dialogs.answers = {TAnswer::Yes};
        Click(romTab, "btnSave");
    }
    TBytes With(std::uint8_t byte) const {
        TBytes bytes = original;
        bytes.at(fuelPT + 6 + 5) = byte;
        return bytes;
    }
    TBytes OnDisk() const { return GetFile(folder / "A.BIN"); }

    QString file;
    TBytes original;
};

class TSittingWithFaults : public TWindowWithFaults,
                           public testing::WithParamInterface<TFaultCase> {};

/// Load, commit, read anew, bring back, save: whatever fails on the folder of kept changes.
TEST_P(TSittingWithFaults, IsAsWithoutThem) {
    const TSweep sweep = Sweep(GetParam().fault, [&](const TFault &due) {
        fs::remove_all(ownState.Folder());
        PutFile(folder / "A.BIN", original);
        TRecovery &recovery = window.Recovery();
        TOutcome outcome;
        {
            const TFaultInjection injection(ownState.Folder().parent_path(), {due}, TThreads::All);
            dialogs.answers = {TAnswer::No}; // "Save Changes?" of the run before
            Load(file);
            dialogs.answers.clear();
            Choose(0);
            Commit("77");
            recovery.Finish();
            EXPECT_EQ(Image().Peek(fuelPT + 6 + 5), 77);
            Choose(0);
            recovery.Finish();
            window.StateChanged();
            EXPECT_EQ(Image().Peek(fuelPT + 6 + 5), 1);
            if (!recovery.Offers().empty())
                Click(romTab, "btnBringBack");
            else
                Commit("77");
            recovery.Finish();
            EXPECT_EQ(Image().Peek(fuelPT + 6 + 5), 77);
            Save();
            recovery.Finish();
            outcome = {injection.Hits(), injection.HitCalls(), false};
        }
        EXPECT_EQ(OnDisk(), With(77));
        EXPECT_EQ(dialogs.messages, QStringList());
        if (outcome.hits == 0) {
            EXPECT_EQ(EarlierVersions(ownState.Folder(), folder / "A.BIN").size(), 1U);
        }
        return outcome;
    });
    EXPECT_GT(sweep.faults, 0);
}

/// The others differ only in what they say.
std::vector<TFaultCase> SomeFaultCases() {
    const std::set<std::string> some{"io_error",    "disk_full_for_good",  "read_only_for_good",
                                     "interrupted", "half_moves_for_good", "done_but_failed"};
    std::vector<TFaultCase> cases = FaultCases();
    std::erase_if(cases, [&](const TFaultCase &one) { return !some.contains(one.name); });
    return cases;
}
INSTANTIATE_TEST_SUITE_P(All, TSittingWithFaults, testing::ValuesIn(SomeFaultCases()), byFaultName);

using TBroughtBack = TWindowWithFaults;

TEST_F(TBroughtBack, StaysInTheFolderUntilItIsKeptAnew) {
    Load(file);
    Choose(0);
    Commit("77");
    Choose(0);
    Settle();
    {
        const TFaultInjection injection(
            ownState.Folder(), {{TEffect::Fails, ENOSPC, {TCall::Write}, true}}, TThreads::All);
        Click(romTab, "btnBringBack");
        window.Recovery().Finish();
        EXPECT_GT(injection.Hits(), 0);
    }
    QTest::qWait(0);
    EXPECT_THAT(FindControl<QStatusBar>(window, "StatusBar1").currentMessage().toStdString(),
                testing::AllOf(HasSubstr("Committed changes cannot be kept for a crash: "),
                               HasSubstr(ReasonOf(ENOSPC))));
    dialogs.answers = {TAnswer::No};
    Load(file); // as after a crash
    Settle();
    ASSERT_EQ(window.Recovery().Offers().size(), 1U);
    const TKeptPatch offer = window.Recovery().Offers().front();
    EXPECT_EQ(offer.patch.runs.front().after, TBytes{77});
    Choose(0);
    Commit("78"); // something else, which is kept
    window.Recovery().Finish();
    EXPECT_TRUE(fs::exists(offer.file));
}

/// Holds a thread that comes by until it is let go.
class TGate {
public:
    std::function<void()> Hold() {
        return [this] {
            std::unique_lock lock(mutex_);
            reached_ = true;
            changed_.notify_all();
            changed_.wait(lock, [this] { return open_; });
        };
    }
    void WaitUntilReached() {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return reached_; });
    }
    void Open() {
        const std::lock_guard lock(mutex_);
        open_ = true;
        changed_.notify_all();
    }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    bool reached_ = false;
    bool open_ = false;
};

class TSlowFolder : public TWindowWithFaults {
protected:
    TFault Slow(TCalls calls) {
        TFault fault{TEffect::ComesLate, 0, calls};
        fault.meanwhile = gate.Hold();
        return fault;
    }
    TGate gate;
};

TEST_F(TSlowFolder, HoldsUpNeitherACommitNorASave) {
    Load(file);
    Choose(0);
    {
        const TFaultInjection injection(ownState.Folder(), {Slow({TCall::Create})}, TThreads::All);
        Commit("77");
        gate.WaitUntilReached();
        EXPECT_EQ(Image().Peek(fuelPT + 6 + 5), 77);
        Commit("78");
        Save();
        EXPECT_EQ(OnDisk(), With(78)) << "while the folder does not answer";
        gate.Open();
        window.Recovery().Finish();
    }
    const std::vector<TEarlier> earlier = EarlierVersions(ownState.Folder(), folder / "A.BIN");
    ASSERT_EQ(earlier.size(), 1U);
    EXPECT_EQ(earlier.front().bytes, original);
    EXPECT_EQ(std::distance(fs::directory_iterator(ownState.Folder()), fs::directory_iterator()), 1)
        << "what was saved is no longer kept";
    EXPECT_EQ(dialogs.messages, QStringList());
}

TEST_F(TSlowFolder, KeepsTheLastOfWhatWasCommittedMeanwhile) {
    Load(file);
    Choose(0);
    {
        const TFaultInjection injection(ownState.Folder(), {Slow({TCall::Rename})}, TThreads::All);
        for (const char *number : {"77", "78", "79"})
            Commit(number);
        gate.WaitUntilReached();
        gate.Open();
        window.Recovery().Finish();
    }
    Choose(0);
    Settle();
    ASSERT_EQ(window.Recovery().Offers().size(), 1U);
    EXPECT_EQ(window.Recovery().Offers().front().patch.runs.front().after, TBytes{79});
}

TEST_F(TSlowFolder, OffersLateWhatItHolds) {
    Load(file);
    Choose(0);
    Commit("77");
    Settle();
    const TFaultInjection injection(ownState.Folder(), {Slow({TCall::List})}, TThreads::All);
    Choose(0);
    auto &bar = On<QWidget>(romTab, "barRecovery");
    EXPECT_FALSE(bar.isVisible()) << "the image is there before the folder answers";
    gate.WaitUntilReached();
    gate.Open();
    window.Recovery().Finish();
    QTest::qWait(0);
    EXPECT_TRUE(bar.isVisible());
}

TEST_F(TSlowFolder, ALateAnswerIsNotTakenForThatOfTheNextImage) {
    const QString other = MakeImage("B.BIN", 9);
    Load(file);
    Choose(0);
    Commit("77");
    Settle();
    const TFaultInjection injection(ownState.Folder(), {Slow({TCall::List})}, TThreads::All);
    Choose(0);
    gate.WaitUntilReached();
    dialogs.answers = {TAnswer::No};
    Load(other);
    gate.Open();
    window.Recovery().Finish();
    QTest::qWait(0);
    EXPECT_FALSE(On<QWidget>(romTab, "barRecovery").isVisible());
}
} // namespace
