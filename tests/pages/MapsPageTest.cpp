// The map page's own behaviour: loading, editing, commit, reset, interpretation, offsets,
// unlocking, leaving. The fuel page stands for both where they do not differ. More on edits and
// their commit: MapsEditTest.cpp.
#include "pages/MapPageFixture.h"

#include <QMenu>
#include <QScrollBar>

namespace {
using TMapsPageTest = TFuelPageTest;

TEST_F(TMapsPageTest, ShowsHeadersAndCellsWithRPMAlongTheColumns) {
    TStringAlignGrid &grid = Grid("grdPTMap");
    EXPECT_EQ(grid.ColCount(), 5);
    EXPECT_EQ(grid.RowCount(), 4);
    EXPECT_EQ(grid.Cell(1, 0), "2400");
    EXPECT_EQ(grid.Cell(4, 0), "9600");
    EXPECT_EQ(grid.Cell(0, 1), "20%");
    EXPECT_EQ(grid.Cell(0, 3), "100%");
    // The body counts up RPM by RPM, three load points each.
    EXPECT_EQ(grid.Cell(1, 1), "1");
    EXPECT_EQ(grid.Cell(1, 3), "3");
    EXPECT_EQ(grid.Cell(2, 1), "4");
    EXPECT_EQ(grid.Cell(4, 3), "12");
    EXPECT_EQ(grid.FontColor(1, 1), clWindowText);
}

TEST_F(TMapsPageTest, OneAxisMapsShowOneBodyRowUnderAFixedHeader) {
    for (const auto &[name, label] : {std::pair{"grdIdMap", "0%"}, std::pair{"grdFTMap", "100%"}}) {
        TStringAlignGrid &grid = Grid(name);
        EXPECT_EQ(grid.RowCount(), 2) << name;
        EXPECT_EQ(grid.FixedRows(), 1) << name;
        EXPECT_EQ(grid.Cell(0, 1), label) << name;
        EXPECT_EQ(grid.Cell(4, 1), "4") << name;
    }
}

TEST_F(TMapsPageTest, TitlesOffsetsAndChartTitles) {
    EXPECT_EQ(Find<QLabel>("lblPTGrid").text(), "Partial Throttle /\\ Trim Map");
    EXPECT_EQ(Find<QLabel>("lblIdGrid").text(), "Idle /\\ Trim Map");
    EXPECT_EQ(Find<QLabel>("lblFTGrid").text(), "Full Throttle /\\ Trim Map");
    EXPECT_EQ(Find<QLineEdit>("edtPTOffset").text(), "$1000");
    EXPECT_EQ(Find<QLineEdit>("edtFTOffset").text(), "$1300");
    EXPECT_EQ(Find<TAreaChart>("chtPTMap").Title(), "Partial Throttle /\\ Trim Map");
    EXPECT_EQ(Find<TAreaChart>("chtPTMap").LeftAxisTitle(), "/\\ Trim");
}

TEST_F(TMapsPageTest, ChartsStartWithTheirDesignSeriesAndAxes) {
    TfrmTimingMaps timing(nullptr, workspace, workspace.timingMapSet);
    TfrmFuelMaps fuel(nullptr, workspace, workspace.fuelMapSet);
    const struct {
        TfrmMaps &page;
        const char *depth;
    } pages[] = {{fuel, "% Load"}, {timing, "% Throttle"}};
    for (const auto &[other, depth] : pages) {
        other.Prepare();
        for (const TMapKind kind : {TMapKind::PT, TMapKind::Idle, TMapKind::WOT}) {
            const TAreaChart &chart = *other.Panel(kind).chart;
            EXPECT_EQ(chart.SeriesCount(), kind == TMapKind::PT ? 12 : 1);
            EXPECT_EQ(chart.BottomInverted(), kind == TMapKind::PT);
            EXPECT_EQ(chart.DepthTitle(), depth);
        }
    }
    EXPECT_EQ(Find<TAreaChart>("chtPTMap").SeriesCount(), 3) << "a shown map has its own";
}

TEST_F(TMapsPageTest, AnAcceptedEditIsBlueFlaggedAndCharted) {
    Type("grdPTMap", 2, 1, "77");
    EXPECT_EQ(Grid("grdPTMap").Cell(2, 1), "77");
    EXPECT_EQ(Grid("grdPTMap").FontColor(2, 1), clBlue);
    EXPECT_TRUE(page->PTChanged);
    EXPECT_FALSE(page->IdleChanged);
    EXPECT_FALSE(page->FTChanged);
    EXPECT_EQ(page->EditOldValue, 4.0L);
    // Grid row 1 is the last series.
    EXPECT_EQ(Find<TAreaChart>("chtPTMap").Series()[2].points[1].value, 77.0);
    EXPECT_EQ(Image().Peek(workspace.fuelMapSet.PTMap->data->offset + 3), 4);
}

TEST_F(TMapsPageTest, ATextThatIsNoNumberStaysUnmarkedWithTheErrorShown) {
    Type("grdPTMap", 2, 1, "abc");
    EXPECT_EQ(dialogs.messages, QStringList{"'abc' is not a valid floating point value"});
    EXPECT_EQ(Grid("grdPTMap").Cell(2, 1), "abc");
    EXPECT_EQ(Grid("grdPTMap").FontColor(2, 1), clWindowText);
    EXPECT_FALSE(page->PTChanged);
}

TEST_F(TMapsPageTest, AnEqualTextCountsAsAnEditAndIsCommitted) {
    Type("grdPTMap", 1, 1, "1");
    EXPECT_TRUE(page->PTChanged);
    Click("btnSavePT");
    EXPECT_FALSE(page->PTChanged);
    EXPECT_TRUE(page->DataChanged);
    EXPECT_TRUE(Image().modified);
}

struct TEntry {
    const char *text;
    int stored;
};
class TWrapTest : public TMapsPageTest, public testing::WithParamInterface<TEntry> {};

TEST_P(TWrapTest, CommitStoresTheLowByteOfTheRoundedValue) {
    const TBytes before = Get(0, Image().size);
    Type("grdPTMap", 2, 3, GetParam().text);
    Click("btnSavePT");
    TBytes expected = before;
    expected[static_cast<std::size_t>(workspace.fuelMapSet.PTMap->data->offset + 5)] =
        static_cast<std::uint8_t>(GetParam().stored);
    EXPECT_EQ(Get(0, Image().size), expected);
}
INSTANTIATE_TEST_SUITE_P(Entries, TWrapTest,
                         testing::Values(TEntry{"77", 77}, TEntry{"300", 44}, TEntry{"-1", 255},
                                         TEntry{"0.5", 0}, TEntry{"1.5", 2}, TEntry{"2.5", 2},
                                         TEntry{" 12 ", 12}, TEntry{"1e2", 100}));

TEST_F(TMapsPageTest, ResetTakesTheFocus) {
    for (const char *button : {"btnResetPT", "btnResetIdle", "btnResetFT"}) {
        Grid("grdPTMap").setFocus();
        Click(button);
        EXPECT_EQ(page->focusWidget(), page.get()) << button;
    }
}

TEST_F(TMapsPageTest, CommitRefillsAndTakesTheFocusAlsoOnACleanPage) {
    Grid("grdPTMap").SetCell(1, 1, "99"); // no edit: not blue
    const TBytes before = Get(0, Image().size);
    Click("btnSavePT");
    EXPECT_EQ(Grid("grdPTMap").Cell(1, 1), "1");
    EXPECT_EQ(Get(0, Image().size), before);
    EXPECT_FALSE(Image().modified);
    EXPECT_FALSE(page->DataChanged);
    EXPECT_EQ(page->focusWidget(), page.get());
}

TEST_F(TMapsPageTest, AnUnreadableBlueCellIsSkippedAtCommit) {
    Type("grdPTMap", 1, 1, "50");
    Grid("grdPTMap").SetCell(2, 1, "junk");
    Grid("grdPTMap").SetFontColor(2, 1, clBlue);
    Click("btnSavePT");
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_EQ(Image().Peek(workspace.fuelMapSet.PTMap->data->offset), 50);
    EXPECT_EQ(Image().Peek(workspace.fuelMapSet.PTMap->data->offset + 3), 4);
}

TEST_F(TMapsPageTest, AFailedCommitSaysSoAndStaysChanged) {
    page->UnlockAxis1Click();
    Grid("grdPTMap").SetCell(1, 0, "fast");
    Grid("grdPTMap").SetFontColor(1, 0, clBlue);
    page->PTChanged = true;
    Click("btnSavePT");
    EXPECT_EQ(dialogs.messages, QStringList{"Error saving new data"});
    EXPECT_TRUE(page->PTChanged);
    EXPECT_FALSE(page->DataChanged);
    EXPECT_EQ(Grid("grdPTMap").Cell(1, 0), "2400");
    EXPECT_EQ(Grid("grdPTMap").FontColor(1, 0), clWindowText);
}

TEST_F(TMapsPageTest, ResetShowsTheMapAgainWithoutReadingTheImage) {
    Type("grdIdMap", 2, 1, "66");
    Image().Poke(workspace.fuelMapSet.IdleMap->data->offset + 1, 99);
    Click("btnResetIdle");
    EXPECT_EQ(Grid("grdIdMap").Cell(2, 1), "2");
    EXPECT_EQ(Grid("grdIdMap").FontColor(2, 1), clWindowText);
    EXPECT_FALSE(page->IdleChanged);
    EXPECT_EQ(Find<TAreaChart>("chtIdMap").Series()[0].points[1].value, 2.0);
}

TEST_F(TMapsPageTest, InterpretationRefillsDropsEditsAndKeepsFlagsAndCharts) {
    Type("grdPTMap", 1, 1, "64");
    Find<QCheckBox>("chkInterpret").click();
    EXPECT_TRUE(workspace.fuelMapSet.showConverted);
    EXPECT_EQ(Grid("grdPTMap").Cell(1, 1), "0.01");
    EXPECT_EQ(Grid("grdFTMap").Cell(4, 1), "0.03");
    EXPECT_EQ(Grid("grdIdMap").Cell(0, 1), "0%");
    EXPECT_EQ(Grid("grdPTMap").FontColor(1, 1), clWindowText);
    EXPECT_TRUE(page->PTChanged);
    EXPECT_EQ(Find<TAreaChart>("chtPTMap").Series()[2].points[0].value, 64.0);
    const TBytes before = Get(0, Image().size);
    Click("btnSavePT");
    EXPECT_EQ(Get(0, Image().size), before);
}

TEST_F(TMapsPageTest, AConvertedEntryIsStoredInCounts) {
    Find<QCheckBox>("chkInterpret").click();
    Type("grdPTMap", 1, 1, "0.996");
    Click("btnSavePT");
    EXPECT_EQ(Image().Peek(workspace.fuelMapSet.PTMap->data->offset), 127);
    EXPECT_EQ(Grid("grdPTMap").Cell(1, 1), "0.99");
}

TEST_F(TMapsPageTest, ShowingAgainKeepsTheInterpretationAndTheLoadPoints) {
    Find<QCheckBox>("chkInterpret").click();
    ASSERT_TRUE(page->QueryClose());
    page->ShowPage();
    EXPECT_TRUE(Find<QCheckBox>("chkInterpret").isChecked());
    EXPECT_EQ(Grid("grdPTMap").Cell(4, 3), "0.09");
    EXPECT_EQ(Grid("grdFTMap").Cell(0, 1), "100%");
    EXPECT_EQ(Grid("grdIdMap").Cell(0, 1), "0%");
}

TEST_F(TMapsPageTest, ATypedOffsetMovesTheMapAndLocksTheBox) {
    auto &box = Find<QLineEdit>("edtPTOffset");
    EXPECT_TRUE(box.isReadOnly());
    QTest::mouseDClick(&box, Qt::LeftButton);
    EXPECT_FALSE(box.isReadOnly());
    box.setText("$2000");
    page->edtPTOffsetExit();
    EXPECT_EQ(workspace.fuelMapSet.PTMap->GetLocation(), timingPT);
    EXPECT_EQ(box.text(), "$2000");
    EXPECT_TRUE(box.isReadOnly());
}

TEST_F(TMapsPageTest, AnUnchangedOffsetLeavesTheBoxWritable) {
    auto &box = Find<QLineEdit>("edtIdOffset");
    QTest::mouseDClick(&box, Qt::LeftButton);
    box.setText("4608"); // $1200
    page->edtIdOffsetExit();
    EXPECT_FALSE(box.isReadOnly());
    EXPECT_EQ(box.text(), "4608");
}

TEST_F(TMapsPageTest, UncommittedEditsHoldTheOffset) {
    Type("grdFTMap", 1, 1, "9");
    auto &box = Find<QLineEdit>("edtFTOffset");
    QTest::mouseDClick(&box, Qt::LeftButton);
    box.setText("$2300");
    page->edtFTOffsetExit();
    EXPECT_EQ(dialogs.messages, QStringList{"You have uncommitted changes, save first"});
    EXPECT_EQ(box.text(), "$1300");
    EXPECT_TRUE(box.isReadOnly());
    EXPECT_EQ(workspace.fuelMapSet.WOTMap->GetLocation(), fuelWOT);
}

TEST_F(TMapsPageTest, AnOffsetThatIsNoIntegerIsAnError) {
    auto &box = Find<QLineEdit>("edtPTOffset");
    QTest::mouseDClick(&box, Qt::LeftButton);
    box.setText("12x");
    QTest::keyClick(&box, Qt::Key_Enter);
    EXPECT_EQ(dialogs.messages, QStringList{"'12x' is not a valid integer value"});
    EXPECT_FALSE(box.isReadOnly());
    EXPECT_EQ(workspace.fuelMapSet.PTMap->GetLocation(), fuelPT);
}

TEST_F(TMapsPageTest, UnlockedAxesAreEditedAndWritten) {
    page->UnlockAxis1Click();
    EXPECT_EQ(Grid("grdPTMap").FixedRows(), 0);
    EXPECT_EQ(Grid("grdPTMap").FixedCols(), 0);
    const TBytes before = Get(0, Image().size);
    Type("grdPTMap", 2, 0,
         "5200"); // 120 becomes 130 counts: the step before grows, the one behind shrinks
    Type("grdPTMap", 0, 2, "56%"); // 150 becomes 140
    Click("btnSavePT");
    TBytes expected = before;
    expected[fuelPT + 2] = 70;
    expected[fuelPT + 3] = 50;
    expected[fuelPT + 6 + 2] = 90;
    expected[fuelPT + 6 + 3] = 110;
    EXPECT_EQ(Get(0, Image().size), expected);
    page->LoadPTMap();
    EXPECT_EQ(Grid("grdPTMap").FixedRows(), 1);
    EXPECT_EQ(Grid("grdPTMap").FixedCols(), 1);
    EXPECT_EQ(Grid("grdPTMap").Cell(2, 0), "5200");
    EXPECT_EQ(Grid("grdPTMap").Cell(0, 2), "56%");
}

TEST_F(TMapsPageTest, OneAxisGridsUnlockTheirRPMRowOnly) {
    page->UnlockAxis2Click();
    page->UnlockAxis3Click();
    for (const char *name : {"grdIdMap", "grdFTMap"}) {
        EXPECT_EQ(Grid(name).FixedRows(), 0) << name;
        EXPECT_EQ(Grid(name).FixedCols(), 1) << name;
    }
}

TEST_F(TMapsPageTest, LeavingACleanPageAsksNothing) {
    EXPECT_TRUE(page->QueryClose());
    EXPECT_FALSE(page->PageVisible());
    EXPECT_TRUE(dialogs.questions.empty());
}

TEST_F(TMapsPageTest, LeavingWithEditsAsksAndYesCommitsAllThree) {
    Type("grdPTMap", 1, 1, "50");
    Type("grdFTMap", 1, 1, "51");
    dialogs.answers = {TAnswer::Yes};
    EXPECT_TRUE(page->QueryClose());
    EXPECT_EQ(dialogs.questions, QStringList{"Commit Changes?"});
    EXPECT_EQ(Image().Peek(workspace.fuelMapSet.PTMap->data->offset), 50);
    EXPECT_EQ(Image().Peek(workspace.fuelMapSet.WOTMap->data->offset), 51);
    EXPECT_TRUE(page->DataChanged);
}

TEST_F(TMapsPageTest, NoLeavesTheMapsAsTheyWereAndHidesThePage) {
    Type("grdPTMap", 1, 1, "50");
    dialogs.answers = {TAnswer::No};
    EXPECT_TRUE(page->QueryClose());
    EXPECT_FALSE(page->PageVisible());
    EXPECT_EQ(Image().Peek(workspace.fuelMapSet.PTMap->data->offset), 1);
    EXPECT_FALSE(page->DataChanged);
}

TEST_F(TMapsPageTest, AnOpenEditorIsAcceptedBeforeThePageIsLeft) {
    TStringAlignGrid &grid = Grid("grdPTMap");
    grid.SetCurrent(1, 1);
    QTest::keyClick(grid.viewport(), Qt::Key_6);
    QTest::keyClick(grid.viewport()->findChild<QLineEdit *>(), Qt::Key_3);
    dialogs.answers = {TAnswer::Yes};
    EXPECT_TRUE(page->QueryClose());
    EXPECT_EQ(Image().Peek(workspace.fuelMapSet.PTMap->data->offset), 63);
}

class TOversizeTest : public TMapsPageTest,
                      public testing::WithParamInterface<std::pair<int, int>> {};

TEST_P(TOversizeTest, AMapThatDoesNotFitShowsNeitherGridNorChart) {
    const auto [rpmCount, loadCount] = GetParam();
    PutMap(0x4000, TBytes(static_cast<std::size_t>(rpmCount), 1),
           TBytes(static_cast<std::size_t>(loadCount), 1));
    workspace.fuelMapSet.PTMap->SetOffset(0x4000);
    page->LoadPTMap();
    const bool fits = rpmCount < 32 && loadCount < 21;
    EXPECT_EQ(page->Panel(TMapKind::PT).gridView.Visible(), fits);
    EXPECT_EQ(page->Panel(TMapKind::PT).chartView.Visible(), fits);
    EXPECT_EQ(Grid("grdPTMap").isHidden(), !fits);
    EXPECT_EQ(Grid("grdPTMap").ColCount(), fits ? rpmCount + 1 : 1);
}
INSTANTIATE_TEST_SUITE_P(Shapes, TOversizeTest,
                         testing::Values(std::pair{31, 20}, std::pair{32, 3}, std::pair{33, 3},
                                         std::pair{4, 21}, std::pair{4, 20}, std::pair{255, 255}));

TEST_F(TMapsPageTest, AnUnplacedMapHasOneCell) {
    TWorkspace empty;
    TfrmTimingMaps other(nullptr, empty, empty.timingMapSet);
    other.ShowPage();
    for (const char *name : {"grdPTMap", "grdIdMap", "grdFTMap"}) {
        EXPECT_EQ(FindControl<TStringAlignGrid>(other, name).ColCount(), 1) << name;
        EXPECT_EQ(FindControl<TStringAlignGrid>(other, name).RowCount(), 1) << name;
    }
    EXPECT_EQ(FindControl<QLineEdit>(other, "edtPTOffset").text(), "$0000");
}

TEST_F(TMapsPageTest, RecalculateTogglesTheToolWindowWhileThePageIsShown) {
    ASSERT_TRUE(page->ToolWindow);
    EXPECT_FALSE(page->ToolWindow->isVisible());
    Click("btnRecalculate");
    EXPECT_TRUE(page->ToolWindow->isVisible());
    Click("btnRecalculate");
    EXPECT_FALSE(page->ToolWindow->isVisible());
    page->QueryClose();
    EXPECT_FALSE(page->ToolWindow);
}

TEST_F(TMapsPageTest, AnotherImageUnderAnOldPlaceIsShownInItsOwnShape) {
    PutMap(fuelPT, {50, 50, 50, 50, 20}, {100, 0});
    ASSERT_TRUE(page->QueryClose());
    page->ShowPage();
    EXPECT_EQ(Grid("grdPTMap").ColCount(), 6);
    EXPECT_EQ(Grid("grdPTMap").RowCount(), 3);
    EXPECT_EQ(Grid("grdPTMap").Cell(5, 2), "10");
    EXPECT_EQ(Find<TAreaChart>("chtPTMap").SeriesCount(), 2);
}

struct TWide {
    int rpmCount;
    int loadCount;
    bool sideBar;
    bool lowerBar;
};
class TWideTest : public TMapsPageTest, public testing::WithParamInterface<TWide> {
protected:
    /// How many cells are to be seen at once, from the place and size of one cell.
    static QSize VisibleCells(const TStringAlignGrid &grid) {
        const QModelIndex first = grid.model()->index(0, 0);
        const QRect cell = grid.visualRect(first);
        return {grid.viewport()->width() / cell.width(), grid.viewport()->height() / cell.height()};
    }
    void ExpectVisible(const QString &name, const QSize &cells, bool sideBar, bool lowerBar) {
        const TStringAlignGrid &grid = Grid(name);
        EXPECT_EQ(VisibleCells(grid), cells) << name.toStdString();
        EXPECT_EQ(grid.verticalScrollBar()->isVisible(), sideBar) << name.toStdString();
        EXPECT_EQ(grid.horizontalScrollBar()->isVisible(), lowerBar) << name.toStdString();
    }
};

TEST_P(TWideTest, AtMostSoManyRowsAndColumnsAreShownAtOnce) {
    const auto [rpmCount, loadCount, sideBar, lowerBar] = GetParam();
    const TBytes rpm(static_cast<std::size_t>(rpmCount), 1);
    PutMap(0x4000, rpm, TBytes(static_cast<std::size_t>(loadCount), 1));
    PutMap(0x5000, rpm, {});
    workspace.fuelMapSet.SetOffsets(0x4000, 0x5000, 0x5000);
    page->resize(2400, 1600);
    page->ShowPage();
    QTest::qWait(0);
    ExpectVisible("grdPTMap", {std::min(rpmCount, 12), std::min(loadCount, 12)}, sideBar, lowerBar);
    ExpectVisible("grdIdMap", {std::min(rpmCount, 10), 1}, false, rpmCount > 10);
    ExpectVisible("grdFTMap", {std::min(rpmCount, 20), 1}, false, rpmCount > 20);
}
INSTANTIATE_TEST_SUITE_P(Shapes, TWideTest,
                         testing::Values(TWide{12, 12, false, false}, TWide{13, 12, false, true},
                                         TWide{12, 13, true, false}, TWide{31, 20, true, true},
                                         TWide{10, 8, false, false}, TWide{20, 1, false, true},
                                         TWide{1, 20, true, false}));

TEST_F(TMapsPageTest, ControlsCarryTheirTexts) {
    EXPECT_EQ(Grid("grdPTMap").toolTip(), "Right-click for more options");
    EXPECT_EQ(Grid("grdPTMap").AlignCell(1, 1), TAlign::Right);
    EXPECT_EQ(Find<QCheckBox>("chkInterpret").text(), "Interpret Byte Values");
    EXPECT_EQ(Find<QPushButton>("btnRecalculate").text(), "Recalculate");
    EXPECT_EQ(Find<QPushButton>("btnClose").text(), "Close Page");
    for (const char *name : {"btnSavePT", "btnSaveIdle", "btnSaveFT"})
        EXPECT_EQ(Find<QPushButton>(name).text(), "Commit") << name;
    for (const char *name : {"btnResetPT", "btnResetIdle", "btnResetFT"})
        EXPECT_EQ(Find<QPushButton>(name).text(), "Reset") << name;
    for (const char *map : {"1", "2", "3"}) {
        const QList<QAction *> items = Find<QMenu>(QString("PopupMenu") + map).actions();
        ASSERT_EQ(items.size(), 3);
        EXPECT_EQ(items[0], &Find<QAction>(QString("Copy") + map));
        EXPECT_EQ(items[0]->text(), "Copy Map");
        EXPECT_EQ(items[1], &Find<QAction>(QString("Paste") + map));
        EXPECT_EQ(items[1]->text(), "Paste Map");
        EXPECT_EQ(items[2], &Find<QAction>(QString("UnlockAxis") + map));
        EXPECT_EQ(items[2]->text(), "Unlock Axis");
    }
}

TEST_F(TMapsPageTest, ButtonsGoWithTheirChart) {
    page->Panel(TMapKind::Idle).chartView.SetVisible(false);
    EXPECT_FALSE(Find<QPushButton>("btnSaveIdle").isVisible());
    EXPECT_FALSE(Find<QPushButton>("btnResetIdle").isVisible());
    EXPECT_TRUE(Find<QPushButton>("btnSaveFT").isVisible());
}

TEST_F(TMapsPageTest, ATogglingToolInterpretsAsAClickDoes) {
    Find<QCheckBox>("chkInterpret").toggle();
    EXPECT_TRUE(workspace.fuelMapSet.showConverted);
    EXPECT_EQ(Grid("grdPTMap").Cell(1, 1), "0.01");
}

TEST_F(TMapsPageTest, AnAddedPageTakesOverTheSwitchOnlyWhenItIsShown) {
    TfrmFuelMaps other(nullptr, workspace, workspace.fuelMapSet);
    other.ShowPage();
    FindControl<QCheckBox>(other, "chkInterpret").click();
    EXPECT_FALSE(Find<QCheckBox>("chkInterpret").isChecked());
    page->ShowPage();
    EXPECT_TRUE(Find<QCheckBox>("chkInterpret").isChecked());
    EXPECT_EQ(Grid("grdPTMap").Cell(1, 1), "0.01");
}

TEST_F(TMapsPageTest, NoPartOfAnOversizedMapCanBeEdited) {
    PutMap(0x4000, TBytes(32, 1), {100, 0});
    workspace.fuelMapSet.PTMap->SetOffset(0x4000);
    page->LoadPTMap();
    TStringAlignGrid &grid = Grid("grdPTMap");
    EXPECT_FALSE(grid.isVisible());
    EXPECT_FALSE(Find<QPushButton>("btnSavePT").isVisible());
    const TBytes before = Get(0, Image().size);
    page->PTChanged = true;
    Click("btnSavePT");
    EXPECT_EQ(Get(0, Image().size), before);
}

} // namespace
