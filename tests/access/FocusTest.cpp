// Where the keyboard goes when the mouse has chosen a page.
#include "access/Scenes.h"
#include "forms/Aligrid.h"
#include "forms/PageControl.h"
#include "maps/AreaChart.h"
#include "start/WaitFor.h"

#include <QApplication>
#include <QTabBar>

namespace {
class TFocusTest : public TSceneTest {
protected:
    void Click(int tab) {
        QTabBar *bar = window.PageControl1->tabBar();
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(tab).center());
    }
    /// Another tab and back again, with the mouse.
    void ClickAgain(int tab) {
        Click(tab == 0 ? 1 : 0);
        Click(tab);
    }
};

struct TFocusOfTab {
    int tab;
    const char *control;
};

TEST_F(TFocusTest, AClickedTabGivesItToThePagesMainControl) {
    Open(TScene::AddedPage);
    for (const auto &[tab, control] :
         {TFocusOfTab{0, "btnLoad"}, TFocusOfTab{1, "grdPTMap"}, TFocusOfTab{2, "grdPTMap"},
          TFocusOfTab{3, "frmFuelMapsGraphical"}, TFocusOfTab{4, "frmTimingMapsGraphical"},
          TFocusOfTab{5, "grdFile"}, TFocusOfTab{6, "grdPTMap"}}) {
        ClickAgain(tab);
        EXPECT_EQ(FocusName(), control) << tab;
        EXPECT_TRUE(Page().isAncestorOf(QApplication::focusWidget()) || Page().hasFocus());
        window.PageControl1->tabBar()->setFocus();
        Click(tab);
        EXPECT_EQ(FocusName(), control) << tab << ", the current one";
    }
}

TEST_F(TFocusTest, AMapThatIsNotShownGivesItToTheNext) {
    Open(TScene::Fuel);
    PutMap(0x5000, TBytes(32, 1), {100, 0});
    window.workspace.fuelMapSet.PTMap->SetOffset(0x5000);
    ClickAgain(1);
    EXPECT_EQ(FocusName(), "grdIdMap");
}

TEST_F(TFocusTest, TheArrowsThenTurnTheChart) {
    Open(TScene::FuelChart);
    ClickAgain(3);
    Press(Qt::Key_Left);
    EXPECT_EQ(window.PageControl1->currentIndex(), 3);
    EXPECT_EQ(OnPage<TAreaChart>("chtPTMap").Rotation(), 341);
}

TEST_F(TFocusTest, CtrlHomeThenStaysInTheContents) {
    Open(TScene::Contents);
    ClickAgain(5);
    auto &grid = OnPage<TStringAlignGrid>("grdFile");
    grid.SetCurrent(4, 9);
    Press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(window.PageControl1->currentIndex(), 5);
    EXPECT_EQ(grid.Col(), 1);
    EXPECT_EQ(grid.Row(), 1);
}

TEST_F(TFocusTest, ThePagesCurrentCellsStayWhereTheyWere) {
    Open(TScene::Contents);
    auto &grid = OnPage<TStringAlignGrid>("grdFile");
    grid.SetCurrent(4, 9);
    ClickAgain(5);
    EXPECT_EQ(grid.Col(), 4);
    EXPECT_EQ(grid.Row(), 9);
}

class TF6Test : public TFocusTest, public testing::WithParamInterface<TScene> {};

TEST_P(TF6Test, GoesToTheToolWindowAndBack) {
    QWidget &tool = Open(GetParam());
    EXPECT_TRUE(tool.testAttribute(Qt::WA_ShowWithoutActivating));
    Activate(window);
    OnPage<QWidget>("grdFile").setFocus();
    Press(Qt::Key_F6);
    EXPECT_TRUE(WaitFor([&] { return tool.isAncestorOf(QApplication::focusWidget()); }));
    Press(Qt::Key_F6);
    EXPECT_TRUE(WaitFor([] { return FocusName() == "grdFile"; }));
}

INSTANTIATE_TEST_SUITE_P(Tools, TF6Test, testing::Values(TScene::Key, TScene::QuickChart),
                         [](const auto &scene) { return SceneName(scene.param); });
} // namespace
