// Files that the page "ROM Information" cannot look at: nobody can tell whether they exist, so they
// are neither written over without a question nor taken for missing. And what is left of a new spec
// file whose save fails behind the question for its label.
#include "FaultCases.h"
#include "pages/ROMInfoFixture.h"

#include <gmock/gmock.h>

namespace {

namespace fs = std::filesystem;

const QStringList asked{"Overwrite existing file?"};

class TUnseenFiles : public TROMInfoTest {
protected:
    void SetUp() override {
        TROMInfoTest::SetUp();
        rom = MakeROM("A.BIN", 7);
        original = GetFile(rom);
        LoadAndPlace(rom);
        other->DataChanged = true;
        page->ShowPage();
    }
    void Save(const QString &button, const fs::path &target) {
        dialogs.saves = {Name(target)};
        Button(button).click();
    }

    fs::path rom;
    TBytes original;
};

struct TUnseen {
    const char *name;
    int code;
};

class TUnseenTargets : public TUnseenFiles, public testing::WithParamInterface<TUnseen> {
protected:
    /// Whatever asks for what the name stands for gets the error, once or for good.
    TFault Unseen(bool lasting) const {
        return {TEffect::Fails, GetParam().code, {TCall::Status, TCall::Access}, lasting};
    }
    fs::path Target(const QString &button) {
        const fs::path target = folder / (button == "btnSave" ? "B.BIN" : "B.SPC");
        PutFile(target, old);
        return target;
    }
    const TBytes old = TBytes(10, 9);
};

TEST_P(TUnseenTargets, AreAskedFor) {
    for (const QString button : {"btnSave", "btnSaveSpec"}) {
        const fs::path target = Target(button);
        for (const bool lasting : {false, true}) {
            dialogs.questions.clear();
            dialogs.answers = {TAnswer::No};
            const TFaultInjection injection(target, {Unseen(lasting)});
            Save(button, target);
            EXPECT_EQ(dialogs.questions, asked);
            EXPECT_EQ(dialogs.messages, QStringList());
        }
        EXPECT_EQ(GetFile(target), old);
    }
}

TEST_P(TUnseenTargets, AreWrittenWhenTheyCanBeSeenAgain) {
    for (const QString button : {"btnSave", "btnSaveSpec"}) {
        const fs::path target = Target(button);
        dialogs.answers = {TAnswer::Yes};
        dialogs.inputs = {"Label"};
        const TFaultInjection injection(target, {Unseen(false)});
        Save(button, target);
        EXPECT_EQ(dialogs.messages, QStringList());
        EXPECT_NE(GetFile(target), old);
    }
}

TEST_P(TUnseenTargets, StayWithTheReasonToldOtherwise) {
    for (const QString button : {"btnSave", "btnSaveSpec"}) {
        const fs::path target = Target(button);
        dialogs.messages.clear();
        dialogs.answers = {TAnswer::Yes};
        dialogs.inputs = {"Label"};
        const TFaultInjection injection(target, {Unseen(true)});
        Save(button, target);
        EXPECT_EQ(dialogs.messages, QStringList{"Cannot write '" + Name(target) +
                                                "': " + Name(ReasonOf(GetParam().code))});
        EXPECT_EQ(GetFile(target), old);
    }
}

TEST_P(TUnseenTargets, AreNotIgnoredAsImages) {
    const fs::path image = Target("btnSave");
    const TFaultInjection injection(image, {Unseen(true)});
    Load(image);
    EXPECT_EQ(dialogs.messages,
              QStringList{"Cannot read '" + Name(image) + "': " + Name(ReasonOf(GetParam().code))});
    EXPECT_EQ(Get(0, Image().size), original);
    EXPECT_EQ(Caption(), "Ferrolyn - " + Name(rom));
}

const TUnseen unseens[] = {{"no_permission", EACCES}, {"io_error", EIO}, {"stale_handle", ESTALE}};
INSTANTIATE_TEST_SUITE_P(All, TUnseenTargets, testing::ValuesIn(unseens),
                         [](const auto &test) { return std::string(test.param.name); });

TEST_F(TUnseenFiles, ALinkInACircleIsAskedForAndRefused) {
    const fs::path target = folder / "B.SPC";
    fs::create_symlink("B.SPC", target);
    dialogs.answers = {TAnswer::Yes};
    dialogs.inputs = {"Label"};
    Save("btnSaveSpec", target);
    EXPECT_EQ(dialogs.questions, asked);
    EXPECT_EQ(dialogs.messages, QStringList{"Cannot write '" + Name(target) +
                                            "': Too many levels of symbolic links"});
    EXPECT_TRUE(fs::is_symlink(target));
}

// What surely is not there is not asked for.
TEST_F(TUnseenFiles, NamesThatNoFileCanHave) {
    const auto expectRefused = [&](const fs::path &target, const char *reason) {
        dialogs.messages.clear();
        Save("btnSaveSpec", target);
        EXPECT_EQ(dialogs.questions, QStringList());
        EXPECT_EQ(dialogs.inputBoxes, QStringList());
        EXPECT_EQ(dialogs.messages, QStringList{"Cannot write '" + Name(target) + "': " + reason});
    };
    expectRefused(rom / "B.SPC", "Not a directory");
    expectRefused(folder / std::string(300, 'x'), "File name too long");
}

class TFailedSpec : public TUnseenFiles {
protected:
    /// The save goes wrong when the label has been asked for.
    void FailBehindTheLabel(const fs::path &target) {
        dialogs.inputs = {"Label"};
        const TFaultInjection injection(folder.Path(),
                                        {{TEffect::Fails, ENOSPC, {TCall::Rename}, true}});
        Save("btnSaveSpec", target);
        EXPECT_EQ(dialogs.inputBoxes.size(), 1);
        EXPECT_EQ(dialogs.messages,
                  QStringList{"Cannot write '" + Name(target) + "': No space left on device"});
    }
};

TEST_F(TFailedSpec, LeavesNothingUnderANewName) {
    FailBehindTheLabel(folder / "B.SPC");
    EXPECT_THAT(folder.Names(), testing::UnorderedElementsAre("A.BIN", "DIRECT.SPC"));
}

TEST_F(TFailedSpec, LeavesALinkToNothingAsItWas) {
    fs::create_symlink("real.spc", folder / "B.SPC");
    FailBehindTheLabel(folder / "B.SPC");
    EXPECT_THAT(folder.Names(), testing::UnorderedElementsAre("A.BIN", "DIRECT.SPC", "B.SPC"));
    EXPECT_EQ(fs::read_symlink(folder / "B.SPC"), "real.spc");
}

TEST_F(TFailedSpec, LeavesWhatSomebodyElseWroteThereMeanwhile) {
    const fs::path target = folder / "B.SPC";
    const TBytes others{1, 2, 3};
    dialogs.inputs = {"Label"};
    const auto write = [&] { PutFile(target, others); };
    const TFaultInjection injection(folder.Path(),
                                    {{TEffect::ComesLate, 0, {TCall::Create}, false, 2, write},
                                     {TEffect::Fails, ENOSPC, {TCall::Rename}}});
    Save("btnSaveSpec", target);
    EXPECT_EQ(dialogs.messages.size(), 1);
    EXPECT_EQ(GetFile(target), others);
}

TEST_F(TFailedSpec, LeavesAnEmptyFileThatWasThere) {
    const fs::path target = MakeText("B.SPC", "");
    dialogs.answers = {TAnswer::Yes};
    dialogs.inputs = {"Label"};
    const TFaultInjection injection(folder.Path(), {{TEffect::Fails, ENOSPC, {TCall::Rename}}});
    Save("btnSaveSpec", target);
    EXPECT_EQ(dialogs.messages.size(), 1);
    EXPECT_EQ(GetFile(target), TBytes());
}

} // namespace
