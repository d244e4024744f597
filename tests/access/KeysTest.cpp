// What once needed a mouse, done with keys.
#include "access/Scenes.h"
#include "forms/Aligrid.h"
#include "forms/PageControl.h"
#include "forms/RadioGroup.h"
#include "maps/AreaChart.h"
#include "maps/Maps.h"
#include "maps/ToolWindow.h"
#include "start/WaitFor.h"

#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QDockWidget>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabBar>

namespace {
class TKeysTest : public TSceneTest {
protected:
    template <class Control>
    Control &Focus(const QString &name) {
        auto &control = OnPage<Control>(name);
        control.setFocus(Qt::TabFocusReason);
        return control;
    }
    TAreaChart &Chart() { return OnPage<TAreaChart>("chtPTMap"); }
    /// Rotation, elevation and zoom.
    std::array<int, 3> View() { return {Chart().Rotation(), Chart().Elevation(), Chart().Zoom()}; }
    QPoint CurrentCell(const TStringAlignGrid &grid) {
        return grid.viewport()->mapToGlobal(grid.visualRect(grid.currentIndex()).center());
    }
};

struct TMenuKey {
    TScene scene;
    const char *grid;
    const char *menu;
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
};

void PrintTo(const TMenuKey &key, std::ostream *out) {
    *out << SceneName(key.scene) << " " << key.grid << " " << key.key;
}

class TMenuKeyTest : public TKeysTest, public testing::WithParamInterface<TMenuKey> {};

TEST_P(TMenuKeyTest, OpensTheMenuAtTheCurrentCell) {
    Open(GetParam().scene);
    auto &grid = Focus<TStringAlignGrid>(GetParam().grid);
    grid.SetCurrent(3, 1);
    Press(GetParam().key, GetParam().modifiers);
    auto &menu = OnPage<QMenu>(GetParam().menu);
    ASSERT_TRUE(menu.isVisible());
    EXPECT_EQ(menu.pos(), CurrentCell(grid));
    QTest::keyClick(&menu, Qt::Key_Escape);
    EXPECT_FALSE(menu.isVisible());
    EXPECT_TRUE(grid.hasFocus());
}

std::vector<TMenuKey> MenuKeys() {
    std::vector<TMenuKey> all;
    const std::pair<Qt::Key, Qt::KeyboardModifiers> keys[] = {{Qt::Key_Menu, Qt::NoModifier},
                                                              {Qt::Key_F10, Qt::ShiftModifier}};
    for (const auto &[key, modifiers] : keys) {
        all.push_back({TScene::Fuel, "grdPTMap", "PopupMenu1", key, modifiers});
        all.push_back({TScene::Fuel, "grdIdMap", "PopupMenu2", key, modifiers});
        all.push_back({TScene::Timing, "grdFTMap", "PopupMenu3", key, modifiers});
        all.push_back({TScene::Contents, "grdFile", "PopupMenu1", key, modifiers});
    }
    return all;
}
INSTANTIATE_TEST_SUITE_P(Grids, TMenuKeyTest, testing::ValuesIn(MenuKeys()));

TEST_F(TKeysTest, ArrowsAndEnterChooseFromTheMenu) {
    Open(TScene::Fuel);
    auto &grid = Focus<TStringAlignGrid>("grdPTMap");
    Press(Qt::Key_Menu);
    auto &menu = OnPage<QMenu>("PopupMenu1");
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return})
        QTest::keyClick(&menu, key);
    EXPECT_FALSE(menu.isVisible());
    EXPECT_EQ(grid.FixedRows(), 0) << "Unlock Axis";
}

TEST_F(TKeysTest, TheMenuKeyScrollsToTheCurrentCell) {
    Open(TScene::Contents);
    auto &grid = Focus<TStringAlignGrid>("grdFile");
    grid.SetCurrent(2, 0x500);
    grid.scrollToTop();
    Press(Qt::Key_Menu);
    EXPECT_TRUE(grid.viewport()->rect().contains(grid.visualRect(grid.currentIndex())));
    auto &menu = OnPage<QMenu>("PopupMenu1");
    EXPECT_TRUE(menu.isVisible());
    menu.close();
}

TEST_F(TKeysTest, TabLeadsToTheOverviewWhichTheArrowsMove) {
    Open(TScene::Contents);
    Focus<QWidget>("Button1");
    Press(Qt::Key_Tab);
    ASSERT_EQ(FocusName(), "ovwFile");
    auto &grid = OnPage<TStringAlignGrid>("grdFile");
    QAccessibleInterface *told = QAccessible::queryAccessibleInterface(&OnPage<QWidget>("ovwFile"));
    ASSERT_TRUE(told && told->valueInterface());
    Press(Qt::Key_Down);
    EXPECT_EQ(grid.verticalScrollBar()->value(), 1);
    EXPECT_EQ(told->valueInterface()->currentValue().toInt(), 1);
    told->valueInterface()->setCurrentValue(50);
    EXPECT_EQ(grid.verticalScrollBar()->value(), 50);
    Press(Qt::Key_Home);
    EXPECT_EQ(grid.verticalScrollBar()->value(), 0);
}

