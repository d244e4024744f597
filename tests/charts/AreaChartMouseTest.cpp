// Turning, tilting and zooming a chart with the mouse.
#include "maps/AreaChart.h"

#include <climits>

#include <QApplication>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>

namespace {
class TAreaChartMouseTest : public testing::Test {
protected:
    void SetUp() override {
        chart.resize(400, 300);
        chart.show();
    }
    void Drag(const QPoint &from, const QPoint &to) {
        QTest::mousePress(&chart, Qt::LeftButton, {}, from);
        QTest::mouseMove(&chart, to);
        QTest::mouseRelease(&chart, Qt::LeftButton, {}, to);
    }
    /// Turns the wheel by eighths of a degree; away from the user is positive.
    void Wheel(int angle) {
        const QPointF at(50, 50);
        QWheelEvent event(at, chart.mapToGlobal(at), {}, {0, angle}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&chart, &event);
        EXPECT_TRUE(event.isAccepted());
    }

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
