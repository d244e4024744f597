// A map page's charts beside its grid and beside the quick chart of the same map: all three say the
// same of every load. And what the wheel does on a page that scrolls.
#include "maps/QuickChart.h"
#include "pages/MapPageFixture.h"
#include "support/Wheel.h"

#include <map>

#include <QApplication>
#include <QScrollArea>
#include <QScrollBar>

namespace {
using TValues = std::vector<double>;
using TTexts = std::vector<std::string>;

/// What a chart draws at each tick of its load axis, "%" left out.
std::map<QString, TValues> WallsByLoad(const TAreaChart &chart) {
    std::map<QString, TValues> walls;
    const TChartContents contents = chart.Contents();
    for (std::size_t i = 0; i < contents.walls.size(); ++i) {
        TValues &values = walls[QString::fromStdString(contents.depthLabels.at(i)).remove('%')];
        for (const TChartValue &point : contents.walls[i].points)
            values.push_back(point.value);
    }
    return walls;
}

std::map<QString, TValues> RowsByLoad(const TStringAlignGrid &grid) {
    std::map<QString, TValues> rows;
    for (int row = 1; row < grid.RowCount(); ++row) {
        TValues &values = rows[grid.Cell(0, row).remove('%')];
        for (int column = 1; column < grid.ColCount(); ++column)
            values.push_back(grid.Cell(column, row).toDouble());
    }
    return rows;
}

class TPageChartsTest : public TFuelPageTest {
protected:
    TAreaChart &Chart(const QString &name) { return Find<TAreaChart>(name); }
};

TEST_F(TPageChartsTest, GridPageChartAndQuickChartAgreeOnEveryLoad) {
    TfrmQuickChart quick(page.get());
    quick.setAttribute(Qt::WA_DeleteOnClose, false);
    quick.SetMapOffset(fuelPT);
    quick.show();
    const auto rows = RowsByLoad(Grid("grdPTMap"));
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows.at("20"), (TValues{1, 4, 7, 10}));
    EXPECT_EQ(rows.at("100"), (TValues{3, 6, 9, 12}));
    EXPECT_EQ(WallsByLoad(Chart("chtPTMap")), rows);
    EXPECT_EQ(WallsByLoad(FindControl<TAreaChart>(quick, "chtMap")), rows);
}

TEST_F(TPageChartsTest, TheLeastLoadStandsInFrontAsInTheQuickChart) {
    EXPECT_EQ(Chart("chtPTMap").Contents().depthLabels, (TTexts{"100%", "60%", "20%"}));
    const QVariantList series = Chart("chtPTMap").property("series").toList();
    EXPECT_EQ(series[0].toMap()["title"], "20%") << "while the titles run the other way";
    EXPECT_EQ(series[2].toMap()["title"], "100%");
}

TEST_F(TPageChartsTest, TheOneLoadOfAOneAxisMapIsNamed) {
    EXPECT_EQ(Chart("chtIdMap").Contents().depthLabels, TTexts{"0%"});
    EXPECT_EQ(Chart("chtFTMap").Contents().depthLabels, TTexts{"100%"});
}

TEST_F(TPageChartsTest, AnEditedLoadIsNamedAtItsOwnWall) {
    Choose("UnlockAxis1");
    Type("grdPTMap", 0, 1, "25%");
    EXPECT_EQ(Chart("chtPTMap").Contents().depthLabels, (TTexts{"100%", "60%", "25%"}));
    EXPECT_EQ(WallsByLoad(Chart("chtPTMap")), RowsByLoad(Grid("grdPTMap")));
}

TEST_F(TPageChartsTest, TheWheelScrollsThePageUntilAChartWasClicked) {
    page->resize(700, 300);
    page->show();
    QApplication::setActiveWindow(page.get());
    page->setFocus();
    QTest::qWait(0);
    TAreaChart &chart = Chart("chtPTMap");
    QScrollBar &bar = *page->findChild<QScrollArea *>()->verticalScrollBar();
    ASSERT_GT(bar.maximum(), 0);
    WheelOver(chart, -120);
    const int scrolled = bar.value();
    EXPECT_GT(scrolled, 0);
    EXPECT_EQ(chart.Zoom(), 56) << "not even while the page itself has the focus";
    QTest::mouseClick(&chart, Qt::LeftButton, {}, {30, 30});
    WheelOver(chart, -120);
    EXPECT_EQ(chart.Zoom(), 51);
    EXPECT_EQ(bar.value(), scrolled);
    WheelOver(Chart("chtIdMap"), -120);
    EXPECT_EQ(Chart("chtIdMap").Zoom(), 56) << "the focus is the other chart's";
}
} // namespace