TEST_F(TKeysTest, AGridWithoutAMenuLeavesTheKeyAlone) {
    TStringAlignGrid grid;
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Menu, Qt::NoModifier);
    key.ignore();
    QCoreApplication::sendEvent(&grid, &key);
    EXPECT_FALSE(key.isAccepted());
}

TEST_F(TKeysTest, F2MakesAnOffsetBoxWritable) {
    Open(TScene::Fuel);
    auto &box = Focus<QLineEdit>("edtPTOffset");
    ASSERT_TRUE(box.isReadOnly());
    Press(Qt::Key_F2);
    EXPECT_FALSE(box.isReadOnly());
    box.selectAll();
    QTest::keyClicks(&box, "$2000");
    Press(Qt::Key_Tab);
    EXPECT_EQ(window.workspace.fuelMapSet.PTMap->GetLocation(), 0x2000);
    EXPECT_TRUE(box.isReadOnly());
}

TEST_F(TKeysTest, TabLeavesAGridAndItsEditor) {
    Open(TScene::Fuel);
    auto &grid = Focus<TStringAlignGrid>("grdPTMap");
    grid.SetCurrent(4, 3);
    Press(Qt::Key_F2);
    ASSERT_TRUE(grid.IsEditing());
    Press(Qt::Key_Tab);
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_TRUE(grid.hasFocus());
    Press(Qt::Key_Tab);
    EXPECT_EQ(FocusName(), "chtPTMap");
}

struct TChartKey {
    Qt::Key key;
    std::array<int, 3> change;
};

void PrintTo(const TChartKey &key, std::ostream *out) {
    *out << key.key;
}

class TChartKeyTest : public TKeysTest, public testing::WithParamInterface<TChartKey> {};

TEST_P(TChartKeyTest, MovesAChartOnAMapPage) {
    Open(TScene::Fuel);
    Focus<TAreaChart>("chtPTMap");
    Press(GetParam().key);
    std::array expected{340, 351, 56};
    for (std::size_t i = 0; i < expected.size(); ++i)
        expected[i] += GetParam().change[i];
    EXPECT_EQ(View(), expected);
    EXPECT_EQ(FocusName(), "chtPTMap");
}

INSTANTIATE_TEST_SUITE_P(
    Keys, TChartKeyTest,
    testing::Values(TChartKey{Qt::Key_Left, {1, 0, 0}}, TChartKey{Qt::Key_Right, {-1, 0, 0}},
                    TChartKey{Qt::Key_Up, {0, -1, 0}}, TChartKey{Qt::Key_Down, {0, 1, 0}},
                    TChartKey{Qt::Key_Plus, {0, 0, 5}}, TChartKey{Qt::Key_Minus, {0, 0, -5}},
                    TChartKey{Qt::Key_A, {0, 0, 0}}));

TEST_F(TKeysTest, HomeBringsTheFirstViewBack) {
    Open(TScene::Fuel);
    Focus<TAreaChart>("chtPTMap");
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Up, Qt::Key_Plus, Qt::Key_Plus})
        Press(key);
    ASSERT_EQ(View(), (std::array{341, 350, 66}));
    Press(Qt::Key_Home);
    EXPECT_EQ(View(), (std::array{340, 351, 56}));
}

TEST_F(TKeysTest, AClickOnAChartMakesItsKeysWork) {
    Open(TScene::Fuel);
    Focus<QWidget>("grdPTMap");
    QTest::mouseClick(&Chart(), Qt::LeftButton, {}, {20, 20});
    EXPECT_EQ(FocusName(), "chtPTMap");
    Press(Qt::Key_Left);
    EXPECT_EQ(View(), (std::array{341, 351, 56}));
}

TEST_F(TKeysTest, FromTheTabBarTabGoesIntoAGraphicalPageWhoseKeysThenWork) {
    Open(TScene::Fuel);
    window.PageControl1->tabBar()->setFocus();
    Press(Qt::Key_Right);
    Press(Qt::Key_Right);
    ASSERT_EQ(Page().objectName(), "frmFuelMapsGraphical");
    ASSERT_TRUE(window.PageControl1->tabBar()->hasFocus());
    Press(Qt::Key_Tab);
    EXPECT_TRUE(Page().hasFocus());
    Press(Qt::Key_Left);
    EXPECT_EQ(View(), (std::array{341, 351, 56}));
    Press(Qt::Key_Backtab);
    EXPECT_TRUE(window.PageControl1->tabBar()->hasFocus());
}

TEST_F(TKeysTest, AfterAStepShiftTabGoesBackToItsButton) {
    Open(TScene::FuelChart);
    for (int times = 1; times <= 3; ++times) {
        Focus<QWidget>("udZoomUp");
        Press(Qt::Key_Space);
        ASSERT_TRUE(Page().hasFocus());
        EXPECT_EQ(View(), (std::array{340, 351, 56 + 5 * times}));
        Press(Qt::Key_Backtab);
        EXPECT_EQ(FocusName(), "udZoomUp");
    }
    Press(Qt::Key_Space);
    Press(Qt::Key_Tab);
    EXPECT_EQ(FocusName(), "udZoomDown");
}

