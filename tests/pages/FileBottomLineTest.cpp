// What the bottom line says after the commands of the contents view. The texts in all their forms
// are tested with the texts themselves.
#include "pages/FilePlacingFixture.h"

#include <QMenu>
#include <QStatusBar>

namespace {
class TBottomLineTest : public TPlacingTest {
protected:
    /// What the bottom line says, and tells screen readers, after a command.
    std::string After(const QString &name) {
        Trigger(name);
        EXPECT_EQ(window.StatusBar1->accessibleDescription(), window.StatusBar1->currentMessage());
        return Said();
    }
    std::string Said() const { return window.StatusBar1->currentMessage().toStdString(); }
    /// A 2-D fuel map of 12 cells at $0020, a linear timing map of 6 at $0060.
    void ShowTwoMaps() { Show(0x200, {{0x20, TwoD(fuelValue)}, {0x60, Linear(9, timingValue)}}); }
};

TEST_F(TBottomLineTest, SearchesForMapsSayWhatTheyFoundAndWhatIsMarked) {
    ShowTwoMaps();
    EXPECT_EQ(After("Fuel5"),
              "1 map, at $0020. Marked cells in all: 12; 2-D maps counted: 1, linear maps: 0");
    EXPECT_EQ(After("Timing6"),
              "1 map, at $0060. Marked cells in all: 18; 2-D maps counted: 1, linear maps: 1");
    EXPECT_EQ(After("Timing5"),
              "No map found. Marked cells in all: 18; 2-D maps counted: 1, linear maps: 1");
    EXPECT_EQ(After("ClearAllMarkers1"), "All markers are cleared");
    EXPECT_EQ(After("Timing6"),
              "1 map, at $0060. Marked cells in all: 6; 2-D maps counted: 0, linear maps: 1");
}

TEST_F(TBottomLineTest, SearchesForValuesSayHowManyCells) {
    Show(0x40, {{0x08, {100, 101}}, {0x21, {7, 0, 7}}, {0x30, {0xF2, 0x34}}});
    EXPECT_EQ(
        After("FindConsecutivePossFuelVals"),
        "2 cells, first at $0008. Marked cells in all: 2; 2-D maps counted: 0, linear maps: 0");
    EXPECT_EQ(After("FindConsecutivePossTimeVals"),
              "No cell found. Marked cells in all: 2; 2-D maps counted: 0, linear maps: 0");
    dialogs.inputs = {"7"};
    EXPECT_EQ(
        After("HighlightAValue1"),
        "2 cells, first at $0021. Marked cells in all: 4; 2-D maps counted: 0, linear maps: 0");
    dialogs.inputs = {"$0234", "15"};
    EXPECT_EQ(After("FindMapPointers1"),
              "1 pointer, at $0030. Marked cells in all: 6; 2-D maps counted: 0, linear maps: 0");
}

TEST_F(TBottomLineTest, HighlightingSaysWhetherThereIsAMap) {
    ShowTwoMaps();
    EXPECT_EQ(After("Fuel3"), "No cell is selected: click the cell where the map begins");
    Select(16, 2);
    EXPECT_EQ(After("Fuel3"), "No map begins at $001F; the next try is at $0020");
    EXPECT_EQ(After("Fuel3"),
              "1 map, at $0020. Marked cells in all: 12; 2-D maps counted: 1, linear maps: 0");
    Trigger("Fuel5");
    EXPECT_EQ(After("Timing4"), "No cell is selected: click the cell where the map begins");
}

TEST_F(TBottomLineTest, UpdateSaysWhatWentWhere) {
    EXPECT_EQ(After("Fuel1"), "No ROM image is loaded");
    Show(0x10000, {});
    Select(7, 0xB2C + 1);
    EXPECT_EQ(After("Fuel1"), "Fuel Maps - Part Throttle is at $B2C6 now");
    EXPECT_EQ(After("WOTTiming1"), "Timing Maps - WOT is at $B2C6 now");
    Select(1, 1);
    EXPECT_EQ(After("Timing2"), "Timing Maps - Idle was not moved: no map begins at $0000");
}

TEST_F(TBottomLineTest, ARebuildTakesTheResultWithTheMarks) {
    ShowTwoMaps();
    EXPECT_NE(After("Fuel5"), "");
    FindControl<QCheckBox>(*page, "chkDisplayHex").click();
    EXPECT_EQ(Said(), "");
}

/// The menu takes its own hints back while it closes; that must not take the result with it.
TEST_F(TBottomLineTest, TheClosingMenuLeavesTheResult) {
    window.show();
    ShowTwoMaps();
    auto &menu = FindControl<QMenu>(*page, "PopupMenu1");
    auto &searches = FindControl<QMenu>(*page, "SearchandHighlightMaps1");
    menu.popup({0, 0});
    menu.setActiveAction(searches.menuAction());
    QTest::keyClick(&menu, Qt::Key_Right);
    ASSERT_TRUE(searches.isVisible());
    auto &item = FindControl<QAction>(*page, "Fuel5");
    const QPoint place = searches.actionGeometry(&item).center();
    QTest::mouseMove(&searches, place);
    QTest::mouseClick(&searches, Qt::LeftButton, {}, place);
    EXPECT_FALSE(menu.isVisible());
    QTest::mouseMove(Grid().viewport(), {50, 50});
    QApplication::processEvents();
    EXPECT_EQ(Said(),
              "1 map, at $0020. Marked cells in all: 12; 2-D maps counted: 1, linear maps: 0");
}
} // namespace
