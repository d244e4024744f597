// Unlocked axes: what they look like, and what takes them back; and the menu that unlocks them.
#include "pages/MapPageFixture.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>
#include <QScrollBar>

namespace {
struct TUnlock {
    TMapKind kind;
    const char *grid;
    const char *item;
    const char *menu;
    const char *commit;
    const char *reset;
};

void PrintTo(const TUnlock &unlock, std::ostream *out) {
    *out << unlock.grid;
}

class TUnlockAxisTest : public TFuelPageTest, public testing::WithParamInterface<TUnlock> {
protected:
    void SetUp() override {
        TFuelPageTest::SetUp();
        page->resize(1400, 1000);
        QTest::qWait(0);
    }
    bool PartThrottle() { return GetParam().kind == TMapKind::PT; }
    TStringAlignGrid &ItsGrid() { return Grid(GetParam().grid); }
    QMenu &Menu() { return Find<QMenu>(GetParam().menu); }
    void Unlock() { Choose(GetParam().item); }
    void ExpectUnlocked(const std::string &when) {
        EXPECT_EQ(ItsGrid().FixedRows(), 0) << when;
        EXPECT_EQ(ItsGrid().FixedCols(), PartThrottle() ? 0 : 1) << when;
    }
    /// Whether every cell is to be seen without scrolling.
    void ExpectAllInSight(const std::string &when) {
        EXPECT_FALSE(ItsGrid().verticalScrollBar()->isVisible()) << when;
        EXPECT_FALSE(ItsGrid().horizontalScrollBar()->isVisible()) << when;
        const QModelIndex last = ItsGrid().model()->index(ItsGrid().model()->rowCount() - 1,
                                                          ItsGrid().model()->columnCount() - 1);
        EXPECT_EQ(ItsGrid().visualRect(last).bottomRight(),
                  ItsGrid().viewport()->rect().bottomRight())
            << when;
    }
    /// A right click as the window system tells it, to whatever lies there.
    void AskForMenu(QPoint inGrid) {
        QWidget *part = ItsGrid().childAt(inGrid);
        part = part ? part : &ItsGrid();
        const QPoint onScreen = ItsGrid().mapToGlobal(inGrid);
        QContextMenuEvent event(QContextMenuEvent::Mouse, part->mapFromGlobal(onScreen), onScreen);
        QCoreApplication::sendEvent(part, &event);
    }
};

TEST_P(TUnlockAxisTest, TheGridKeepsItsSizeThroughCommitAndReset) {
    const QSize locked = ItsGrid().size();
    Unlock();
    ExpectAllInSight("unlocked");
    const QSize unlocked = ItsGrid().size();
    EXPECT_LE(std::abs(unlocked.height() - locked.height()), 1) << "but for a grid line";
    EXPECT_LE(std::abs(unlocked.width() - locked.width()), 1);
    for (const char *button : {GetParam().commit, GetParam().reset}) {
        Click(button);
        EXPECT_EQ(ItsGrid().size(), unlocked) << button;
        ExpectAllInSight(button);
    }
}

TEST_P(TUnlockAxisTest, CommitAndResetLeaveItUnlocked) {
    Unlock();
    ExpectUnlocked("unlocked");
    Click(GetParam().commit);
    ExpectUnlocked("clean commit");
    Type(GetParam().grid, 2, 0, "5200");
    Click(GetParam().commit);
    ExpectUnlocked("commit");
    EXPECT_EQ(ItsGrid().Cell(2, 0), "5200");
    Click(GetParam().reset);
    ExpectUnlocked("reset");
    page->ShowPage();
    EXPECT_EQ(ItsGrid().FixedRows(), 1) << "loading fixes it again";
    EXPECT_EQ(ItsGrid().FixedCols(), 1);
}

TEST_P(TUnlockAxisTest, UnlockedHeadersKeepTheirGrey) {
    Unlock();
    TStringAlignGrid &grid = ItsGrid();
    EXPECT_EQ(grid.CellColor(1, 0), clBtnFace);
    EXPECT_EQ(grid.CellColor(4, 0), clBtnFace);
    EXPECT_EQ(grid.CellColor(0, 1) == clBtnFace, PartThrottle());
    EXPECT_EQ(grid.CellColor(1, 1), clWindow);
    Click(GetParam().commit);
    EXPECT_EQ(grid.CellColor(1, 0), clBtnFace);
    EXPECT_EQ(grid.FontColor(1, 0), clWindowText);
    page->ShowPage();
    EXPECT_EQ(grid.CellColor(1, 0), clWindow) << "a fixed header has the theme's own look";
}

TEST_P(TUnlockAxisTest, AMapOverTheLimitsKeepsItsLimitsUnlocked) {
    PutMap(0x4000, TBytes(25, 1), PartThrottle() ? TBytes(16, 1) : TBytes{});
    Set().Map(GetParam().kind).SetOffset(0x4000);
    page->resize(2400, 1400);
    page->ShowPage();
    QTest::qWait(0);
    const QSize locked = ItsGrid().size();
    Unlock();
    Click(GetParam().reset);
    EXPECT_LE(std::abs(ItsGrid().height() - locked.height()), 1);
    EXPECT_LE(std::abs(ItsGrid().width() - locked.width()), 1);
    EXPECT_EQ(ItsGrid().verticalScrollBar()->isVisible(), PartThrottle());
    EXPECT_TRUE(ItsGrid().horizontalScrollBar()->isVisible());
}

TEST_P(TUnlockAxisTest, TheMenuOpensOnCellsHeadersAndTheCorner) {
    const QRect body = ItsGrid().viewport()->geometry();
    const QPoint inBody = body.topLeft() + QPoint(5, 5);
    const QPoint header(0, ItsGrid().horizontalHeader()->height());
    const QPoint side(ItsGrid().verticalHeader()->width(), 0);
    for (const QPoint at : {inBody, inBody - header, inBody - side, inBody - header - side}) {
        AskForMenu(at);
        EXPECT_TRUE(Menu().isVisible()) << at.x() << " " << at.y();
        EXPECT_EQ(Menu().x(), ItsGrid().mapToGlobal(at).x()) << "where the mouse is";
        Menu().close();
    }
}

TEST_P(TUnlockAxisTest, NothingIsUnlockedWhereThereIsNoMap) {
    TWorkspace empty;
    TfrmFuelMaps other(nullptr, empty, empty.fuelMapSet);
    other.ShowPage();
    FindControl<QAction>(other, GetParam().item).trigger();
    auto &grid = FindControl<TStringAlignGrid>(other, GetParam().grid);
    EXPECT_EQ(grid.CellColor(0, 0), clWindow);
    EXPECT_EQ(grid.FixedRows(), 0);
}

INSTANTIATE_TEST_SUITE_P(Maps, TUnlockAxisTest,
                         testing::Values(TUnlock{TMapKind::PT, "grdPTMap", "UnlockAxis1",
                                                 "PopupMenu1", "btnSavePT", "btnResetPT"},
                                         TUnlock{TMapKind::Idle, "grdIdMap", "UnlockAxis2",
                                                 "PopupMenu2", "btnSaveIdle", "btnResetIdle"},
                                         TUnlock{TMapKind::WOT, "grdFTMap", "UnlockAxis3",
                                                 "PopupMenu3", "btnSaveFT", "btnResetFT"}));
} // namespace
