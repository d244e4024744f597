// The chart widget: what it is given, what tools can read of it, what the mouse does, and that it
// is painted. How the walls and texts are drawn is tested in tests/charts.
#include "maps/ChartData.h"
#include "maps/MapChart.h"
#include "support/FakeMapViews.h"
#include "support/Paintings.h"

#include <climits>
#include <functional>

#include <QImage>
#include <QPainter>
#include <QPushButton>
#include <gtest/gtest.h>

namespace {
class TAreaChartTest : public testing::Test {
protected:
    /// Two series of two points, the first RPM at the left, seen straight from the front.
    void FillFlat() {
        chart.RecreateSeries(2);
        for (const int series : {0, 1})
            for (const int rpm : {600, 1200})
                chart.AddPoint(series, {double(rpm), 10.0 * (series + 1), QString::number(rpm),
                                        series == 0 ? 0x112233U : 0x445566U});
        chart.TurnBy(20);
        chart.TiltBy(9);
        chart.resize(400, 300);
    }
    int Count(const QImage &image, QRgb color) {
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                count += image.pixel(x, y) == color;
        return count;
    }

    TAreaChart chart{nullptr, "chtPTMap"};
    TMapChart view{chart};
};

TEST_F(TAreaChartTest, StartsWithTheInitialView) {
    EXPECT_EQ(chart.objectName(), "chtPTMap");
    EXPECT_EQ(chart.property("rotation").toInt(), 340);
    EXPECT_EQ(chart.property("elevation").toInt(), 351);
    EXPECT_EQ(chart.property("zoom").toInt(), 56);
    EXPECT_TRUE(view.Visible());
}

TEST_F(TAreaChartTest, TurnsTiltsAndZoomsWithoutBounds) {
    chart.TurnBy(-345);
    chart.TiltBy(10);
    chart.ZoomBy(-60);
    EXPECT_EQ(chart.property("rotation").toInt(), -5);
    EXPECT_EQ(chart.property("elevation").toInt(), 361);
    EXPECT_EQ(chart.property("zoom").toInt(), -4);
}

TEST_F(TAreaChartTest, StartsWithTwelveColouredSeries) {
    chart.StartWithSeries(12);
    ASSERT_EQ(chart.SeriesCount(), 12);
    EXPECT_EQ(chart.Series()[0].title, "10%");
    EXPECT_EQ(chart.Series()[0].color, 0x0000FFU);
    EXPECT_EQ(chart.Series()[7].color, 0x808000U);
    EXPECT_EQ(chart.Series()[11].color, 0x008080U);
    EXPECT_FALSE(chart.Series()[10].stairs);
    EXPECT_TRUE(chart.Series()[11].stairs);
}

TEST_F(TAreaChartTest, StartsWithOneRedSeries) {
    chart.StartWithSeries(1);
    ASSERT_EQ(chart.SeriesCount(), 1);
    EXPECT_EQ(chart.Series()[0].title, "");
    EXPECT_EQ(chart.Series()[0].color, clRed);
    EXPECT_FALSE(chart.Series()[0].stairs);
}

TEST_F(TAreaChartTest, HiddenForGoodStaysHidden) {
    view.SetVisible(true);
    view.HideForGood();
    EXPECT_TRUE(chart.isHidden());
    view.SetVisible(true);
    EXPECT_FALSE(view.Visible());
    EXPECT_TRUE(chart.isHidden());
}

TEST_F(TAreaChartTest, SeriesKeepTitlesPointsAndExactColours) {
    view.RecreateSeries(2);
    view.SetSeriesTitle(1, "40%");
    view.SetSeriesLoad(1, "20%");
    view.AddPoint(1, 2400, -255, "2400", clRed);
    view.AddPoint(1, 4800, 7.5, "4800", 0x80000008);
    const QVariantList series = chart.property("series").toList();
    ASSERT_EQ(series.size(), 2);
    EXPECT_TRUE(series[0].toMap()["points"].toList().isEmpty());
    EXPECT_EQ(series[1].toMap()["title"], "40%");
    const QVariantList points = series[1].toMap()["points"].toList();
    ASSERT_EQ(points.size(), 2);
    EXPECT_EQ(points[0].toMap()["value"], -255.0);
    EXPECT_EQ(points[0].toMap()["label"], "2400");
    EXPECT_EQ(points[0].toMap()["color"].toUInt(), clRed);
    EXPECT_EQ(points[1].toMap()["color"].toUInt(), 0x80000008U);
    EXPECT_EQ(chart.Series()[1].points[1].x, 4800.0);
}

TEST_F(TAreaChartTest, TheLoadAxisNamesTheLoadsNotTheTitles) {
    chart.RecreateSeries(2);
    chart.SetSeriesTitle(0, "20%");
    chart.SetSeriesTitle(1, "40%");
    chart.SetSeriesLoad(0, "40%");
    chart.SetSeriesLoad(1, "20%");
    EXPECT_EQ(chart.Contents().depthLabels, (std::vector<std::string>{"40%", "20%"}));
}

TEST_F(TAreaChartTest, ClearingASeriesKeepsTheOthers) {
    chart.RecreateSeries(2);
    chart.AddPoint(0, {1, 1, "1", 0});
    chart.AddPoint(1, {1, 1, "1", 0});
    view.ClearSeries(0);
    EXPECT_TRUE(chart.Series()[0].points.empty());
    EXPECT_EQ(chart.Series()[1].points.size(), 1U);
}

TEST_F(TAreaChartTest, RecreatingDropsAll) {
    chart.RecreateSeries(1);
    chart.AddPoint(0, {1, 1, "1", 0});
    chart.RecreateSeries(16);
    EXPECT_EQ(chart.SeriesCount(), 16);
    EXPECT_TRUE(chart.Series()[0].points.empty());
    chart.RecreateSeries(-1);
    EXPECT_EQ(chart.SeriesCount(), 0);
}

TEST_F(TAreaChartTest, SeriesThatItLacksAreLeftOut) {
    chart.RecreateSeries(1);
    for (const int series : {-1, 1, 1000}) {
        chart.ClearSeries(series);
        chart.SetSeriesTitle(series, "none");
        chart.SetSeriesLoad(series, "none");
        chart.AddPoint(series, {1, 1, "1", 0});
    }
    EXPECT_EQ(chart.SeriesCount(), 1);
    EXPECT_TRUE(chart.Series()[0].points.empty());
    EXPECT_EQ(chart.Series()[0].title, "");
}

TEST_F(TAreaChartTest, AGridWithMoreRowsFillsTheSeriesThatAreThere) {
    TFakeMapGrid grid;
    grid.visible = true;
    grid.SetShape(2, 4);
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 2; ++column)
            grid.SetCell(column, row, std::to_string(10 * row + column));
    chart.RecreateSeries(2);
    RedrawChart(grid, view);
    EXPECT_EQ(chart.SeriesCount(), 2);
    EXPECT_EQ(chart.Series()[0].points[0].value, 31.0);
    EXPECT_EQ(chart.Series()[1].points[0].value, 21.0);
}