TEST_F(TKeysTest, AfterACommitTabGoesOnFromItsButton) {
    Open(TScene::Fuel);
    Focus<QWidget>("btnSaveIdle");
    Press(Qt::Key_Space);
    ASSERT_TRUE(Page().hasFocus()) << "the page takes the focus";
    Press(Qt::Key_Tab);
    EXPECT_EQ(FocusName(), "btnResetIdle");
    Press(Qt::Key_Space);
    ASSERT_TRUE(Page().hasFocus());
    Press(Qt::Key_Backtab);
    EXPECT_EQ(FocusName(), "btnResetIdle");
    Press(Qt::Key_Backtab);
    EXPECT_EQ(FocusName(), "btnSaveIdle");
}

TEST_F(TKeysTest, AClickOnThePageForgetsTheButton) {
    Open(TScene::FuelChart);
    Focus<QWidget>("udZoomUp");
    Press(Qt::Key_Space);
    ASSERT_TRUE(Page().hasFocus());
    window.PageControl1->tabBar()->setFocus();
    Page().setFocus(Qt::MouseFocusReason);
    Press(Qt::Key_Tab);
    EXPECT_EQ(FocusName(), "btnLeft");
}

TEST_F(TKeysTest, F6GoesToTheBulkToolAndBack) {
    Open(TScene::Fuel);
    TfrmToolWindow &tools = *dynamic_cast<TfrmMaps &>(Page()).ToolWindow;
    Focus<QWidget>("grdIdMap");
    Press(Qt::Key_F6);
    EXPECT_EQ(FocusName(), "grdIdMap") << "there is none to go to yet";
    OnPage<QPushButton>("btnRecalculate").click();
    for (const bool floating : {true, false}) {
        tools.setFloating(floating);
        QTest::qWait(0);
        ASSERT_TRUE(tools.isVisible());
        Activate(window);
        Focus<QWidget>("grdIdMap");
        Press(Qt::Key_F6);
        EXPECT_TRUE(WaitFor([] { return FocusName() == "edtVal"; }));
        Press(Qt::Key_F6);
        EXPECT_TRUE(WaitFor([] { return FocusName() == "grdIdMap"; }));
    }
}

TEST_F(TKeysTest, TheBulkToolIsDockedWithItsButton) {
    Open(TScene::Tools);
    auto &tools = *dynamic_cast<TfrmMaps &>(Page()).ToolWindow;
    auto *dock = tools.findChild<QWidget *>("qt_dockwidget_floatbutton");
    ASSERT_TRUE(dock);
    EXPECT_TRUE(dock->focusPolicy() & Qt::TabFocus);
    dock->setFocus();
    QTest::keyClick(dock, Qt::Key_Space);
    EXPECT_FALSE(tools.isFloating());
}

TEST_F(TKeysTest, ARadioGroupIsOneStopAndTheArrowsChoose) {
    Open(TScene::Tools);
    auto &tools = *dynamic_cast<TfrmMaps &>(Page()).ToolWindow;
    FindControl<QWidget>(tools, "rdoRange0").setFocus();
    Press(Qt::Key_Down);
    EXPECT_EQ(FocusName(), "rdoRange1");
    EXPECT_EQ(tools.Range, 1);
    Press(Qt::Key_Tab);
    EXPECT_EQ(FocusName(), "rdoDataset0");
    Press(Qt::Key_Backtab);
    EXPECT_EQ(FocusName(), "rdoRange1");
}

TEST_F(TKeysTest, ArrowsWalkAGroupWithoutAChoiceAndTheSpaceBarChooses) {
    Open(TScene::ROM);
    auto &group = OnPage<TRadioGroup>("rdoROMtemplate");
    group.SetItemIndex(-1);
    OnPage<QWidget>("btnLoad").setFocus();
    while (FocusName() != "rdoROMtemplate0")
        Press(Qt::Key_Tab);
    Press(Qt::Key_Right);
    EXPECT_EQ(FocusName(), "rdoROMtemplate1");
    EXPECT_EQ(group.ItemIndex(), -1);
    Press(Qt::Key_Left);
    Press(Qt::Key_Space);
    EXPECT_EQ(group.ItemIndex(), 0);
}

TEST_F(TKeysTest, EnterOnAnotherButtonThanOKPressesThatButton) {
    QWidget &dialog = Open(TScene::Offsets);
    auto &cancel = FindControl<QPushButton>(dialog, "btnCancel");
    cancel.setFocus();
    QTest::keyClick(&cancel, Qt::Key_Return);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dynamic_cast<QDialog &>(dialog).result(), QDialog::Rejected);
}

TEST_F(TKeysTest, ADialogBeginsWithItsFirstField) {
    Open(TScene::Offsets);
    EXPECT_EQ(FocusName(), "edtDataOffset");
}
} // namespace
