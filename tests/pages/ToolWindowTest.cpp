// The bulk adjust window on a fuel page inside a main window: its controls, the state behind them,
// and what "Go" does to the page's grids.
#include "pages/ToolWindowFixture.h"

#include <QApplication>

namespace {
TEST_F(TToolWindowTest, SaysItsSentence) {
    EXPECT_EQ(Tool().windowTitle(), "Tools");
    EXPECT_EQ(Tool().objectName(), "frmToolWindow");
    EXPECT_EQ(Group("rdoOperation").title(), "&Operation");
    EXPECT_EQ(Group("rdoRange").title(), "&Range");
    EXPECT_EQ(Group("rdoScale").title(), "&Scale");
    EXPECT_EQ(Group("rdoDataset").title(), "&Data Set");
    EXPECT_EQ(Items("rdoOperation"), (QStringList{"Add", "Subtract"}));
    EXPECT_EQ(Items("rdoRange"), (QStringList{"All", "Row", "Column"}));
    EXPECT_EQ(Items("rdoScale"), (QStringList{"Units", "Percent"}));
    EXPECT_EQ(Items("rdoDataset"), (QStringList{"Part Throttle", "Idle", "Full Throttle"}));
    EXPECT_EQ(Its<QLabel>("Label1").text(), "of");
    EXPECT_EQ(Its<QPushButton>("btnExec").text(), "&Go");
    EXPECT_EQ(Its<QPushButton>("Button2").text(), "&Undo");
    EXPECT_FALSE(Its<QPushButton>("Button2").isVisible());
}

TEST_F(TToolWindowTest, Defaults) {
    EXPECT_EQ(Tool().Sign, 1);
    EXPECT_EQ(Tool().Scale, 0);
    EXPECT_EQ(Tool().Range, 0);
    EXPECT_EQ(Tool().DataSet, 0);
    EXPECT_EQ(Tool().Amount, 0);
    for (const char *group : {"rdoOperation", "rdoRange", "rdoScale", "rdoDataset"})
        EXPECT_EQ(Group(group).ItemIndex(), 0) << group;
    EXPECT_EQ(Amount().text(), "0");
    EXPECT_EQ(Its<QLabel>("lblfromto").text(), "to");
}

TEST_F(TToolWindowTest, TheWordIsFromUntilItIsShown) {
    page->QueryClose();
    page->ShowPage();
    EXPECT_EQ(Its<QLabel>("lblfromto").text(), "from");
    Click("btnRecalculate");
    EXPECT_EQ(Its<QLabel>("lblfromto").text(), "to");
}

TEST_F(TToolWindowTest, ShowingThePageAgainGivesTheDefaults) {
    Pick("rdoOperation", 1);
    Pick("rdoScale", 1);
    Pick("rdoRange", 2);
    Pick("rdoDataset", 2);
    Enter("12");
    const QPointer<TfrmToolWindow> old = &Tool();
    page->QueryClose();
    EXPECT_FALSE(old);
    EXPECT_FALSE(page->ToolWindow);
    page->ShowPage();
    EXPECT_FALSE(Tool().isVisible());
    Click("btnRecalculate");
    EXPECT_EQ(Tool().Sign, 1);
    EXPECT_EQ(Tool().Scale, 0);
    EXPECT_EQ(Tool().Range, 0);
    EXPECT_EQ(Tool().DataSet, 0);
    EXPECT_EQ(Tool().Amount, 0);
    EXPECT_EQ(Amount().text(), "0");
    EXPECT_EQ(Group("rdoRange").ItemIndex(), 0);
}

TEST_F(TToolWindowTest, HidingAndShowingItKeepsTheSettings) {
    Pick("rdoOperation", 1);
    Pick("rdoRange", 2);
    Enter("12");
    Click("btnRecalculate");
    EXPECT_FALSE(Tool().isVisible());
    Click("btnRecalculate");
    EXPECT_TRUE(Tool().isVisible());
    EXPECT_EQ(Tool().Sign, -1);
    EXPECT_EQ(Tool().Range, 2);
    EXPECT_EQ(Tool().Amount, 12);
    EXPECT_EQ(Amount().text(), "12");
}

TEST_F(TToolWindowTest, OperationSetsSignAndWord) {
    Pick("rdoOperation", 1);
    EXPECT_EQ(Tool().Sign, -1);
    EXPECT_EQ(Its<QLabel>("lblfromto").text(), "from");
    Pick("rdoOperation", 0);
    EXPECT_EQ(Tool().Sign, 1);
    EXPECT_EQ(Its<QLabel>("lblfromto").text(), "to");
    Group("rdoOperation").SetItemIndex(-1);
    Tool().rdoOperationClick();
    EXPECT_EQ(Tool().Sign, 1) << "anything but the second item adds";
}

TEST_F(TToolWindowTest, ScaleAndRangeFollowTheirGroups) {
    Pick("rdoScale", 1);
    EXPECT_EQ(Tool().Scale, 1);
    for (const int item : {1, 2, 0}) {
        Pick("rdoRange", item);
        EXPECT_EQ(Tool().Range, item);
    }
}

TEST_F(TToolWindowTest, IdleAndFullThrottleForceRowAndComingBackLeavesIt) {
    for (const int dataset : {1, 2}) {
        Pick("rdoDataset", 0);
        Pick("rdoRange", 2);
        Pick("rdoDataset", dataset);
        EXPECT_EQ(Tool().DataSet, dataset);
        EXPECT_EQ(Tool().Range, 1);
        EXPECT_EQ(Group("rdoRange").ItemIndex(), 1);
        for (const int range : {0, 2, 1}) {
            Pick("rdoRange", range);
            EXPECT_EQ(Tool().Range, 1);
            EXPECT_EQ(Group("rdoRange").ItemIndex(), 1);
        }
        Pick("rdoDataset", 0);
        EXPECT_EQ(Tool().Range, 1);
        EXPECT_EQ(Group("rdoRange").ItemIndex(), 1);
        Pick("rdoRange", 0);
        EXPECT_EQ(Tool().Range, 0);
    }
}

struct TAmountCase {
    const char *text;
    int amount;
    const char *canonical;
};
class TAmountTest : public TToolWindowTest, public testing::WithParamInterface<TAmountCase> {};

TEST_P(TAmountTest, IsReadAndWrittenBackWhenItIsLeft) {
    Enter(GetParam().text);
    EXPECT_EQ(Tool().Amount, GetParam().amount);
    EXPECT_EQ(Amount().text(), GetParam().canonical);
    EXPECT_TRUE(dialogs.messages.empty());
}
INSTANTIATE_TEST_SUITE_P(Texts, TAmountTest,
                         testing::Values(TAmountCase{"007", 7, "7"}, TAmountCase{"7", 7, "7"},
                                         TAmountCase{"-05", -5, "-5"}, TAmountCase{" 3", 3, "3"},
                                         TAmountCase{"+3", 3, "3"}, TAmountCase{"-0", 0, "0"},
                                         TAmountCase{"2147483647", 2147483647, "2147483647"},
                                         TAmountCase{"-2147483648", -2147483647 - 1,
                                                     "-2147483648"}));

class TBadAmountTest : public TToolWindowTest, public testing::WithParamInterface<const char *> {};

TEST_P(TBadAmountTest, IsSaidOnceAndThePreviousAmountStays) {
    Enter("4");
    Enter(GetParam());
    EXPECT_EQ(dialogs.messages,
              QStringList{QString("'%1' is not a valid integer value").arg(GetParam())});
    EXPECT_EQ(Tool().Amount, 4);
    EXPECT_EQ(Amount().text(), GetParam());
    Go();
    EXPECT_EQ(RowTexts("grdPTMap", 1), (QStringList{"5", "8", "11", "14"}));
}
INSTANTIATE_TEST_SUITE_P(Texts, TBadAmountTest,
                         testing::Values("abc", "1.5", "1,5", "5%", "2147483648", "1e2"));

TEST_F(TToolWindowTest, AnEmptyAmountIsSaid) {
    Activate(Tool());
    Amount().setFocus();
    Amount().clear();
    QTest::keyClick(&Amount(), Qt::Key_Tab);
    EXPECT_EQ(dialogs.messages, QStringList{"'' is not a valid integer value"});
}

TEST_F(TToolWindowTest, TheAmountIsLeftBeforeGoHoweverGoIsPressed) {
    Activate(Tool());
    Amount().setFocus();
    Amount().setText("5");
    QTest::mouseClick(&Its<QPushButton>("btnExec"), Qt::LeftButton);
    EXPECT_EQ(Grid("grdPTMap").Cell(1, 1), "6");
    Amount().setFocus();
    Amount().setText("10");
    Its<QPushButton>("btnExec").click(); // as the shortcut does, which moves no focus
    EXPECT_EQ(Grid("grdPTMap").Cell(1, 1), "16");
    EXPECT_EQ(Tool().Amount, 10);
}

TEST_F(TToolWindowTest, AnotherWindowDoesNotEndTheAmount) {
    Activate(Tool());
    Amount().setFocus();
    Amount().setText("abc");
    host.activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([this] { return QApplication::activeWindow() == &host; }));
    EXPECT_NE(QApplication::focusWidget(), &Amount());
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(TToolWindowTest, AllChangesEveryBodyCell) {
    Enter("5");
    Go();
    EXPECT_EQ(RowTexts("grdPTMap", 1), (QStringList{"6", "9", "12", "15"}));
    EXPECT_EQ(RowTexts("grdPTMap", 2), (QStringList{"7", "10", "13", "16"}));
    EXPECT_EQ(RowTexts("grdPTMap", 3), (QStringList{"8", "11", "14", "17"}));
    EXPECT_EQ(RowTexts("grdPTMap", 0), (QStringList{"2400", "4800", "7200", "9600"}));
    EXPECT_EQ(Colors("grdPTMap"), "..... .bbbb .bbbb .bbbb");
    ExpectFlags(true, false, false);
    EXPECT_EQ(BodyByte(TMapKind::PT, 0), 1) << "only the commit writes";
    EXPECT_FALSE(workspace.fuelMapSet.IsModified());
    EXPECT_FALSE(page->DataChanged) << "so does the flag of the image";
    Click("btnSavePT");
    EXPECT_TRUE(page->DataChanged);
    EXPECT_EQ(BodyByte(TMapKind::PT, 0), 6);
    EXPECT_EQ(BodyByte(TMapKind::PT, 11), 17);
}

TEST_F(TToolWindowTest, RowChangesTheCurrentRow) {
    Pick("rdoRange", 1);
    Enter("5");
    Grid("grdPTMap").SetCurrent(2, 3);
    Go();
    EXPECT_EQ(RowTexts("grdPTMap", 3), (QStringList{"8", "11", "14", "17"}));
    EXPECT_EQ(Colors("grdPTMap"), "..... ..... ..... .bbbb");
}

TEST_F(TToolWindowTest, ColumnChangesTheCurrentColumn) {
    Pick("rdoRange", 2);
    Pick("rdoOperation", 1);
    Enter("5");
    Grid("grdPTMap").SetCurrent(4, 2);
    Go();
    EXPECT_EQ(RowTexts("grdPTMap", 1), (QStringList{"1", "4", "7", "5"}));
    EXPECT_EQ(RowTexts("grdPTMap", 2), (QStringList{"2", "5", "8", "6"}));
    EXPECT_EQ(Colors("grdPTMap"), "..... ....b ....b ....b");
}

TEST_F(TToolWindowTest, AHeaderRowCountsAfterUnlockAxis) {
    Choose("UnlockAxis1");
    Pick("rdoRange", 1);
    Enter("40");
    Grid("grdPTMap").SetCurrent(2, 0);
    Go();
    EXPECT_EQ(RowTexts("grdPTMap", 0), (QStringList{"2440", "4840", "7240", "9640"}));
    EXPECT_EQ(Colors("grdPTMap"), ".bbbb ..... ..... .....");
    Click("btnSavePT");
    EXPECT_EQ(RowTexts("grdPTMap", 0), (QStringList{"2440", "4840", "7240", "9640"}));
    EXPECT_EQ(workspace.fuelMapSet.PTMap->axes->rpmAxis->values->GetItem(0, 0)->raw, 61);
}

TEST_F(TToolWindowTest, AHeaderColumnCountsAfterUnlockAxisAndIsNoNumber) {
    Choose("UnlockAxis1");
    Pick("rdoRange", 2);
    Enter("1");
    Grid("grdPTMap").SetCurrent(0, 1);
    Go();
    EXPECT_EQ(Grid("grdPTMap").Cell(0, 1), "20%");
    EXPECT_EQ(Colors("grdPTMap"), "..... r.... r.... r....");
    ExpectFlags(true, false, false);
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(TToolWindowTest, IdleAndFullThrottleChangeTheirOneRowAndTheirOwnFlag) {
    Enter("5");
    Pick("rdoDataset", 1);
    Go();
    EXPECT_EQ(RowTexts("grdIdMap", 1), (QStringList{"6", "7", "8", "9"}));
    EXPECT_EQ(Colors("grdIdMap"), "..... .bbbb");
    ExpectFlags(false, true, false);
    Pick("rdoDataset", 2);
    Go();
    EXPECT_EQ(RowTexts("grdFTMap", 1), (QStringList{"6", "7", "8", "9"}));
    ExpectFlags(false, true, true);
    EXPECT_EQ(Colors("grdPTMap"), "..... ..... ..... .....");
}

TEST_F(TToolWindowTest, IdleIgnoresTheSelectionAlsoWhenItIsInTheUnlockedHeader) {
    Choose("UnlockAxis2");
    Pick("rdoDataset", 1);
    Enter("5");
    Grid("grdIdMap").SetCurrent(3, 0);
    Go();
    EXPECT_EQ(Colors("grdIdMap"), "..... .bbbb");
}

TEST_F(TToolWindowTest, PercentChangesByRoundedHundredths) {
    for (int column = 1; column < 5; ++column)
        Grid("grdIdMap").SetCell(column, 1, QStringList{"15", "25", "1", "200"}[column - 1]);
    Pick("rdoDataset", 1);
    Pick("rdoOperation", 1);
    Pick("rdoScale", 1);
    Enter("10");
    Go();
    EXPECT_EQ(RowTexts("grdIdMap", 1), (QStringList{"13", "23", "1", "180"}));
}

TEST_F(TToolWindowTest, Amount0ReformatsMarksAndFlags) {
    Grid("grdPTMap").SetCell(1, 1, "01.0");
    Go();
    EXPECT_EQ(RowTexts("grdPTMap", 1), (QStringList{"1", "4", "7", "10"}));
    EXPECT_EQ(Colors("grdPTMap"), "..... .bbbb .bbbb .bbbb");
    ExpectFlags(true, false, false);
}

TEST_F(TToolWindowTest, TheFlagIsSetAlsoWhenNoCellCanBeRead) {
    for (int column = 1; column < 5; ++column)
        Grid("grdFTMap").SetCell(column, 1, "x");
    Pick("rdoDataset", 2);
    Go();
    EXPECT_EQ(Colors("grdFTMap"), "..... .rrrr");
    EXPECT_EQ(RowTexts("grdFTMap", 1), (QStringList{"x", "x", "x", "x"}));
    ExpectFlags(false, false, true);
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(TToolWindowTest, TheFlagIsSetAlsoOfAMapThatIsNotShown) {
    PutMap(0x4000, TBytes(32, 1), {100, 0});
    workspace.fuelMapSet.PTMap->SetOffset(0x4000);
    page->LoadPTMap();
    for (const int range : {0, 1, 2}) {
        page->PTChanged = false;
        Pick("rdoRange", range);
        Go();
        ExpectFlags(true, false, false);
    }
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(TToolWindowTest, RedCellsAreLeftOutOfTheCommit) {
    Grid("grdIdMap").SetCell(2, 1, "x");
    Pick("rdoDataset", 1);
    Enter("5");
    Go();
    EXPECT_EQ(Colors("grdIdMap"), "..... .brbb");
    Click("btnSaveIdle");
    EXPECT_EQ(BodyByte(TMapKind::Idle, 0), 6);
    EXPECT_EQ(BodyByte(TMapKind::Idle, 1), 2);
    EXPECT_EQ(Colors("grdIdMap"), "..... .....");
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(TToolWindowTest, AnEditedCellThatIsNoNumberTurnsRedOnGo) {
    Type("grdIdMap", 2, 1, "7");
    Type("grdIdMap", 2, 1, "abc");
    ASSERT_EQ(Colors("grdIdMap"), "..... ..b..") << "blue since the first of both edits";
    dialogs.messages.clear();
    Pick("rdoDataset", 1);
    Enter("5");
    Go();
    EXPECT_EQ(Colors("grdIdMap"), "..... .brbb");
    EXPECT_EQ(Grid("grdIdMap").Cell(2, 1), "abc");
    EXPECT_TRUE(dialogs.messages.empty());
    Click("btnSaveIdle");
    EXPECT_EQ(BodyByte(TMapKind::Idle, 1), 2);
}

TEST_F(TToolWindowTest, OutOfRangeResultsWrapAtTheCommit) {
    Pick("rdoDataset", 1);
    Enter("300");
    Go();
    EXPECT_EQ(RowTexts("grdIdMap", 1), (QStringList{"301", "302", "303", "304"}));
    Click("btnSaveIdle");
    EXPECT_EQ(BodyByte(TMapKind::Idle, 0), 301 - 256);
}

TEST_F(TToolWindowTest, InterpretedValuesAreWrittenInTheirOwnFormat) {
    Find<QCheckBox>("chkInterpret").click();
    Pick("rdoDataset", 1);
    Enter("1");
    Go();
    EXPECT_EQ(RowTexts("grdIdMap", 1), (QStringList{"1.01", "1.02", "1.02", "1.03"}));
}

TEST_F(TToolWindowTest, TheChartIsDrawnFromTheGrid) {
    Enter("5");
    Go();
    EXPECT_EQ(Find<TAreaChart>("chtPTMap").Series()[0].points[3].value, 17.0);
    EXPECT_EQ(Find<TAreaChart>("chtIdMap").Series()[0].points[3].value, 4.0);
}

TEST_F(TToolWindowTest, ResetIsTheWayBack) {
    Enter("5");
    Go();
    Click("btnResetPT");
    EXPECT_EQ(RowTexts("grdPTMap", 1), (QStringList{"1", "4", "7", "10"}));
    EXPECT_EQ(Colors("grdPTMap"), "..... ..... ..... .....");
    ExpectFlags(false, false, false);
}

TEST_F(TToolWindowTest, AnOpenEditIsTakenBeforeTheAdjustment) {
    Enter("5");
    BeginType("grdPTMap", 1, 1, "100");
    Go();
    EXPECT_FALSE(Grid("grdPTMap").IsEditing());
    EXPECT_EQ(Grid("grdPTMap").Cell(1, 1), "105");
}

TEST_F(TToolWindowTest, ClosingThePageAfterAnAdjustmentAsks) {
    Go();
    dialogs.answers = {TAnswer::No};
    EXPECT_TRUE(page->QueryClose());
    EXPECT_EQ(dialogs.questions, QStringList{"Commit Changes?"});
}
} // namespace
