// Leaving work behind: other images over changed maps, other tabs and the end of the program with
// edits that are not committed.
#include "DialogScript.h"
#include "Session.h"

#include <QMessageBox>
#include <QTabWidget>
#include <QTest>

namespace {
constexpr int idleBody = 0x6100 + 18; // of the fuel map

class TLeaveTest : public testing::Test {
protected:
    void SetUp() override {
        session.LoadAndChoose("FERRO32K.BIN", byOffsets);
        session.SelectTab("Fuel Maps");
    }
    void EditIdle() { session.Type(fuelPage, TMapKind::Idle, {1, 1}, "9"); }
    int InImage(int offset) { return ROMImage()->Peek(offset); }
    QStringList &Questions() { return session.dialogs.questions; }
    int CurrentTab() {
        return FindControl<QTabWidget>(*session.window, "PageControl1").currentIndex();
    }

    TSession session;
    TBytes original = session.WriteSamples();
};

TEST_F(TLeaveTest, AnotherTabWithUncommittedEditsCommitsOnYes) {
    EditIdle();
    session.dialogs.answers = {TAnswer::Yes};
    session.SelectTab("Timing Maps");
    EXPECT_EQ(Questions(), QStringList{"Commit Changes?"});
    EXPECT_EQ(session.dialogs.insisting, Questions());
    EXPECT_EQ(InImage(idleBody), 9);
    Put(original, idleBody, 9);
    session.SaveAs("edited.BIN");
    EXPECT_EQ(Differences(original, session.Read("edited.BIN")), "");
}

TEST_F(TLeaveTest, AnotherTabWithUncommittedEditsDropsThemOnNo) {
    EditIdle();
    session.dialogs.answers = {TAnswer::No};
    session.SelectTab("Timing Maps");
    EXPECT_EQ(InImage(idleBody), original[idleBody]);
    session.SelectTab("Fuel Maps");
    EXPECT_EQ(session.Grid(fuelPage, TMapKind::Idle).Cell(1, 1),
              QString::number(original[idleBody]));
    session.SelectTab("ROM Information"); // asks nothing: the page shows the image again
    EXPECT_EQ(Questions(), QStringList{"Commit Changes?"});
    EXPECT_FALSE(session.MayClick(romPage, "btnSave"));
}

TEST_F(TLeaveTest, AnEditThatIsStillOpenCountsAsTyped) {
    TStringAlignGrid &grid = session.Grid(fuelPage, TMapKind::WOT);
    grid.SetCurrent(2, 1);
    QTest::keyClicks(grid.viewport(), "4");
    ASSERT_TRUE(grid.IsEditing());
    session.dialogs.answers = {TAnswer::Yes};
    session.SelectTab("ROM Information");
    Put(original, 0x6140 + 18 + 1, 4);
    session.SaveAs("edited.BIN");
    EXPECT_EQ(Differences(original, session.Read("edited.BIN")), "");
}

TEST_F(TLeaveTest, ClosingTheWindowWithUncommittedEditsCommitsOnYes) {
    EditIdle();
    session.dialogs.answers = {TAnswer::Yes};
    EXPECT_TRUE(session.window->close());
    EXPECT_EQ(Questions(), QStringList{"Commit Changes?"});
    EXPECT_FALSE(session.window->isVisible());
    EXPECT_EQ(InImage(idleBody), 9);
    // The file is written by "Save ROM" only.
    EXPECT_EQ(Differences(original, session.Read("FERRO32K.BIN")), "");
}

TEST_F(TLeaveTest, ClosingTheWindowWithUncommittedEditsDropsThemOnNo) {
    EditIdle();
    session.dialogs.answers = {TAnswer::No};
    EXPECT_TRUE(session.window->close());
    EXPECT_EQ(Questions(), QStringList{"Commit Changes?"});
    EXPECT_EQ(InImage(idleBody), original[idleBody]);
    EXPECT_EQ(Differences(original, session.Read("FERRO32K.BIN")), "");
}

TEST_F(TLeaveTest, ClosingAPageWithUncommittedEditsAsksAndShowsTheNextOne) {
    EditIdle();
    session.dialogs.answers = {TAnswer::Yes};
    session.Click(fuelPage, "btnClose");
    QTest::qWait(0);
    EXPECT_EQ(Questions(), QStringList{"Commit Changes?"});
    EXPECT_EQ(InImage(idleBody), 9);
    EXPECT_FALSE(session.window->findChild<QWidget *>(fuelPage));
    EXPECT_EQ(CurrentTab(), 1);
    EXPECT_EQ(session.Grid(timingPage, TMapKind::PT).ColCount(), 17);
    EXPECT_TRUE(session.window->close());
}

TEST_F(TLeaveTest, AnotherImageOverUnchangedMapsAsksNothing) {
    EditIdle();
    session.Commit(fuelPage, TMapKind::Idle); // committed: the image differs, the maps do not
    session.SelectTab("ROM Information");
    session.Load("FERRO64K.BIN");
    EXPECT_TRUE(Questions().empty());
    EXPECT_EQ(ROMImage()->size, 0x10000);
}

/// Escape, the window's X and a second try to end the program are no answers.
class TRealQuestionTest : public TLeaveTest,
                          public testing::WithParamInterface<QMessageBox::StandardButton> {};

TEST_P(TRealQuestionTest, OnlyAButtonAnswersAtTheEnd) {
    EditIdle();
    TDialogScript script;
    script.Then<QMessageBox>([&](QMessageBox &box) {
        EXPECT_EQ(box.text(), "Commit Changes?");
        QTest::keyClick(&box, Qt::Key_Escape);
        EXPECT_FALSE(box.close());
        session.window->close();
        EXPECT_TRUE(box.isVisible());
        EXPECT_TRUE(session.window->isVisible());
        EXPECT_EQ(InImage(idleBody), original[idleBody]) << "not answered yet";
        box.button(GetParam())->click();
    });
    EXPECT_TRUE(session.window->close());
    EXPECT_FALSE(session.window->isVisible());
    EXPECT_EQ(InImage(idleBody), GetParam() == QMessageBox::Yes ? 9 : original[idleBody]);
}

INSTANTIATE_TEST_SUITE_P(Buttons, TRealQuestionTest,
                         testing::Values(QMessageBox::Yes, QMessageBox::No));

/// A rev limiter taken over but not yet saved is what leaves a map set changed.
class TChangedMapsTest : public TLeaveTest {
protected:
    void SetUp() override {
        TLeaveTest::SetUp();
        session.TypeRevLimiter(4000);
        session.Click(fuelPage, "btnSaverev");
        session.SelectTab("ROM Information");
    }
};

TEST_F(TChangedMapsTest, YesSavesThenLoads) {
    Put(original, 0x1F0, 100);
    session.dialogs.answers = {TAnswer::Yes};
    session.dialogs.saves = {QString::fromStdString((session.folder / "kept.BIN").string())};
    session.Load("FERRO64K.BIN");
    EXPECT_EQ(Questions(), QStringList{"Save Changes?"});
    EXPECT_EQ(Differences(original, session.Read("kept.BIN")), "");
    EXPECT_EQ(ROMImage()->size, 0x10000);
}

TEST_F(TChangedMapsTest, YesAndACancelledSaveLoadsNothing) {
    session.dialogs.answers = {TAnswer::Yes};
    session.dialogs.saves = {QString()};
    session.Click(romPage, "btnLoad");
    EXPECT_EQ(Questions(), QStringList{"Save Changes?"});
    EXPECT_EQ(session.dialogs.messages, QStringList{"Save unsuccessful"});
    EXPECT_EQ(session.dialogs.openDialogs.size(), 1); // that of the first image
    EXPECT_EQ(ROMImage()->size, 0x8000);
}

TEST_F(TChangedMapsTest, YesAndADeclinedOverwriteLoadsNothing) {
    session.dialogs.answers = {TAnswer::Yes, TAnswer::No};
    session.dialogs.saves = {QString::fromStdString((session.folder / "FERRO32K.BIN").string())};
    session.Click(romPage, "btnLoad");
    EXPECT_EQ(Questions(), (QStringList{"Save Changes?", "Overwrite existing file?"}));
    EXPECT_EQ(session.dialogs.insisting, QStringList{"Save Changes?"});
    EXPECT_EQ(session.dialogs.messages, QStringList{"Save unsuccessful"});
    EXPECT_EQ(Differences(original, session.Read("FERRO32K.BIN")), "");
}

TEST_F(TChangedMapsTest, NoLoadsOverThem) {
    session.dialogs.answers = {TAnswer::No};
    session.Load("FERRO64K.BIN");
    EXPECT_EQ(ROMImage()->size, 0x10000);
    EXPECT_EQ(Differences(original, session.Read("FERRO32K.BIN")), "");
}

TEST_F(TLeaveTest, ACancelledLoadDialogReloadsTheFile) {
    EditIdle();
    session.Commit(fuelPage, TMapKind::Idle);
    session.SelectTab("ROM Information");
    session.dialogs.opens = {QString()};
    session.Click(romPage, "btnLoad");
    EXPECT_EQ(InImage(idleBody), original[idleBody]);
    EXPECT_EQ(session.window->windowTitle().toStdString(),
              "Ferrolyn - " + (session.folder / "FERRO32K.BIN").string());
}
} // namespace