TEST_F(TAreaChartTest, TitlesAreReadable) {
    chart.SetTitles("Idle Ign Timing Map", "Ign Timing");
    EXPECT_EQ(chart.property("title"), "Idle Ign Timing Map");
    EXPECT_EQ(chart.property("leftAxisTitle"), "Ign Timing");
    EXPECT_EQ(chart.accessibleName(), "Idle Ign Timing Map");
}

TEST_F(TAreaChartTest, TheNumbersWrapAtTheEndsOf32Bits) {
    chart.TurnBy(INT_MAX);
    EXPECT_EQ(chart.Rotation(), INT_MIN + 339);
    chart.TiltBy(INT_MAX);
    EXPECT_EQ(chart.Elevation(), INT_MIN + 350);
    chart.ZoomBy(INT_MAX);
    EXPECT_EQ(chart.Zoom(), INT_MIN + 55);
    chart.grab();
}

TEST_F(TAreaChartTest, EveryChangeOfTheViewIsSeen) {
    FillFlat();
    const std::vector<std::function<void()>> changes{
        [&] { chart.TurnBy(30); },
        [&] { chart.TiltBy(-30); },
        [&] { chart.SetDepthTitle("% Load"); },
        [&] { chart.ZoomBy(-20); },
        [&] { chart.SetBottomInverted(true); },
        [&] { chart.SetTitles("Title", "Left"); },
        [&] { chart.ShowFirstView(); },
        [&] { chart.SetSeriesLoad(1, "40%"); },
        [&] {
            chart.AddPoint(1, {1800, 5, "1800", clRed});
        },
        [&] { chart.ClearSeries(1); },
    };
    chart.show();
    TPaintings paintings(chart);
    QImage before = chart.grab().toImage();
    for (std::size_t i = 0; i < changes.size(); ++i) {
        paintings.Count();
        changes[i]();
        EXPECT_GT(paintings.Count(), 0) << "change " << i;
        const QImage after = chart.grab().toImage();
        EXPECT_NE(before, after) << "change " << i;
        before = after;
    }
}

