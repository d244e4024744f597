// The state of the work at the right end of the bottom line: it follows each action at once, and
// its list says the same in words. The texts in all their forms are tested with the texts
// themselves.
#include "pages/OffsetDialog.h"
#include "pages/WindowFixture.h"
#include "spec/StateButton.h"

#include <QAction>
#include <QCheckBox>
#include <QMenu>
#include <QSpinBox>
#include <QStatusBar>

namespace {
class TStateTest : public TWindowTest {
protected:
    /// The whole line, with "!" in front while it warns.
    std::string State() {
        const bool warns = !button.icon().isNull();
        EXPECT_EQ(button.font().bold(), warns);
        return (warns ? "!" : "") + button.accessibleName().mid(7).toStdString(); // "State: "
    }
    QStringList List() {
        QStringList texts;
        for (const QAction *item : button.list->actions())
            texts << item->text();
        return texts;
    }

    TStateButton &button = FindControl<TStateButton>(window, "btnState");
};

TEST_F(TStateTest, IsThatOfNoImageAtFirst) {
    EXPECT_EQ(State(), "no image");
    EXPECT_EQ(button.window(), &window);
    EXPECT_TRUE(button.isVisible());
    EXPECT_EQ(button.text(), "no image");
}

TEST_F(TStateTest, FollowsALoadAChoiceAndASave) {
    MakeSpec("A.SPC");
    Load(MakeImage("A.BIN"));
    EXPECT_EQ(State(), "no mapping");
    Choose(0);
    EXPECT_EQ(State(), "spec A.SPC");
    Enter(fuelTab);
    Type(fuelTab, "grdPTMap", 1, 1, "77");
    EXPECT_EQ(State(), "Fuel PT edited · spec A.SPC");
    Click(fuelTab, "btnSavePT");
    EXPECT_EQ(State(), "1 byte not saved · spec A.SPC");
    Enter(romTab);
    dialogs.saves = {QString::fromStdString((folder / "B.BIN").string())};
    Click(romTab, "btnSave");
    EXPECT_EQ(State(), "spec A.SPC");
}

TEST_F(TStateTest, NamesWhatIsEditedMapByMap) {
    LoadAndPlace();
    Enter(fuelTab);
    Type(fuelTab, "grdPTMap", 1, 1, "77");
    Type(fuelTab, "grdFTMap", 1, 1, "78");
    EXPECT_EQ(State(), "Fuel PT, Fuel WOT edited · spec A.SPC");
    Click(fuelTab, "btnResetFT");
    EXPECT_EQ(State(), "Fuel PT edited · spec A.SPC");
    On<QSpinBox>(fuelTab, "spnRevLimiter").stepUp();
    EXPECT_EQ(State(), "Fuel PT, Max RPM edited · spec A.SPC");
    dialogs.answers = {TAnswer::No};
    Enter(timingTab);
    EXPECT_EQ(State(), "spec A.SPC") << "No has dropped them";
    Type(timingTab, "grdIdMap", 2, 1, "9");
    EXPECT_EQ(State(), "Timing Idle edited · spec A.SPC");
    dialogs.answers = {TAnswer::Yes};
    Enter(romTab);
    EXPECT_EQ(State(), "1 byte not saved · spec A.SPC");
}

TEST_F(TStateTest, FollowsUndoAndRedo) {
    LoadAndPlace();
    Enter(fuelTab);
    Type(fuelTab, "grdPTMap", 1, 1, "77");
    Click(fuelTab, "btnSavePT");
    On<QAction>(fuelTab, "actUndo").trigger();
    EXPECT_EQ(State(), "Fuel PT edited · spec A.SPC");
    On<QAction>(fuelTab, "actUndo").trigger();
    EXPECT_EQ(State(), "spec A.SPC");
    On<QAction>(fuelTab, "actRedo").trigger();
    On<QAction>(fuelTab, "actRedo").trigger();
    EXPECT_EQ(State(), "1 byte not saved · spec A.SPC");
}

TEST_F(TStateTest, TellsOfACommittedRevLimiterUntilItIsSaved) {
    LoadAndPlace();
    Enter(fuelTab);
    On<QSpinBox>(fuelTab, "spnRevLimiter").stepUp();
    Click(fuelTab, "btnSaverev");
    EXPECT_EQ(State(), "Max RPM not saved · spec A.SPC");
    Enter(romTab);
    dialogs.saves = {QString::fromStdString((folder / "B.BIN").string())};
    On<QPushButton>(romTab, "btnSave").setEnabled(true);
    Click(romTab, "btnSave");
    EXPECT_EQ(State(), "spec A.SPC");
}

TEST_F(TStateTest, WarnsOfZerosUntilAMappingIsChosen) {
    LoadAndPlace();
    Load(MakeImage("OTHER.BIN", 2));
    // 2 x 12 cells of part throttle, 4 x 4 of the others.
    EXPECT_EQ(State(), "!no mapping: would save 40 zeros");
    EXPECT_EQ(List(), QStringList("No mapping chosen: Save ROM would write 40 zeros"));
    EXPECT_FALSE(button.list->actions()[0]->icon().isNull());
    Choose(0);
    EXPECT_EQ(State(), "spec A.SPC");
}

TEST_F(TStateTest, TheZerosGoWhereAPageHasReadItsMapsAnew) {
    LoadAndPlace();
    Load(MakeImage("OTHER.BIN", 2));
    Enter(fuelTab);
    EXPECT_EQ(State(), "!no mapping: would save 20 zeros");
    Enter(timingTab);
    EXPECT_EQ(State(), "no mapping");
}

TEST_F(TStateTest, TheZerosAreThoseThatASaveThenWrites) {
    LoadAndPlace();
    Load(MakeImage("OTHER.BIN", 2));
    dialogs.saves = {QString::fromStdString((folder / "B.BIN").string())};
    const TBytes before = Get(0, Image().size);
    ROMPage().SaveROM();
    const TBytes after = Get(0, Image().size);
    int zeros = 0;
    for (std::size_t i = 0; i < before.size(); ++i)
        zeros += before[i] != 0 && after[i] == 0;
    EXPECT_EQ(zeros, 40);
}

TEST_F(TStateTest, WarnsOfAPastedMapThatWasNotCommitted) {
    LoadAndPlace();
    Enter(fuelTab);
    On<QAction>(fuelTab, "Copy2").trigger();
    Type(fuelTab, "grdIdMap", 1, 1, "50");
    Click(fuelTab, "btnSaveIdle");
    On<QAction>(fuelTab, "Paste2").trigger();
    EXPECT_EQ(State(), "Fuel Idle edited · 1 byte not saved · spec A.SPC");
    dialogs.answers = {TAnswer::No};
    Enter(romTab);
    EXPECT_EQ(State(), "!would save 1 uncommitted cell · 1 byte not saved · spec A.SPC");
}

TEST_F(TStateTest, WarnsOfASpecFileOfAnotherFolder) {
    LoadAndPlace();
    std::filesystem::create_directory(folder / "elsewhere");
    Enter(fuelTab);
    Type(fuelTab, "grdPTMap", 1, 1, "77");
    Click(fuelTab, "btnSavePT");
    Enter(romTab);
    dialogs.saves = {QString::fromStdString((folder / "elsewhere" / "C.BIN").string())};
    Click(romTab, "btnSave");
    EXPECT_EQ(State(), "!spec of another folder · spec A.SPC");
    EXPECT_EQ(List().first().toStdString(),
              "The spec file is of another folder than the image: " + folder.Path().string());
}

TEST_F(TStateTest, IsManualOnlyWhenTheOffsetsWereTaken) {
    LoadAndPlace();
    {
        const TInOffsetDialog dialog([](TfrmOffsetEntry &form) { TInOffsetDialog::Cancel(form); });
        Choose(1);
    }
    EXPECT_EQ(State(), "spec A.SPC") << "which still says where the maps are";
    {
        const TInOffsetDialog dialog([](TfrmOffsetEntry &form) { form.btnOK->click(); });
        Choose(1);
    }
    EXPECT_EQ(State(), "!would save 40 uncommitted cells · manual");
}

TEST_F(TStateTest, FollowsAMapThatIsMoved) {
    LoadAndPlace();
    Load(MakeImage("OTHER.BIN", 2));
    Enter(contentsTab);
    On<TStringAlignGrid>(contentsTab, "grdFile").SetCurrent(1, 0x101);
    On<QAction>(contentsTab, "Fuel1").trigger();
    EXPECT_EQ(State(), "!no mapping: would save 20 zeros") << "the fuel maps were read anew";
}

TEST_F(TStateTest, AnErrorOnTheWayIsFollowedToo) {
    LoadAndPlace();
    std::ofstream(folder / "A.SPC", std::ios::app) << "[Main]\ntiming_divider=junk\n";
    Enter(fuelTab);
    Type(fuelTab, "grdPTMap", 1, 1, "77");
    Click(fuelTab, "btnSavePT");
    Enter(romTab);
    Choose(0);
    EXPECT_EQ(dialogs.messages.size(), 1);
    // The maps were read before the image was.
    EXPECT_EQ(State(), "!would save 1 uncommitted cell · spec A.SPC");
    Enter(fuelTab);
    EXPECT_EQ(State(), "spec A.SPC");
}

TEST_F(TStateTest, AClickOpensTheListAndAnItemLeadsToItsPage) {
    LoadAndPlace();
    Enter(fuelTab);
    Type(fuelTab, "grdPTMap", 1, 1, "77");
    QTest::mouseClick(&button, Qt::LeftButton);
    ASSERT_TRUE(button.list->isVisible());
    EXPECT_LT(button.list->y(), button.mapToGlobal(QPoint()).y());
    EXPECT_EQ(List(),
              (QStringList{"Edited and not committed: Fuel PT", "Spec file in force: A.SPC"}));
    QTest::keyClick(button.list, Qt::Key_Return);
    EXPECT_EQ(Current(), fuelTab);
    EXPECT_EQ(dialogs.questions, QStringList());
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(button.list, Qt::Key_Down);
    dialogs.answers = {TAnswer::Yes};
    QTest::keyClick(button.list, Qt::Key_Return);
    EXPECT_EQ(Current(), romTab) << "as by its tab";
    EXPECT_EQ(dialogs.questions, QStringList("Commit Changes?"));
}

TEST_F(TStateTest, F9OpensTheListAndEscapeClosesIt) {
    LoadAndPlace();
    Enter(fuelTab);
    On<TStringAlignGrid>(fuelTab, "grdPTMap").setFocus();
    Press(Qt::Key_F9);
    EXPECT_TRUE(button.list->isVisible());
    QTest::keyClick(button.list, Qt::Key_Escape);
    EXPECT_FALSE(button.list->isVisible());
    EXPECT_TRUE(On<TStringAlignGrid>(fuelTab, "grdPTMap").hasFocus());
}

TEST_F(TStateTest, ScreenReadersAndTheToolTipHaveTheWholeOfIt) {
    LoadAndPlace();
    Load(MakeImage("OTHER.BIN", 2));
    EXPECT_EQ(button.accessibleName(), "State: no mapping: would save 40 zeros");
    EXPECT_EQ(button.accessibleDescription(), "No mapping chosen: Save ROM would write 40 zeros");
    EXPECT_EQ(button.toolTip(), "No mapping chosen: Save ROM would write 40 zeros");
}

TEST_F(TStateTest, ALongLineIsCutAndNeverWidensTheWindow) {
    const int least = window.minimumSizeHint().width();
    button.ShowState({{std::string(200, 'm'), "A sentence"}});
    QApplication::processEvents();
    EXPECT_TRUE(button.text().endsWith(QChar(0x2026)));
    EXPECT_LT(button.width(), window.width() / 2);
    EXPECT_EQ(button.accessibleName(), "State: " + QString(200, 'm'));
    EXPECT_LE(window.minimumSizeHint().width(), least);
    button.ShowState({{"a&b", "A & B"}});
    QApplication::processEvents();
    EXPECT_EQ(button.text(), "a&&b");
    EXPECT_EQ(List(), QStringList("A && B"));
}
} // namespace
