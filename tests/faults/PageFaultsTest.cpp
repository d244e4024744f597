// The same faults met through the page "ROM Information", with all that the page does round a load
// or a save: whatever goes wrong is told with file and reason, nothing is lost, and the next
// attempt works.
#include "FaultCases.h"
#include "pages/ROMInfoFixture.h"

#include <gmock/gmock.h>

namespace {

namespace fs = std::filesystem;
using testing::AnyOf;
using testing::HasSubstr;

class TPageFaults : public TROMInfoTest, public testing::WithParamInterface<TFaultCase> {
protected:
    void SetUp() override {
        TROMInfoTest::SetUp();
        rom = MakeROM("A.BIN", oldMark);
        original = GetFile(rom);
        MakeSpec();
        newBytes = original;
        newBytes[fuelBody] = edited;
        fresh = original;
        fresh[0x7000] = newMark;
    }

    /// The page with the image loaded, its maps placed, and one cell edited or not.
    void Begin(bool edit) {
        ForgetDialogs();
        for (const std::string &name : folder.Names())
            if (name != "A.BIN" && name != "DIRECT.SPC")
                fs::remove(folder / name);
        LoadWithoutSaving(rom);
        Choose("Direct");
        if (edit)
            Cell(*workspace.fuelMapSet.PTMap).SetValue(edited);
        other->DataChanged = true;
        page->ShowPage();
        ASSERT_EQ(dialogs.messages, QStringList());
    }
    void LoadWithoutSaving(const fs::path &file) {
        if (workspace.fuelMapSet.IsModified() || workspace.timingMapSet.IsModified())
            dialogs.answers = {TAnswer::No};
        Load(file);
    }
    void ForgetDialogs() {
        dialogs.messages.clear();
        dialogs.questions.clear();
        dialogs.answers.clear();
        dialogs.inputs.clear();
    }
    template <class TStep>
    TOutcome With(const TFault &fault, TStep step) {
        const TFaultInjection injection(folder.Path(), {fault});
        step();
        return {injection.Hits(), injection.HitCalls(), !dialogs.messages.empty()};
    }
    /// Every message names one of the files and the reason.
    void ExpectNamed(const std::vector<fs::path> &files) const {
        for (const QString &message : dialogs.messages) {
            const std::string text = message.toStdString();
            EXPECT_THAT(text,
                        AnyOf(HasSubstr(files.front().string()), HasSubstr(files.back().string())));
            EXPECT_THAT(text, AnyOf(HasSubstr(Reason()),
                                    HasSubstr("its length changed while it was read")));
        }
        EXPECT_LE(dialogs.messages.size(), 1);
    }
    static std::string Reason() {
        const TFault &fault = GetParam().fault;
        return ReasonOf(fault.effect == TEffect::Nothing ? EIO : fault.code);
    }
    /// What a harmless fault must not do, and that something was hit at all.
    static void ExpectSwept(const TSweep &sweep, TCalls calls) {
        EXPECT_EQ(sweep.faults > 0, !(calls & GetParam().fault.calls).Empty());
        if (GetParam().harmless) {
            EXPECT_EQ(sweep.failing.Text(), "");
        }
    }
    /// Nothing but these files is in the folder, but for what could not be removed.
    void ExpectNoRemains(const TOutcome &outcome, const std::string &target) const {
        if (outcome.calls.Has(TCall::Unlink))
            return;
        for (const std::string &name : folder.Names())
            EXPECT_THAT(name, AnyOf("A.BIN", "DIRECT.SPC", target));
    }
    void PrepareSave(const fs::path &target) {
        ForgetDialogs();
        dialogs.saves = {Name(target)};
        dialogs.answers = {TAnswer::Yes};
        dialogs.inputs = {"Label"};
    }
    /// An existing target is never written over without the question; one that cannot be looked at
    /// may exist.
    void ExpectAsked(bool existed, const TOutcome &outcome) const {
        const QStringList asked{"Overwrite existing file?"};
        if (existed || !dialogs.questions.empty()) {
            EXPECT_EQ(dialogs.questions, asked);
        }
        if (!existed && !dialogs.questions.empty()) {
            EXPECT_TRUE(outcome.calls.Has(TCall::Status)) << "asked for nothing";
        }
    }
    /// Nothing stands under a new name after a failed save, unless the system refuses to remove it.
    static void ExpectGone(const fs::path &target, const TFault &due) {
        using enum TCall;
        constexpr TCalls hindering{Status, ReadLink, Unlink};
        if (!due.lasting || (due.calls & hindering).Empty()) {
            EXPECT_FALSE(fs::exists(target));
        }
    }
    /// A save under the fault, begun with `before` as the target's contents, or no target when that
    /// is empty; sound afterwards are those and `after`.
    void SweepSave(const QString &button, const std::string &name, const TBytes &before,
                   const TBytes &after) {
        const fs::path target = folder / name;
        const TSweep sweep = Sweep(GetParam().fault, [&](const TFault &due) {
            Begin(true);
            if (!before.empty())
                PutFile(target, before);
            PrepareSave(target);
            const TOutcome outcome = With(due, [&] { Button(button).click(); });
            const TBytes left = fs::exists(target) ? GetFile(target) : TBytes{};
            EXPECT_TRUE(left == before || left == after);
            if (!outcome.failed) {
                EXPECT_TRUE(left == after);
            }
            if (before.empty() && left != after)
                ExpectGone(target, due);
            ExpectAsked(!before.empty(), outcome);
            ExpectNamed({target, target});
            ExpectNoRemains(outcome, name);
            EXPECT_EQ(GetFile(rom), original);
            // The edit is still there, whatever happened.
            if (left != after) {
                EXPECT_EQ(Cell(*workspace.fuelMapSet.PTMap).raw, edited);
                EXPECT_EQ(page->ROMFileName(), rom);
                EXPECT_EQ(Caption(), "Ferrolyn - " + Name(rom));
            }
            if (left == after)
                return outcome;
            Button(button).setEnabled(true);
            PrepareSave(target);
            Button(button).click();
            EXPECT_EQ(dialogs.messages, QStringList()) << "the next save";
            EXPECT_TRUE(GetFile(target) == after) << "after the next save";
            return outcome;
        });
        using enum TCall;
        ExpectSwept(sweep, {Create, Open, Write, Flush, Rename, Status, Access, Close});
    }