TEST_F(TAreaChartTest, ShowsItsPointsInTheirColours) {
    FillFlat();
    const QImage image = chart.grab().toImage();
    EXPECT_GT(Count(image, qRgb(0x33, 0x22, 0x11)) + Count(image, qRgb(0x66, 0x55, 0x44)), 10'000);
    EXPECT_GT(Count(image, qRgb(0x66, 0x55, 0x44)), 1000) << "the near wall";
}

TEST_F(TAreaChartTest, PaintsOnAnyDevice) {
    FillFlat();
    QImage image(200, 100, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    chart.Paint(painter, QRectF(20, 10, 160, 80));
    EXPECT_EQ(image.pixel(19, 9), QColor(Qt::magenta).rgb());
    EXPECT_GT(Count(image, qRgb(0x66, 0x55, 0x44)), 100);
}

TEST_F(TAreaChartTest, ControlsInTheCornerAreNotDrawnOver) {
    FillFlat();
    chart.ZoomBy(900); // the walls fill all that they may
    const auto drawnIn = [&](const QRect &part) {
        return Count(chart.grab(part).toImage(), qRgb(0x66, 0x55, 0x44)) > 0;
    };
    const QRect below(0, 260, 400, 40);
    const QRect beside(300, 40, 100, 220);
    QPushButton button("Commit", &chart);
    button.setGeometry(300, 260, 90, 30); // wide: more is left above it
    button.show();
    EXPECT_FALSE(drawnIn(below));
    EXPECT_TRUE(drawnIn(beside));
    button.setGeometry(300, 200, 90, 90); // high: more is left beside it
    EXPECT_FALSE(drawnIn(beside));
    EXPECT_TRUE(drawnIn(below.adjusted(0, 0, -100, 0)));
    button.hide();
    EXPECT_TRUE(drawnIn(beside)) << "a hidden one needs no room";
}

TEST_F(TAreaChartTest, TellsItsShapeToScreenReaders) {
    QCoreApplication::processEvents();
    EXPECT_EQ(chart.accessibleDescription(), "0 series of up to 0 points");
    chart.RecreateSeries(2);
    chart.AddPoint(0, {600, 0.5, "600", 0});
    chart.AddPoint(0, {1200, unreadableValue, "1200", clRed});
    chart.AddPoint(1, {600, 1.25, "600", 0});
    QCoreApplication::processEvents();
    EXPECT_EQ(chart.accessibleDescription(), "2 series of up to 2 points, values from 0.5 to 1.25");
    chart.ClearSeries(0);
    QCoreApplication::processEvents();
    EXPECT_EQ(chart.accessibleDescription(), "2 series of up to 1 points, values from 1.25 to 1.25")
        << "each change anew";
}

TEST_F(TAreaChartTest, IsDescribedWithoutBeingPaintedAndNotByPainting) {
    FillFlat();
    const QString before = chart.accessibleDescription();
    chart.grab();
    EXPECT_EQ(chart.accessibleDescription(), before);
    chart.hide();
    QCoreApplication::processEvents();
    EXPECT_EQ(chart.accessibleDescription(), "2 series of up to 2 points, values from 10 to 20");
}

TEST_F(TAreaChartTest, VisibleIsTheWishNotTheScreen) {
    QWidget host;
    TAreaChart inside(&host, "chtIdMap");
    TMapChart insideView(inside);
    EXPECT_TRUE(insideView.Visible());
    insideView.SetVisible(false);
    EXPECT_FALSE(insideView.Visible());
    EXPECT_TRUE(inside.isHidden());
    insideView.SetVisible(true);
    EXPECT_TRUE(insideView.Visible());
    EXPECT_FALSE(inside.isVisible()) << "the host is not shown";
}
} // namespace
