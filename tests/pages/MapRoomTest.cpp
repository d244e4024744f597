// How a map page shares its room among grids, charts and buttons.
#include "pages/MapPageFixture.h"

#include <QScrollArea>

namespace {
class TMapRoomTest : public TFuelPageTest {
protected:
    void SetUp() override {
        PlantMaps();
        Plant(16, 8);
        Make();
    }
    void Plant(int rpmCount, int loadCount) {
        const TBytes rpm(static_cast<std::size_t>(rpmCount), 2);
        PutMap(0x4000, rpm, TBytes(static_cast<std::size_t>(loadCount), 2));
        PutMap(0x5000, rpm, {});
        workspace.fuelMapSet.SetOffsets(0x4000, 0x5000, 0x5000);
    }
    void Make() { page = std::make_unique<TfrmFuelMaps>(nullptr, workspace, Set()); }
    void Show(const QSize &size) {
        page->resize(size);
        page->ShowPage();
        Settle();
    }
    static void Settle() {
        for (int i = 0; i < 3; ++i)
            QTest::qWait(0);
    }
    TMapPanel &Row(TMapKind kind) { return page->Panel(kind); }
    QRect Place(const QWidget &control) {
        return {control.mapTo(page.get(), QPoint()), control.size()};
    }
    QRect Window() {
        const QWidget &viewport = *Find<QScrollArea>("").viewport();
        return Place(viewport);
    }
    /// Where everything is that moves when the room changes.
    std::vector<QRect> Places() {
        std::vector<QRect> places{Window()};
        for (const TMapKind kind : allMapKinds)
            for (const QWidget *control :
                 {static_cast<QWidget *>(Row(kind).grid), static_cast<QWidget *>(Row(kind).chart)})
                places.push_back(Place(*control));
        return places;
    }
};

struct TRoom {
    QSize window;
    int rpmCount;
    int loadCount;
};

void PrintTo(const TRoom &room, std::ostream *out) {
    *out << room.window.width() << " x " << room.window.height() << ", " << room.rpmCount << " x "
         << room.loadCount;
}

class TSharedRoomTest : public TMapRoomTest, public testing::WithParamInterface<TRoom> {
protected:
    void SetUp() override {
        TMapRoomTest::SetUp();
        Plant(GetParam().rpmCount, GetParam().loadCount);
        Show(GetParam().window);
    }
};

TEST_P(TSharedRoomTest, ChartsBeginAtOneLineBehindEveryGrid) {
    const int line = Row(TMapKind::PT).chart->x();
    for (const TMapKind kind : allMapKinds) {
        EXPECT_EQ(Row(kind).chart->x(), line);
        EXPECT_GT(line, Place(*Row(kind).grid).right() - Window().left());
        EXPECT_EQ(Place(*Row(kind).chart).right(), Window().right());
    }
}

TEST_P(TSharedRoomTest, ChartsAreNeverSqueezed) {
    for (const TMapKind kind : allMapKinds) {
        EXPECT_GE(Row(kind).chart->width(), 260);
        EXPECT_GE(3 * Row(kind).chart->width(), Window().width()) << "a third of the width";
        EXPECT_LE(Row(kind).chart->height(), Row(TMapKind::PT).chart->height());
    }
    EXPECT_GE(Row(TMapKind::PT).chart->height(), 160);
}

TEST_P(TSharedRoomTest, TheWholeHeightIsUsed) {
    EXPECT_GE(Place(*Row(TMapKind::WOT).chart).bottom(), Window().bottom());
    const int idle = Row(TMapKind::Idle).chart->height();
    EXPECT_NEAR(idle, Row(TMapKind::WOT).chart->height(), 1);
    EXPECT_GT(Row(TMapKind::PT).chart->height(), 3 * idle / 2) << "most of it";
}

TEST_P(TSharedRoomTest, ButtonsLieInTheChartAndNothingIsDrawnUnderThem) {
    for (const TMapKind kind : allMapKinds) {
        TMapPanel &row = Row(kind);
        row.chart->ZoomBy(900); // the drawing fills all that it may
        const QRect commit = row.commit->geometry();
        const QRect reset = row.reset->geometry();
        ASSERT_TRUE(row.chart->rect().contains(commit.united(reset)));
        const bool below = kind == TMapKind::PT || commit.left() < row.chart->width() / 2;
        const QImage picture = row.chart->grab().toImage();
        const QRect strip =
            below ? QRect(QPoint(1, commit.top()), row.chart->rect().bottomRight() - QPoint(1, 1))
                  : QRect(QPoint(commit.left(), 1), row.chart->rect().bottomRight() - QPoint(1, 1));
        const QRgb paper = picture.pixel(strip.bottomRight());
        for (int y = strip.top(); y <= strip.bottom(); ++y)
            for (int x = strip.left(); x <= strip.right(); ++x)
                if (!commit.contains(x, y) && !reset.contains(x, y)) {
                    ASSERT_EQ(picture.pixel(x, y), paper)
                        << row.traits.chart << " " << x << " " << y;
                }
    }
}

INSTANTIATE_TEST_SUITE_P(Windows, TSharedRoomTest,
                         testing::Values(TRoom{{800, 545}, 16, 8}, TRoom{{956, 483}, 16, 8},
                                         TRoom{{1280, 930}, 16, 8}, TRoom{{1920, 1000}, 16, 8},
                                         TRoom{{800, 545}, 31, 20}, TRoom{{1280, 930}, 31, 20},
                                         TRoom{{1920, 1000}, 31, 20}, TRoom{{1000, 700}, 4, 3}));

TEST_F(TMapRoomTest, AllThreeMapsAreInSightInASmallWindow) {
    Show({800, 545}); // what 800 x 600 leaves of a page with tabs, bottom line and frame
    for (const TMapKind kind : allMapKinds) {
        EXPECT_TRUE(Window().contains(Place(*Row(kind).chart))) << Row(kind).traits.chart;
        EXPECT_TRUE(Window().contains(Place(*Row(kind).grid))) << Row(kind).traits.grid;
    }
}

TEST_F(TMapRoomTest, TwelveRowsGiveWayInASmallWindowAndComeBackInALargeOne) {
    Plant(16, 12);
    Show({800, 545});
    EXPECT_TRUE(Window().contains(Place(*Row(TMapKind::WOT).grid)));
    EXPECT_TRUE(Window().contains(Place(*Row(TMapKind::WOT).chart)));
    const TStringAlignGrid &grid = *Row(TMapKind::PT).grid;
    const int few = grid.height();
    EXPECT_LT(few, grid.SizeFor(12, 1).height());
    EXPECT_GT(few, grid.SizeFor(7, 1).height()) << "as many as there is room for";
    page->resize(800, 800);
    Settle();
    EXPECT_EQ(grid.height(), grid.SizeFor(12, 1).height());
    page->resize(800, 545);
    Settle();
    EXPECT_EQ(grid.height(), few);
    page->resize(800, 200);
    Settle();
    EXPECT_EQ(grid.height(), grid.SizeFor(6, 1).height()) << "never fewer than six";
}

TEST_F(TMapRoomTest, AGridShowsAsManyColumnsAsItsPanelHasRoomFor) {
    Show({800, 545});
    const TMapPanel &row = Row(TMapKind::PT);
    const int room = row.chart->x() - Place(*row.grid).left();
    const int column = row.grid->SizeFor(1, 2).width() - row.grid->SizeFor(1, 1).width();
    EXPECT_LT(row.grid->width(), row.grid->SizeFor(12, 12).width()) << "not all twelve";
    EXPECT_GT(row.grid->width() + 2 * column, room);
}

TEST_F(TMapRoomTest, AnAddedPagesOneMapHasTheWholePage) {
    for (const TMapKind kind : allMapKinds) {
        Make();
        page->ShowOnly(kind);
        Show({1000, 700});
        EXPECT_EQ(Row(kind).chart->height(), Window().height()) << Row(kind).traits.chart;
        EXPECT_EQ(Place(*Row(kind).chart).right(), Window().right());
    }
}

TEST_F(TMapRoomTest, ResizingEndsInOnePlace) {
    Plant(31, 12);
    Show({700, 500});
    for (int step = 0; step < 40; ++step) {
        page->resize(700 + 13 * step, 480 + 11 * step);
        Settle();
        const auto places = Places();
        Settle();
        ASSERT_EQ(Places(), places) << page->width() << " x " << page->height();
    }
}
} // namespace
