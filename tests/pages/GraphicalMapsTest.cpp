// The graphical pages: what they show and hide, when their chart is drawn, and how buttons and keys
// move the view.
#include "maps/FuelMapsGraphical.h"
#include "maps/MapsGraphical.h"
#include "maps/TimingMapsGraphical.h"
#include "maps/ToolWindow.h"
#include "pages/PageFixture.h"
#include "support/Paintings.h"
#include "support/Wheel.h"

#include <QApplication>
#include <QLineEdit>
#include <QMainWindow>
#include <QRadioButton>
#include <QScrollArea>
#include <QToolButton>

namespace {
class TGraphicalMapsTest : public TPageTest {
protected:
    void SetUp() override {
        PlantMaps();
        PlaceMaps(workspace);
        host.resize(900, 560);
        host.show();
        QApplication::setActiveWindow(&host);
        Use(new TfrmFuelMapsGraphical(nullptr, workspace));
        page->ShowPage();
        QTest::qWait(0);
    }

    void Use(TfrmMapsGraphical *newPage) {
        page = newPage;
        host.setCentralWidget(page);
    }
    template <class Control>
    Control &Find(const QString &name) {
        return FindControl<Control>(*page, name);
    }
    TAreaChart &Chart() { return Find<TAreaChart>("chtPTMap"); }
    const std::vector<TChartSeries> &Series() { return Chart().Series(); }
    /// Rotation, elevation and zoom.
    std::array<int, 3> View() { return {Chart().Rotation(), Chart().Elevation(), Chart().Zoom()}; }
    void Click(const QString &button) { Find<QToolButton>(button).click(); }
    /// Adds one to all cells of the part throttle map with the bulk adjust window.
    void AddOne() {
        FindControl<QLineEdit>(*page->ToolWindow, "edtVal").setText("1");
        page->ToolWindow->edtValExit();
        page->ToolWindow->btnExecClick();
    }