    static constexpr std::uint8_t oldMark = 7;
    static constexpr std::uint8_t newMark = 9;
    static constexpr std::uint8_t edited = 77;
    static constexpr std::size_t fuelBody = fuelPT + 6 + 5;
    fs::path rom;
    TBytes original;
    TBytes newBytes; ///< the image with the edit
    TBytes fresh;    ///< another image
};

TEST_P(TPageFaults, LoadImage) {
    const fs::path file = folder / "B.BIN";
    const TSweep sweep = Sweep(GetParam().fault, [&](const TFault &due) {
        Begin(false);
        PutFile(file, fresh);
        const TOutcome outcome = With(due, [&] { Load(file); });
        ExpectNamed({file, file});
        const bool loaded = Image().Peek(0x7000) == newMark;
        EXPECT_TRUE(loaded || outcome.failed) << "ignored without a word";
        EXPECT_EQ(Get(0, Image().size), loaded ? fresh : original);
        EXPECT_EQ(Caption(), "Ferrolyn - " + Name(loaded ? file : rom));
        if (outcome.failed) {
            EXPECT_FALSE(loaded);
            EXPECT_EQ(Items().front(), "Direct");
            EXPECT_EQ(Group().ItemIndex(), 0);
        }
        ForgetDialogs();
        LoadWithoutSaving(file);
        EXPECT_EQ(dialogs.messages, QStringList()) << "the next load";
        EXPECT_EQ(Get(0, Image().size), fresh);
        EXPECT_EQ(Items().front(), "Direct");
        return outcome;
    });
    using enum TCall;
    ExpectSwept(sweep, {Status, Open, Read, Close, List});
}

TEST_P(TPageFaults, ChooseSpec) {
    const fs::path spec = folder / "DIRECT.SPC";
    const TSweep sweep = Sweep(GetParam().fault, [&](const TFault &due) {
        Begin(false);
        workspace.fuelMapSet.SetOffsets(timingPT, timingIdle, timingWOT);
        const TOutcome outcome = With(due, [&] { Choose("Direct"); });
        ExpectNamed({spec, rom});
        EXPECT_EQ(Get(0, Image().size), original);
        const int placed = workspace.fuelMapSet.PTMap->GetLocation();
        EXPECT_THAT(placed, AnyOf(int{fuelPT}, int{timingPT}));
        if (!outcome.failed) {
            EXPECT_EQ(placed, int{fuelPT});
        }
        ForgetDialogs();
        Choose("Direct");
        EXPECT_EQ(dialogs.messages, QStringList()) << "the next choice";
        EXPECT_EQ(workspace.fuelMapSet.PTMap->GetLocation(), int{fuelPT});
        EXPECT_EQ(Caption(), "Ferrolyn - " + Name(rom));
        return outcome;
    });
    using enum TCall;
    ExpectSwept(sweep, {Status, Open, Read, Close});
}

TEST_P(TPageFaults, SaveImageOverAFile) {
    SweepSave("btnSave", "B.BIN", TBytes(100, 3), newBytes);
}

TEST_P(TPageFaults, SaveImageAsANewFile) {
    SweepSave("btnSave", "B.BIN", {}, newBytes);
}

class TPageSpecFaults : public TPageFaults {
protected:
    static TBytes Spec() {
        const std::string text = "; Label\n[Fuel Maps]\npt_offset=$1000\nidle_offset=$1200\n"
                                 "wot_offset=$1300\n[Timing Maps]\npt_offset=$2000\n"
                                 "idle_offset=$2200\nwot_offset=$2300\n[Other Maps]\n"
                                 "revlimit_offset=$0040\n";
        return {text.begin(), text.end()};
    }
};

TEST_P(TPageSpecFaults, SaveSpecOverAFile) {
    SweepSave("btnSaveSpec", "B.SPC", TBytes(100, 'x'), Spec());
}

TEST_P(TPageSpecFaults, SaveSpecAsANewFile) {
    SweepSave("btnSaveSpec", "B.SPC", {}, Spec());
}

const auto byName = [](const auto &test) { return std::string(test.param.name); };
INSTANTIATE_TEST_SUITE_P(All, TPageFaults, testing::ValuesIn(FaultCases()), byName);
INSTANTIATE_TEST_SUITE_P(All, TPageSpecFaults, testing::ValuesIn(FaultCases()), byName);

} // namespace
