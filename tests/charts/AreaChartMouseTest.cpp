// Turning, tilting and zooming a chart with the mouse.
#include "maps/AreaChart.h"
#include "support/Wheel.h"

#include <array>
#include <climits>

#include <QApplication>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace {
class TAreaChartMouseTest : public testing::Test {
protected:
    void SetUp() override {
        chart.resize(400, 300);
        chart.show();
        QApplication::setActiveWindow(&chart);
        chart.setFocus();
    }
    void Drag(const QPoint &from, const QPoint &to) {
        QTest::mousePress(&chart, Qt::LeftButton, {}, from);
        QTest::mouseMove(&chart, to);
        QTest::mouseRelease(&chart, Qt::LeftButton, {}, to);
    }
    void Wheel(int angle) { EXPECT_TRUE(WheelOver(chart, angle)); }
    std::array<int, 3> View() { return {chart.Rotation(), chart.Elevation(), chart.Zoom()}; }

    TAreaChart chart{nullptr, "chtPTMap"};
};

TEST_F(TAreaChartMouseTest, DraggingTurnsAndTilts) {
    Drag({100, 100}, {140, 100});
    EXPECT_EQ(chart.Rotation(), 340 + 20) << "the near side goes with the mouse";
    EXPECT_EQ(chart.Elevation(), 351);
    Drag({100, 100}, {100, 120});
    EXPECT_EQ(chart.Elevation(), 351 - 10) << "down shows more from above";
    EXPECT_EQ(chart.Rotation(), 360);
    EXPECT_EQ(chart.Zoom(), 56);
}

TEST_F(TAreaChartMouseTest, TheHandIsClosedWhileItDrags) {
    const Qt::CursorShape before = chart.cursor().shape();
    QTest::mousePress(&chart, Qt::LeftButton, {}, {100, 100});
    EXPECT_EQ(chart.cursor().shape(), Qt::ClosedHandCursor);
    QTest::mouseRelease(&chart, Qt::LeftButton, {}, {100, 100});
    EXPECT_EQ(chart.cursor().shape(), before);
}

TEST_F(TAreaChartMouseTest, SmallMovesAddUp) {
    QTest::mousePress(&chart, Qt::LeftButton, {}, {100, 100});
    for (int x = 99; x >= 90; --x)
        QTest::mouseMove(&chart, {x, 100});
    QTest::mouseRelease(&chart, Qt::LeftButton, {}, {90, 100});
    EXPECT_EQ(chart.Rotation(), 340 - 5);
}

TEST_F(TAreaChartMouseTest, OnlyTheLeftButtonDrags) {
    QTest::mousePress(&chart, Qt::RightButton, {}, {100, 100});
    QTest::mouseMove(&chart, {180, 180});
    QTest::mouseRelease(&chart, Qt::RightButton, {}, {180, 180});
    QTest::mouseMove(&chart, {20, 20});
    EXPECT_EQ(chart.Rotation(), 340);
    EXPECT_EQ(chart.Elevation(), 351);
    Drag({100, 100}, {100, 100});
    QTest::mouseMove(&chart, {180, 180});
    EXPECT_EQ(chart.Rotation(), 340) << "after the release nothing is dragged";
}

TEST_F(TAreaChartMouseTest, TheWheelZooms) {
    Wheel(120);
    EXPECT_EQ(chart.Zoom(), 61);
    Wheel(-240);
    EXPECT_EQ(chart.Zoom(), 51);
    Wheel(60);
    EXPECT_EQ(chart.Zoom(), 51);
    Wheel(60);
    EXPECT_EQ(chart.Zoom(), 56) << "half notches add up";
    EXPECT_EQ(chart.Rotation(), 340);
    EXPECT_EQ(chart.Elevation(), 351);
}