    TWorkspace workspace;
    QMainWindow host;
    TfrmMapsGraphical *page = nullptr;
};

TEST_F(TGraphicalMapsTest, OnlyThePartThrottleChartFillsThePage) {
    EXPECT_TRUE(Chart().isVisible());
    EXPECT_TRUE(page->Panel(TMapKind::PT).chartView.Visible());
    const QWidget &scrolled = *Find<QScrollArea>("").viewport();
    EXPECT_EQ(Chart().size(), scrolled.size());
    EXPECT_GT(Chart().height(), page->height() - 80);
    for (const char *name :
         {"chtIdMap",  "chtFTMap",   "grdPTMap",    "grdIdMap",    "grdFTMap",    "lblPTGrid",
          "lblIdGrid", "lblFTGrid",  "edtPTOffset", "edtIdOffset", "edtFTOffset", "Panel1",
          "Panel2",    "Panel3",     "btnSavePT",   "btnResetPT",  "btnSaveIdle", "btnResetIdle",
          "btnSaveFT", "btnResetFT", "chkInterpret"})
        EXPECT_FALSE(Find<QWidget>(name).isVisible()) << name;
    for (const char *name :
         {"btnRecalculate", "btnClose", "btnUp", "btnDown", "btnLeft", "btnRight", "udZoom"})
        EXPECT_TRUE(Find<QWidget>(name).isVisible()) << name;
}

TEST_F(TGraphicalMapsTest, TheFitRuleDoesNotShowWhatThePageHides) {
    page->LoadIdleMap();
    page->LoadFTMap();
    page->LoadPTMap();
    QTest::qWait(0);
    for (const char *name : {"chtIdMap", "chtFTMap", "grdPTMap", "grdIdMap", "grdFTMap",
                             "btnSavePT", "btnSaveIdle", "btnSaveFT"})
        EXPECT_FALSE(Find<QWidget>(name).isVisible()) << name;
    EXPECT_FALSE(page->Panel(TMapKind::Idle).chartView.Visible());
    EXPECT_FALSE(page->Panel(TMapKind::WOT).chartView.Visible());
    EXPECT_TRUE(Chart().isVisible());
}

TEST_F(TGraphicalMapsTest, AMapThatDoesNotFitHidesTheChart) {
    PutMap(0x4000, TBytes(32, 1), {100, 0});
    workspace.fuelMapSet.PTMap->SetOffset(0x4000);
    ASSERT_TRUE(page->QueryClose());
    page->ShowPage();
    EXPECT_FALSE(Chart().isVisible());
    EXPECT_TRUE(Find<QWidget>("btnRecalculate").isVisible());
}

TEST_F(TGraphicalMapsTest, TheChartIsDrawnFromTheGridsBeforeTheyAreHidden) {
    ASSERT_EQ(Series().size(), 3U);
    EXPECT_EQ(Series()[0].title, "20%");
    EXPECT_EQ(Series()[2].points[0].value, 1.0);
    EXPECT_EQ(Series()[0].points[3].value, 12.0);
    EXPECT_EQ(Series()[0].points[3].label, "9600");
    EXPECT_EQ(Series()[0].points[3].color, 0x88000CU);
    EXPECT_EQ(Find<TAreaChart>("chtIdMap").Series()[0].points.size(), 4U);
    for (const TMapKind kind : {TMapKind::PT, TMapKind::Idle, TMapKind::WOT})
        EXPECT_FALSE(page->Panel(kind).gridView.Visible());
}

TEST_F(TGraphicalMapsTest, ABulkAdjustmentChangesTheHiddenGridAndLeavesTheChart) {
    ASSERT_TRUE(page->ToolWindow);
    AddOne();
    EXPECT_EQ(Find<TStringAlignGrid>("grdPTMap").Cell(1, 1), "2");
    EXPECT_EQ(Find<TStringAlignGrid>("grdPTMap").FontColor(1, 1), clBlue);
    EXPECT_TRUE(page->PTChanged);
    EXPECT_EQ(Series()[2].points[0].value, 1.0);
    page->RedrawMapChart(TMapKind::PT);
    EXPECT_EQ(Series()[2].points[0].value, 1.0);
}

TEST_F(TGraphicalMapsTest, EnteringAgainDrawsAgain) {
    AddOne();
    dialogs.answers = {TAnswer::Yes};
    ASSERT_TRUE(page->QueryClose());
    EXPECT_EQ(dialogs.questions, QStringList{"Commit Changes?"});
    EXPECT_EQ(Image().Peek(workspace.fuelMapSet.PTMap->data->offset), 2);
    EXPECT_EQ(Series()[2].points[0].value, 1.0) << "the commit draws nothing";
    page->ShowPage();
    EXPECT_EQ(Series()[2].points[0].value, 2.0);
    EXPECT_FALSE(page->Panel(TMapKind::PT).gridView.Visible());
    AddOne();
    EXPECT_EQ(Series()[2].points[0].value, 2.0);
}

TEST_F(TGraphicalMapsTest, RecalculateTogglesTheBulkAdjustWindow) {
    Find<QPushButton>("btnRecalculate").click();
    EXPECT_TRUE(page->ToolWindow->isVisible());
    Find<QPushButton>("btnRecalculate").click();
    EXPECT_FALSE(page->ToolWindow->isVisible());
    page->QueryClose();
    EXPECT_FALSE(page->ToolWindow);
}

TEST_F(TGraphicalMapsTest, TheViewStartsAnewOnEachPageAndLivesInItsChart) {
    EXPECT_EQ(View(), (std::array{340, 351, 56}));
    Click("btnLeft");
    page->QueryClose();
    page->ShowPage();
    EXPECT_EQ(View(), (std::array{341, 351, 56}));
    Use(new TfrmTimingMapsGraphical(nullptr, workspace));
    page->ShowPage();
    EXPECT_EQ(View(), (std::array{340, 351, 56}));
}

TEST_F(TGraphicalMapsTest, ThePageShowsTheWorkspacesSetWhateverItHadBefore) {
    TFuelMapSet other;
    page->MapSet = &other;
    page->QueryClose();
    page->ShowPage();
    EXPECT_EQ(page->MapSet, &workspace.fuelMapSet);
    Use(new TfrmTimingMapsGraphical(nullptr, workspace));
    page->MapSet = &other;
    page->ShowPage();
    EXPECT_EQ(page->MapSet, &workspace.timingMapSet);
}

struct TStep {
    const char *button;
    Qt::Key key; ///< Key_unknown: the button has none
    std::array<int, 3> change;
};

void PrintTo(const TStep &step, std::ostream *out) {
    *out << step.button;
}

class TStepTest : public TGraphicalMapsTest, public testing::WithParamInterface<TStep> {
protected:
    std::array<int, 3> Expected(int times) {
        std::array view{340, 351, 56};
        for (std::size_t i = 0; i < view.size(); ++i)
            view[i] += times * GetParam().change[i];
        return view;
    }
};

TEST_P(TStepTest, TheButtonMovesTheViewAndThePageTakesTheFocus) {
    Find<QWidget>("btnClose").setFocus();
    Click(GetParam().button);
    EXPECT_EQ(View(), Expected(1));
    EXPECT_EQ(host.focusWidget(), page);
}

TEST_P(TStepTest, TheViewHasNoBounds) {
    for (int i = 0; i < 400; ++i)
        Click(GetParam().button);
    EXPECT_EQ(View(), Expected(400));
}

class TKeyTest : public TStepTest {};

TEST_P(TKeyTest, DoesTheSameFromWhereverInThePage) {
    int presses = 0;
    for (const char *name : {"", "btnClose", "btnLeft", "udZoomUp", "chtPTMap"}) {
        QWidget &control = *name ? Find<QWidget>(name) : *page;
        control.setFocus();
        QTest::keyClick(&control, GetParam().key);
        EXPECT_EQ(View(), Expected(++presses)) << name;
        EXPECT_EQ(host.focusWidget(), page) << name;
    }
}

constexpr TStep keySteps[] = {
    {"btnUp", Qt::Key_Up, {0, -1, 0}},
    {"btnDown", Qt::Key_Down, {0, 1, 0}},
    {"btnLeft", Qt::Key_Left, {1, 0, 0}},
    {"btnRight", Qt::Key_Right, {-1, 0, 0}},
};
INSTANTIATE_TEST_SUITE_P(Steps, TKeyTest, testing::ValuesIn(keySteps));
INSTANTIATE_TEST_SUITE_P(Steps, TStepTest, testing::ValuesIn(keySteps));
INSTANTIATE_TEST_SUITE_P(Zoom, TStepTest,
                         testing::Values(TStep{"udZoomUp", Qt::Key_unknown, {0, 0, 5}},
                                         TStep{"udZoomDown", Qt::Key_unknown, {0, 0, -5}}));

TEST_F(TGraphicalMapsTest, OtherKeysReachTheControls) {
    auto &button = Find<QPushButton>("btnRecalculate");
    button.setFocus();
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_TRUE(page->ToolWindow->isVisible());
    for (const Qt::Key key : {Qt::Key_PageUp, Qt::Key_Home, Qt::Key_Plus, Qt::Key_A})
        QTest::keyClick(page, key);
    EXPECT_EQ(View(), (std::array{340, 351, 56}));
}

TEST_F(TGraphicalMapsTest, KeysOfTheBulkAdjustWindowAreItsOwn) {
    Find<QPushButton>("btnRecalculate").click();
    auto &amount = FindControl<QLineEdit>(*page->ToolWindow, "edtVal");
    amount.setText("12");
    QTest::keyClick(&amount, Qt::Key_Left);
    EXPECT_EQ(amount.cursorPosition(), 1);
    EXPECT_EQ(View(), (std::array{340, 351, 56}));
}

TEST_F(TGraphicalMapsTest, AClickIntoThePageMakesTheKeysWork) {
    Find<QWidget>("btnClose").setFocus();
    QTest::mouseClick(&Chart(), Qt::LeftButton);
    const auto before = View();
    QTest::keyClick(host.focusWidget(), Qt::Key_Left);
    EXPECT_EQ(View()[0], before[0] + 1);
}

TEST_F(TGraphicalMapsTest, TheWheelZoomsWhileThePageHasTheFocus) {
    Find<QWidget>("btnClose").setFocus();
    WheelOver(Chart(), 120);
    EXPECT_EQ(View(), (std::array{340, 351, 56}));
    QTest::mouseClick(&Chart(), Qt::LeftButton);
    EXPECT_EQ(host.focusWidget(), page);
    WheelOver(Chart(), 120);
    EXPECT_EQ(View(), (std::array{340, 351, 61}));
    Find<QWidget>("btnClose").setFocus();
    Click("udZoomDown"); // gives the page the focus
    WheelOver(Chart(), -240);
    EXPECT_EQ(View(), (std::array{340, 351, 46}));
}

TEST_F(TGraphicalMapsTest, ADoubleClickBringsTheFirstViewBack) {
    for (const char *button : {"btnLeft", "btnUp", "udZoomUp"})
        Click(button);
    QTest::mouseDClick(&Chart(), Qt::LeftButton);
    EXPECT_EQ(View(), (std::array{340, 351, 56}));
}

TEST_F(TGraphicalMapsTest, TheChartShowsTheFocusOfItsPage) {
    const auto corner = [this] {
        QCoreApplication::processEvents();
        return host.grab().toImage().pixelColor(Chart().mapTo(&host, QPoint(0, 0)));
    };
    Find<QWidget>("btnClose").setFocus();
    TPaintings paintings(Chart());
    page->setFocus();
    EXPECT_GT(paintings.Count(), 0);
    EXPECT_EQ(corner(), Chart().palette().color(QPalette::Highlight));
    paintings.Count();
    Find<QWidget>("btnClose").setFocus();
    EXPECT_GT(paintings.Count(), 0);
    EXPECT_NE(corner(), Chart().palette().color(QPalette::Highlight));
}

TEST_F(TGraphicalMapsTest, HeldButtonsRepeat) {
    for (const char *name : {"btnUp", "btnDown", "btnLeft", "btnRight", "udZoomUp", "udZoomDown"}) {
        EXPECT_TRUE(Find<QToolButton>(name).autoRepeat()) << name;
        // A held button that lost the focus to the page would be let go.
        EXPECT_FALSE(Find<QToolButton>(name).focusPolicy() == Qt::StrongFocus) << name;
    }
    EXPECT_EQ(Find<QToolButton>("udZoomUp").parent(), &Find<QWidget>("udZoom"));
    EXPECT_EQ(Find<QToolButton>("udZoomDown").parent(), &Find<QWidget>("udZoom"));
    EXPECT_LT(Find<QWidget>("udZoomUp").y(), Find<QWidget>("udZoomDown").y());
}

TEST_F(TGraphicalMapsTest, AMapOf16LoadPointsReplacesTheTwelveSeries) {
    Use(new TfrmFuelMapsGraphical(nullptr, workspace));
    page->Prepare();
    EXPECT_EQ(Chart().SeriesCount(), 12);
    EXPECT_EQ(Series()[0].title, "10%");
    PutMap(0x4000, {60, 60}, TBytes(16, 10));
    workspace.fuelMapSet.PTMap->SetOffset(0x4000);
    page->ShowPage();
    EXPECT_EQ(Chart().SeriesCount(), 16);
    EXPECT_FALSE(Series()[11].stairs);
}

TEST_F(TGraphicalMapsTest, AMapOf1LoadPointDrawsOneSeries) {
    PutMap(0x4000, {60, 60}, {100});
    workspace.fuelMapSet.PTMap->SetOffset(0x4000);
    page->QueryClose();
    page->ShowPage();
    ASSERT_EQ(Chart().SeriesCount(), 1);
    EXPECT_EQ(Series()[0].points.size(), 2U);
}

struct TTitles {
    const char *page;
    const char *caption;
    const char *depth;
    const char *designLeft;
    const char *designLeftSmall;
};

void PrintTo(const TTitles &titles, std::ostream *out) {
    *out << titles.page;
}

class TGraphicalTitlesTest : public TGraphicalMapsTest,
                             public testing::WithParamInterface<TTitles> {};

TEST_P(TGraphicalTitlesTest, AreThePages) {
    const bool fuel = GetParam().page == std::string("frmFuelMapsGraphical");
    Use(fuel ? static_cast<TfrmMapsGraphical *>(new TfrmFuelMapsGraphical(nullptr, workspace))
             : new TfrmTimingMapsGraphical(nullptr, workspace));
    const QString caption = GetParam().caption;
    EXPECT_EQ(page->objectName(), GetParam().page);
    EXPECT_EQ(page->windowTitle(), caption);
    EXPECT_TRUE(page->children().isEmpty() || !page->findChild<QWidget *>("chtPTMap"))
        << "the constructor makes no controls";
    page->Prepare();
    EXPECT_EQ(Chart().LeftAxisTitle(), GetParam().designLeft);
    for (const char *name : {"chtIdMap", "chtFTMap"}) {
        EXPECT_EQ(Find<TAreaChart>(name).LeftAxisTitle(), GetParam().designLeftSmall) << name;
        EXPECT_EQ(Find<TAreaChart>(name).SeriesCount(), 1) << name;
    }
    page->ShowPage();
    EXPECT_EQ(Chart().Title(), "Partial Throttle " + caption + " Map");
    for (const char *name : {"chtPTMap", "chtIdMap", "chtFTMap"}) {
        EXPECT_EQ(Find<TAreaChart>(name).LeftAxisTitle(), caption) << name;
        EXPECT_EQ(Find<TAreaChart>(name).DepthTitle(), GetParam().depth) << name;
    }
    EXPECT_TRUE(Chart().BottomInverted());
}
INSTANTIATE_TEST_SUITE_P(Pages, TGraphicalTitlesTest,
                         testing::Values(TTitles{"frmFuelMapsGraphical", "/\\ Trim", "% Load",
                                                 "Lambda Trim", "Lam. Trim"},
                                         TTitles{"frmTimingMapsGraphical", "Ign Timing",
                                                 "% Throttle", "", ""}));
} // namespace
