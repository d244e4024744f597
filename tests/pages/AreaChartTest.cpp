// The chart widget as a store of series: what it is given, what tools can read of it.
#include "maps/AreaChart.h"

#include "maps/ChartData.h"
#include "support/FakeMapViews.h"

#include <gtest/gtest.h>

namespace {
class TAreaChartTest : public testing::Test {
protected:
    TAreaChart chart{nullptr, "chtPTMap"};
};

TEST_F(TAreaChartTest, StartsWithTheInitialView) {
    EXPECT_EQ(chart.objectName(), "chtPTMap");
    EXPECT_EQ(chart.property("rotation").toInt(), 340);
    EXPECT_EQ(chart.property("elevation").toInt(), 351);
    EXPECT_EQ(chart.property("zoom").toInt(), 56);
    EXPECT_TRUE(chart.Visible());
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
    chart.SetVisible(true);
    chart.HideForGood();
    chart.SetVisible(true);
    EXPECT_FALSE(chart.Visible());
    EXPECT_TRUE(chart.isHidden());
}

TEST_F(TAreaChartTest, SeriesKeepTitlesPointsAndExactColours) {
    chart.RecreateSeries(2);
    chart.SetSeriesTitle(1, "40%");
    chart.AddPoint(1, 2400, -255, "2400", clRed);
    chart.AddPoint(1, 4800, 7.5, "4800", 0x80000008);
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

TEST_F(TAreaChartTest, ClearingASeriesKeepsTheOthers) {
    chart.RecreateSeries(2);
    chart.AddPoint(0, 1, 1, "1", 0);
    chart.AddPoint(1, 1, 1, "1", 0);
    chart.ClearSeries(0);
    EXPECT_TRUE(chart.Series()[0].points.empty());
    EXPECT_EQ(chart.Series()[1].points.size(), 1U);
}

TEST_F(TAreaChartTest, RecreatingDropsAll) {
    chart.RecreateSeries(1);
    chart.AddPoint(0, 1, 1, "1", 0);
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
        chart.AddPoint(series, 1, 1, "1", 0);
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
    RedrawChart(grid, chart);
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

TEST_F(TAreaChartTest, VisibleIsTheWishNotTheScreen) {
    QWidget host;
    TAreaChart inside(&host, "chtIdMap");
    EXPECT_TRUE(inside.Visible());
    inside.SetVisible(false);
    EXPECT_FALSE(inside.Visible());
    EXPECT_TRUE(inside.isHidden());
    inside.SetVisible(true);
    EXPECT_TRUE(inside.Visible());
    EXPECT_FALSE(inside.isVisible()) << "the host is not shown";
}
} // namespace
