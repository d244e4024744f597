// Placing maps from the contents view: maps of the notebook moved to a cell, pages for all that is
// highlighted, quick charts.
#include "maps/FuelMaps.h"
#include "maps/TimingMaps.h"
#include "pages/FilePlacingFixture.h"
#include "support/FakeMapViews.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

namespace {
struct TMoveCase {
    const char *action;
    const char *caption;
    bool fuel;
    TMapKind kind;
};

class TUpdateTest : public TPlacingTest, public testing::WithParamInterface<TMoveCase> {};

TEST_P(TUpdateTest, MovesOneMapToTheCurrentCellAndLeavesTheOthers) {
    const TMoveCase &item = GetParam();
    PlaceMaps(window.workspace);
    Show(0x10000, {});
    Select(5, 3);
    EXPECT_EQ(FindControl<QAction>(*page, item.action).text(), item.caption);
    Trigger(item.action);
    TWorkspace &workspace = window.workspace;
    std::map<std::pair<bool, TMapKind>, int> expected{
        {{true, TMapKind::PT}, fuelPT},        {{true, TMapKind::Idle}, fuelIdle},
        {{true, TMapKind::WOT}, fuelWOT},      {{false, TMapKind::PT}, timingPT},
        {{false, TMapKind::Idle}, timingIdle}, {{false, TMapKind::WOT}, timingWOT}};
    expected[{item.fuel, item.kind}] = 0x0024;
    for (const auto &[map, offset] : expected) {
        const TMapSet &set = map.first ? static_cast<TMapSet &>(workspace.fuelMapSet)
                                       : static_cast<TMapSet &>(workspace.timingMapSet);
        EXPECT_EQ(set.Map(map.second).GetLocation(), offset);
    }
}
INSTANTIATE_TEST_SUITE_P(
    Items, TUpdateTest,
    testing::Values(TMoveCase{"Fuel1", "Fuel Maps - Part Throttle", true, TMapKind::PT},
                    TMoveCase{"Fuel2", "Fuel Maps - Idle", true, TMapKind::Idle},
                    TMoveCase{"WOTFuel1", "Fuel Maps - WOT", true, TMapKind::WOT},
                    TMoveCase{"Timing1", "Timing Maps - Part Throttle", false, TMapKind::PT},
                    TMoveCase{"Timing2", "Timing Maps - Idle", false, TMapKind::Idle},
                    TMoveCase{"WOTTiming1", "Timing Maps - WOT", false, TMapKind::WOT}));

/// Select records (5, 3) and makes it current; a try that fails moves the recorded cell one on.
class TTwoCellsTest : public TPlacingTest {
protected:
    void SelectAndTry() {
        Show(0x200, {{0x10, {3, 2, 0, 6, fuelValue, fuelValue}}});
        Trigger("Fuel6");
        Select(5, 3);
        Trigger("Fuel4");
        ASSERT_EQ(page->session.Recorded(), 0x25U);
        ASSERT_EQ(Grid().Col(), 5);
        ASSERT_EQ(Grid().Row(), 3);
    }
};

TEST_F(TTwoCellsTest, AMapOfTheNotebookGoesToTheCurrentOne) {
    SelectAndTry();
    Trigger("Timing2");
    EXPECT_EQ(window.workspace.timingMapSet.IdleMap->GetLocation(), 0x24);
}

TEST_F(TTwoCellsTest, ALinearFindIsPlacedAtTheCurrentOne) {
    SelectAndTry();
    Trigger("AllHighlighted1");
    ASSERT_EQ(AddedCaptions(), QStringList{"1-D Fuel Map at $0012"});
    EXPECT_EQ(Added(0).MapSet->WOTMap->GetLocation(), 0x24);
}

TEST_F(TTwoCellsTest, AQuickMapIsOfTheRecordedOne) {
    SelectAndTry();
    Trigger("SelectedCellisLinearMapOffset1");
    ASSERT_TRUE(Chart());
    EXPECT_EQ(Chart()->windowTitle(), "Map Offset: $0025");
    delete Chart();
}

TEST_F(TPlacingTest, BeyondA64KiBImageOnlyThreeRowDigitsCount) {
    Show(0x20000, {});
    Select(13, 0x1A5B + 1);
    Trigger("Fuel1");
    EXPECT_EQ(window.workspace.fuelMapSet.PTMap->GetLocation(), 0x1A5C);
}

TEST_F(TPlacingTest, AMapPlacedThroughAPointerBecomesADirectOne) {
    Put(0x10, {0x12, 0x34});
    window.workspace.fuelMapSet.PTMap->SetPointer(0x10, 0xFF);
    Show(0x10000, {{0x10, {0x12, 0x34}}});
    Select(1, 2);
    Trigger("Fuel2");
    EXPECT_EQ(window.workspace.fuelMapSet.PTMap->location->offset, -1);
    EXPECT_EQ(window.workspace.fuelMapSet.PTMap->GetLocation(), 0x1234);
    EXPECT_EQ(window.workspace.fuelMapSet.IdleMap->GetLocation(), 0x10);
}

TEST_F(TPlacingTest, WithoutAnImageNothingMoves) {
    PlaceMaps(window.workspace);
    page->ShowPage();
    Trigger("Fuel1");
    EXPECT_EQ(window.workspace.fuelMapSet.PTMap->GetLocation(), fuelPT);
    Trigger("AllHighlighted1");
    EXPECT_TRUE(AddedCaptions().isEmpty());
}

TEST_F(TPlacingTest, EveryTwoDimensionalFindGetsAPageOnce) {
    Show(0x200, {{0x20, TwoD(fuelValue)}, {0x5C, TwoD(fuelValue)}, {0xA0, TwoD(timingValue)}});
    Trigger("Fuel5");
    Trigger("Timing5");
    const QStringList captions{"2-D Fuel Map at $0020", "2-D Fuel Map at $005C",
                               "2-D Timing Map at $00A0"};
    Trigger("AllHighlighted1");
    EXPECT_EQ(AddedCaptions(), captions);
    EXPECT_EQ(window.PageControl1->currentIndex(), contentsTab);
    EXPECT_EQ(Added(1).MapSet->PTMap->GetLocation(), 0x5C);
    EXPECT_TRUE(dynamic_cast<TfrmFuelMaps *>(&Added(1)));
    EXPECT_TRUE(dynamic_cast<TfrmTimingMaps *>(&Added(2)));
    EXPECT_NE(Added(0).MapSet, Added(1).MapSet);
    Trigger("AllHighlighted1");
    EXPECT_EQ(AddedCaptions(), captions);
}

TEST_F(TPlacingTest, AClosedPageLeavesTheListAndMayComeAgain) {
    Show(0x200, {{0x20, TwoD(fuelValue)}, {0x5C, TwoD(fuelValue)}});
    Trigger("Fuel5");
    Trigger("AllHighlighted1");
    EXPECT_TRUE(window.CloseTab(contentsTab + 1));
    EXPECT_EQ(page->placing.AddedPages().size(), 1u);
    Trigger("AllHighlighted1");
    EXPECT_EQ(AddedCaptions(), (QStringList{"2-D Fuel Map at $005C", "2-D Fuel Map at $0020"}));
}

TEST_F(TPlacingTest, ATwoDimensionalMapsPageShowsPartThrottleOnly) {
    Show(0x200, {{0x20, TwoD(fuelValue)}});
    Trigger("Fuel5");
    Trigger("AllHighlighted1");
    TfrmMaps &added = Added(0);
    added.ShowPage();
    for (const char *hidden : {"Panel2", "Panel3", "chtIdMap", "chtFTMap"})
        EXPECT_TRUE(FindControl<QWidget>(added, hidden).isHidden()) << hidden;
    for (const char *shown : {"Panel1", "chtPTMap"})
        EXPECT_FALSE(FindControl<QWidget>(added, shown).isHidden()) << shown;
    EXPECT_EQ(FindControl<TStringAlignGrid>(added, "grdPTMap").ColCount(), 3);
    added.QueryClose();
    added.ShowPage();
    EXPECT_TRUE(FindControl<QWidget>(added, "chtFTMap").isHidden());
}

TEST_F(TPlacingTest, AZeroAxisByteOfALinearMapOpensAPageAtTheCurrentCell) {
    Show(0x200, {{0x20, Linear(0, fuelValue)}, {0x60, Linear(9, fuelValue)}});
    Trigger("Fuel6");
    ASSERT_EQ(page->session.Counters().linear, 2);
    Select(4, 5);
    Trigger("AllHighlighted1");
    // The header carries the plain map colour and is no start; the axis byte at $0022 is one.
    EXPECT_EQ(AddedCaptions(), QStringList{"1-D Fuel Map at $0022"});
    EXPECT_EQ(Added(0).MapSet->WOTMap->GetLocation(), 0x43);
    Added(0).ShowPage();
    for (const char *hidden : {"Panel1", "Panel2", "chtPTMap", "chtIdMap"})
        EXPECT_TRUE(FindControl<QWidget>(Added(0), hidden).isHidden()) << hidden;
    EXPECT_FALSE(FindControl<QWidget>(Added(0), "Panel3").isHidden());
    // Shown elsewhere than found, so it counts as not shown yet.
    Trigger("AllHighlighted1");
    EXPECT_EQ(AddedCaptions().size(), 2);
    Select(3, 3);
    Trigger("AllHighlighted1");
    Trigger("AllHighlighted1");
    EXPECT_EQ(AddedCaptions().size(), 3);
}

TEST_F(TPlacingTest, ZeroAxisBytesOfATwoDimensionalMapOpenPagesOfTheirOwn) {
    TBytes map = TwoD(timingValue);
    map[3] = 0;
    Show(0x200, {{0x20, map}});
    Trigger("Timing5");
    Trigger("AllHighlighted1");
    EXPECT_EQ(AddedCaptions(), (QStringList{"2-D Timing Map at $0020", "2-D Fuel Map at $0023"}));
}

TEST_F(TPlacingTest, WhiteMapsAndPlainMarksAreNoStarts) {
    Show(0x200, {{0x20, TwoD(fuelValue)}, {0x60, Linear(9, timingValue)}});
    for (const char *search : {"Timing6", "Any1", "Any2", "FindConsecutivePossFuelVals"})
        Trigger(search);
    Trigger("AllHighlighted1");
    EXPECT_TRUE(AddedCaptions().isEmpty());
}

TEST_F(TPlacingTest, TheHourglassStandsWhilePagesAreAdded) {
    Show(0x200, {{0x20, TwoD(fuelValue)}});
    Trigger("Fuel5");
    bool waiting = false;
    struct TWatch : QObject {
        bool &waiting;
        explicit TWatch(bool &flag) : waiting(flag) {}
        bool eventFilter(QObject *, QEvent *event) override {
            if (event->type() == QEvent::ChildAdded)
                waiting = QGuiApplication::overrideCursor() &&
                          QGuiApplication::overrideCursor()->shape() == Qt::WaitCursor;
            return false;
        }
    } watch(waiting);
    for (QWidget *child : window.PageControl1->findChildren<QWidget *>())
        child->installEventFilter(&watch);
    Trigger("AllHighlighted1");
    EXPECT_TRUE(waiting);
    EXPECT_FALSE(QGuiApplication::overrideCursor());
}

/// What a grid shows of a map.
std::vector<std::vector<std::string>> TextsOf(TMap &map) {
    TFakeMapGrid grid;
    std::string location;
    map.SizeGrid(grid);
    map.FillGrid(grid, location, map.GetCellFormat(), grid.RowCount(), grid.ColCount());
    std::vector<std::vector<std::string>> rows;
    for (int row = 0; row < grid.RowCount(); ++row)
        rows.push_back(grid.Row(row));
    return rows;
}

class TManyPagesTest : public TPlacingTest {
protected:
    /// The contents page of a window on the screen, in which that many 2-D fuel maps are marked.
    void Mark(int maps) {
        std::map<int, TBytes> planted;
        for (int i = 1; i <= maps; ++i)
            planted[place * i] = TwoD(fuelValue);
        window.show();
        Show(0x10000, planted);
        Trigger("Fuel5");
        ASSERT_EQ(page->session.Counters().twoD, maps);
        Grid().setFocus();
    }
    /// Checks that the first `count` maps have got their pages, and nothing else has changed.
    void ExpectPages(int count) {
        QStringList captions;
        for (int i = 1; i <= count; ++i)
            captions << "2-D Fuel Map at $" +
                            QString("%1").arg(place * i, 4, 16, QChar('0')).toUpper();
        EXPECT_EQ(AddedCaptions(), captions);
        EXPECT_EQ(page->placing.AddedPages().size(), static_cast<std::size_t>(count));
        EXPECT_EQ(window.PageControl1->currentIndex(), contentsTab);
        EXPECT_TRUE(page->isVisible());
        EXPECT_EQ(window.focusWidget(), &Grid());
        EXPECT_FALSE(QGuiApplication::overrideCursor());
        for (int tab = 0; tab < window.PageCount(); ++tab)
            ASSERT_TRUE(window.PageControl1->isTabVisible(tab)) << tab;
    }
    static constexpr int place = 0x20; // bytes for each map
};

TEST_F(TManyPagesTest, UpToTwoHundredComeWithoutAWindow) {
    Mark(200);
    Trigger("AllHighlighted1");
    EXPECT_TRUE(dialogs.steps.isEmpty());
    ExpectPages(200);
}

TEST_F(TManyPagesTest, MoreComeBehindAWindow) {
    Mark(201);
    Trigger("AllHighlighted1");
    EXPECT_EQ(dialogs.steps, QStringList("Adding pages for the highlighted maps|201"));
    ExpectPages(201);
    Trigger("AllHighlighted1");
    EXPECT_EQ(dialogs.steps.size(), 1) << "each map has its page";
    ExpectPages(201);
}

TEST_F(TManyPagesTest, TheHourglassStandsWhileTheyAreMade) {
    Mark(201);
    bool waiting = true;
    dialogs.duringStep = [&waiting] {
        const QCursor *cursor = QGuiApplication::overrideCursor();
        waiting = waiting && cursor && cursor->shape() == Qt::WaitCursor;
    };
    Trigger("AllHighlighted1");
    EXPECT_TRUE(waiting);
}

TEST_F(TManyPagesTest, CancelKeepsThoseMadeAndTheNextTimeBringsTheOthers) {
    Mark(300);
    dialogs.stepsBeforeCancel = 150;
    Trigger("AllHighlighted1");
    ExpectPages(150);
    Trigger("AllHighlighted1");
    EXPECT_EQ(dialogs.steps.size(), 1) << "the other 150 come without a window";
    ExpectPages(300);
}

TEST_F(TManyPagesTest, CancelBeforeTheFirstAddsNone) {
    Mark(201);
    dialogs.stepsBeforeCancel = 0;
    Trigger("AllHighlighted1");
    ExpectPages(0);
}

TEST_F(TManyPagesTest, APageOfACancelledRunWorks) {
    Mark(201);
    dialogs.stepsBeforeCancel = 150;
    Trigger("AllHighlighted1");
    window.PageControl1->SelectByUser(contentsTab + 150);
    TfrmMaps &last = Added(149);
    EXPECT_TRUE(last.isVisible());
    auto &grid = FindControl<TStringAlignGrid>(last, "grdPTMap");
    grid.SetCurrent(1, 1);
    QTest::keyClick(grid.viewport(), Qt::Key_F2);
    auto *editor = grid.viewport()->findChild<QLineEdit *>();
    ASSERT_TRUE(editor);
    editor->setText("64");
    QTest::keyClick(editor, Qt::Key_Enter);
    QTest::qWait(0);
    FindControl<QPushButton>(last, "btnSavePT").click();
    EXPECT_EQ(Image().Peek(place * 150 + 8), 64);
    EXPECT_TRUE(last.DataChanged);
    EXPECT_TRUE(window.CloseTab(contentsTab + 150));
    EXPECT_EQ(page->placing.AddedPages().size(), 149u);
}

TEST_F(TManyPagesTest, TheWindowOfTheToolkitCanBeCancelled) {
    Mark(1000);
    SetDialogs(nullptr);
    QTimer::singleShot(
        0, qApp, [] { QApplication::activeModalWidget()->findChild<QPushButton *>()->click(); });
    Trigger("AllHighlighted1");
    const auto made = static_cast<int>(page->placing.AddedPages().size());
    EXPECT_GT(made, 0);
    EXPECT_LT(made, 1000);
    ExpectPages(made);
    SetDialogs(&dialogs);
}

TEST_F(TManyPagesTest, APageThatWasNeverShownHoldsWhatAShownOneHolds) {
    Mark(2);
    Trigger("AllHighlighted1");
    window.PageControl1->SelectByUser(contentsTab + 1);
    TMapSet &shown = *Added(0).MapSet;
    TMapSet &never = *Added(1).MapSet;
    EXPECT_TRUE(Added(1).findChildren<TStringAlignGrid *>().isEmpty()) << "made when first shown";
    EXPECT_EQ(shown.PTMap->GetLocation(), place);
    EXPECT_EQ(never.PTMap->GetLocation(), 2 * place);
    for (const TMapKind kind : {TMapKind::PT, TMapKind::Idle, TMapKind::WOT})
        EXPECT_EQ(TextsOf(shown.Map(kind)), TextsOf(never.Map(kind)));
    EXPECT_FALSE(window.AnyDataChanged());
    EXPECT_TRUE(window.close());
    EXPECT_TRUE(dialogs.questions.isEmpty());
}

struct TQuickCase {
    const char *action;
    const char *caption;
    bool throughPointer;
    int series;
};

class TQuickMapTest : public TPlacingTest, public testing::WithParamInterface<TQuickCase> {
protected:
    ~TQuickMapTest() override { delete Chart(); }
};

TEST_P(TQuickMapTest, ChartsTheMapAtTheRecordedCell) {
    const TQuickCase &item = GetParam();
    EXPECT_EQ(FindControl<QAction>(*page, item.action).text(), item.caption);
    Show(0x12000, {{0x11024, TwoD(fuelValue)}, {0x1024, TwoD(fuelValue)}, {0x0008, {0xF0, 0x24}}});
    page->session.parameters.pointerMask = 0x10;
    Trigger(item.action);
    EXPECT_FALSE(Chart()) << "no cell has been selected";
    if (item.throughPointer)
        Select(9, 1);
    else
        Select(5, 0x1102 + 1);
    Trigger(item.action);
    ASSERT_TRUE(Chart());
    EXPECT_TRUE(Chart()->isVisible());
    EXPECT_FALSE(Chart()->isModal());
    EXPECT_EQ(Chart()->windowTitle(),
              item.throughPointer ? "Map Offset: $1024" : "Map Offset: $11024");
    EXPECT_EQ(FindControl<TAreaChart>(*Chart(), "chtMap").SeriesCount(), item.series);
}
INSTANTIATE_TEST_SUITE_P(
    Items, TQuickMapTest,
    testing::Values(TQuickCase{"SelectedCellisMapOffset1", "Selected Cell is 2D Map Offset", false,
                               2},
                    TQuickCase{"SelectedCellisLinearMapOffset1",
                               "Selected Cell is Linear Map Offset", false, 1},
                    TQuickCase{"SelectedCellisMapPointerOffset1",
                               "Selected Cell is address of 2D Map Address", true, 2},
                    TQuickCase{"SelectedCellisLinearMapPointer1",
                               "Selected Cell is address of Linear Map Offset", true, 1}));

TEST_F(TPlacingTest, AfterAScanThereIsNoSelectedCellToChart) {
    Show(0x200, {{0x20, TwoD(fuelValue)}});
    Select(1, 3);
    Trigger("Fuel5");
    Trigger("SelectedCellisMapOffset1");
    EXPECT_FALSE(Chart());
}
} // namespace
