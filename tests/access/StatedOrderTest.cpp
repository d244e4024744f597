// What commands, keys and controls that come later must not move: where Tab goes on each page, what
// stands in each context menu, which keys and letters do what. Later ones may stand behind these or
// between them, but not take their places.
#include "access/Scenes.h"
#include "forms/PageControl.h"

#include <algorithm>

#include <QApplication>
#include <QMenu>
#include <QShortcut>
#include <QTabBar>

namespace {
struct TOrder {
    TScene scene;
    QStringList stops;
};

void PrintTo(const TOrder &order, std::ostream *out) {
    *out << SceneName(order.scene);
}

QStringList MapStops(const QStringList &behind) {
    return QStringList{"edtPTOffset", "grdPTMap", "chtPTMap", "btnSavePT",   "btnResetPT",
                       "edtIdOffset", "grdIdMap", "chtIdMap", "btnSaveIdle", "btnResetIdle",
                       "edtFTOffset", "grdFTMap", "chtFTMap", "btnSaveFT",   "btnResetFT"} +
           behind;
}

QStringList ChartStops(const QString &page) {
    return {page,       "btnLeft",    "btnUp",          "btnDown", "btnRight",
            "udZoomUp", "udZoomDown", "btnRecalculate", "btnClose"};
}

class TStatedOrderTest : public TSceneTest, public testing::WithParamInterface<TOrder> {};

TEST_P(TStatedOrderTest, IsTheOrderOfTab) {
    Open(GetParam().scene);
    constexpr int mostStops = 100;
    window.PageControl1->tabBar()->setFocus(Qt::TabFocusReason);
    QStringList stops;
    for (int i = 0; i < mostStops && !stops.contains(FocusName()); ++i) {
        stops << FocusName();
        Press(Qt::Key_Tab);
    }
    const auto isLater = [](const QString &name) { return !GetParam().stops.contains(name); };
    stops.erase(std::remove_if(stops.begin(), stops.end(), isLater), stops.end());
    EXPECT_EQ(stops, GetParam().stops);
}

INSTANTIATE_TEST_SUITE_P(
    Pages, TStatedOrderTest,
    testing::Values(TOrder{TScene::ROM, {"btnLoad", "btnSaveSpec", "rdoROMtemplate0"}},
                    TOrder{TScene::Offer,
                           {"btnLoad", "btnSaveSpec", "rdoROMtemplate0", "btnShowRecovered",
                            "btnBringBack", "btnForget"}},
                    TOrder{TScene::Fuel, MapStops({"spnRevLimiter", "btnSaverev", "btnResetRev",
                                                   "chkInterpret", "btnRecalculate", "btnClose"})},
                    TOrder{TScene::Timing,
                           MapStops({"chkInterpret", "btnRecalculate", "btnClose"})},
                    TOrder{TScene::FuelChart, ChartStops("frmFuelMapsGraphical")},
                    TOrder{TScene::TimingChart, ChartStops("frmTimingMapsGraphical")},
                    TOrder{TScene::Contents, {"grdFile", "chkDisplayHex", "Button1"}}),
    [](const auto &tested) { return SceneName(tested.param.scene); });

using TStatedMenus = TSceneTest;

/// Captions from top to bottom, "-" for a line, those of a submenu behind its own in brackets.
QString Captions(const QMenu &menu) {
    QStringList captions;
    for (const QAction *action : menu.actions()) {
        QString caption = action->isSeparator() ? "-" : action->text();
        if (action->menu())
            caption += " (" + Captions(*action->menu()) + ")";
        captions << caption;
    }
    return captions.join("; ");
}

TEST_F(TStatedMenus, OfTheMapsHaveThreeItems) {
    Open(TScene::Fuel);
    for (const char *name : {"PopupMenu1", "PopupMenu2", "PopupMenu3"})
        EXPECT_EQ(Captions(OnPage<QMenu>(name)), "Copy Map; Paste Map; Unlock Axis");
}

TEST_F(TStatedMenus, OfFileContentsHasItsItemsInOrder) {
    Open(TScene::Contents);
    const QString maps = "Fuel - Part Throttle; Fuel - WOT/Idle; Timing - Part Throttle; "
                         "Timing - WOT/Idle";
    EXPECT_EQ(
        Captions(OnPage<QMenu>("PopupMenu1")),
        "Copy; Copy Selected; Print; Print Setup; -; Clear All Markers; "
        "Highlight Map From Current Cell (" +
            maps +
            "); -; Set Search Parameters (Fuel Val Min; Fuel Value Max; Timing Val Min; "
            "Timing Val Max; RPM RAM Location; % Load RAM Location); Manual Searches (Mark "
            "Possible "
            "Fuel Vals; Mark Possible Timing Vals; Mark All Instances of a Specific Value; Find "
            "Map "
            "Pointers by offset Address); Search and Highlight Maps (" +
            maps +
            "; All 2D Maps (any values); All Linear Maps (any values)); -; Update Notebook Map "
            "(Fuel "
            "Maps - Part Throttle; Fuel Maps - Idle; Fuel Maps - WOT; Timing Maps - Part Throttle; "
            "Timing Maps - Idle; Timing Maps - WOT); Add Notebook Map (All Highlighted); Quick Map "
            "(Selected Cell is 2D Map Offset; Selected Cell is Linear Map Offset; Selected Cell is "
            "address of 2D Map Address; Selected Cell is address of Linear Map Offset)");
}

TEST_F(TStatedMenus, KeysOfTheWindowAreStillThere) {
    Open(TScene::Fuel);
    QStringList keys;
    for (const QShortcut *shortcut : window.findChildren<QShortcut *>())
        keys << shortcut->key().toString();
    for (const QAction *command : window.actions())
        keys << QKeySequence::listToString(command->shortcuts());
    for (const char *key : {"F1", "F6", "Ctrl+Tab", "Ctrl+Shift+Tab", "Ctrl+PgDown", "Ctrl+PgUp"})
        EXPECT_EQ(keys.count(key), 1) << key;
}
} // namespace