TEST_F(TAreaChartMouseTest, ADoubleClickBringsTheFirstViewBack) {
    chart.TurnBy(-400);
    chart.TiltBy(33);
    chart.ZoomBy(-100);
    QTest::mouseDClick(&chart, Qt::RightButton);
    EXPECT_EQ(View(), (std::array{-60, 384, -44})) << "only of the left button";
    QTest::mouseDClick(&chart, Qt::LeftButton);
    EXPECT_EQ(View(), (std::array{340, 351, 56}));
    QTest::mouseMove(&chart, {180, 180});
    EXPECT_EQ(View(), (std::array{340, 351, 56})) << "and nothing is dragged";
}

/// A chart below an edit in a page that scrolls.
class TScrollingChartTest : public testing::Test {
protected:
    void SetUp() override {
        auto *content = new QWidget;
        auto *column = new QVBoxLayout(content);
        column->addWidget(edit);
        column->addWidget(chart);
        chart->setMinimumHeight(600);
        page.setWidgetResizable(true);
        page.setWidget(content);
        page.resize(300, 200);
        page.show();
        QApplication::setActiveWindow(&page);
        edit->setFocus();
        QCoreApplication::processEvents(); // the page learns how large its contents are
        ASSERT_GT(page.verticalScrollBar()->maximum(), 240);
    }
    int Scrolled() { return page.verticalScrollBar()->value(); }

    QScrollArea page;
    QLineEdit *edit = new QLineEdit;
    TAreaChart *chart = new TAreaChart(nullptr, "chtPTMap");
};

TEST_F(TScrollingChartTest, WithoutTheFocusTheWheelScrollsThePage) {
    for (const bool takesKeys : {true, false}) {
        chart->TakeKeys(takesKeys);
        const int before = Scrolled();
        WheelOver(*chart, -120);
        EXPECT_GT(Scrolled(), before);
        EXPECT_EQ(chart->Zoom(), 56);
    }
}

TEST_F(TScrollingChartTest, AfterAClickTheWheelZooms) {
    for (const bool takesKeys : {true, false}) {
        edit->setFocus();
        chart->TakeKeys(takesKeys);
        QTest::mouseClick(chart, Qt::LeftButton);
        EXPECT_TRUE(chart->hasFocus());
        const int zoom = chart->Zoom();
        WheelOver(*chart, -120);
        EXPECT_EQ(Scrolled(), 0);
        EXPECT_EQ(chart->Zoom(), zoom - 5);
    }
}

TEST_F(TScrollingChartTest, TurningTheWheelDoesNotGiveItTheFocus) {
    chart->TakeKeys(true);
    WheelOver(*chart, -120);
    EXPECT_TRUE(edit->hasFocus());
    EXPECT_FALSE(chart->focusPolicy() == Qt::WheelFocus);
}

TEST_F(TScrollingChartTest, OnlyAChartThatTakesKeysIsMovedByThem) {
    for (const bool takesKeys : {false, true})
        for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down,
                                  Qt::Key_Plus, Qt::Key_Minus, Qt::Key_Home}) {
            chart->TakeKeys(takesKeys);
            chart->ShowFirstView();
            chart->TurnBy(90);
            chart->setFocus();
            QTest::keyClick(chart, key);
            const bool moved =
                chart->Rotation() != 430 || chart->Elevation() != 351 || chart->Zoom() != 56;
            EXPECT_EQ(moved, takesKeys) << key;
        }
}

TEST_F(TAreaChartMouseTest, TheWheelStopsWhereTheDrawingDoes) {
    for (int i = 0; i < 100; ++i)
        Wheel(-120);
    EXPECT_EQ(chart.Zoom(), 1);
    Wheel(120);
    EXPECT_EQ(chart.Zoom(), 6);
    chart.ZoomBy(-1000);
    EXPECT_EQ(chart.Zoom(), -994) << "but not the numbers themselves";
    Wheel(120);
    EXPECT_EQ(chart.Zoom(), 6);
    chart.ZoomBy(INT_MAX);
    chart.ZoomBy(-7);
    Wheel(120);
    EXPECT_EQ(chart.Zoom(), largestZoom);
}
} // namespace
