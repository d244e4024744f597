// What a chart is given from its grid or its map: cases by hand, and plain second versions of the
// rules on random grids and maps.
#include "maps/ChartData.h"

#include "model/Numbers.h"
#include "support/FailingVals.h"
#include "support/FakeMapViews.h"
#include "support/ModelFixture.h"
#include "system/Errors.h"

#include <random>
#include <span>

#include <gtest/gtest.h>

namespace {
using TPoint = TFakeMapChart::TPoint;

class TChartDataTest : public testing::Test {
protected:
    TChartDataTest() {
        grid.visible = true;
        grid.SetShape(3, 4);
        const char *const texts[4][3] = {
            {"", "2400", "4800"}, {"20%", "1", "2"}, {"60%", "3", "4"}, {"100%", "5", "6"}};
        for (int row = 0; row < 4; ++row)
            for (int column = 0; column < 3; ++column)
                grid.SetCell(column, row, texts[row][column]);
        chart.RecreateSeries(3);
    }

    TFakeMapGrid grid;
    TFakeMapChart chart;
};

TEST_F(TChartDataTest, DataRunBackwardsAndTitlesForwards) {
    RedrawChart(grid, chart);
    EXPECT_EQ(chart.series[0].title, "20%");
    EXPECT_EQ(chart.series[1].title, "60%");
    EXPECT_EQ(chart.series[2].title, "100%");
    EXPECT_EQ(chart.series[0].points,
              (std::vector<TPoint>{{2400, 5, "2400", 0x880005}, {4800, 6, "4800", 0x880006}}));
    EXPECT_EQ(chart.series[2].points,
              (std::vector<TPoint>{{2400, 1, "2400", 0x880001}, {4800, 2, "4800", 0x880002}}));
}

TEST_F(TChartDataTest, EachSeriesStandsAtTheLoadOfItsPoints) {
    RedrawChart(grid, chart);
    EXPECT_EQ(chart.series[0].load, "100%");
    EXPECT_EQ(chart.series[1].load, "60%");
    EXPECT_EQ(chart.series[2].load, "20%");
}

TEST_F(TChartDataTest, OldPointsAreCleared) {
    RedrawChart(grid, chart);
    RedrawChart(grid, chart);
    EXPECT_EQ(chart.series[1].points.size(), 2U);
    EXPECT_EQ(chart.recreations, 1);
}

TEST_F(TChartDataTest, AHiddenGridDrawsNothing) {
    RedrawChart(grid, chart);
    grid.SetCell(1, 1, "77");
    grid.visible = false;
    RedrawChart(grid, chart);
    EXPECT_EQ(chart.series[2].points[0].value, 1.0);
}

class TUnreadableTest : public TChartDataTest, public testing::WithParamInterface<const char *> {};

TEST_P(TUnreadableTest, DrawsMinus255InRed) {
    grid.SetCell(1, 2, GetParam());
    RedrawChart(grid, chart);
    EXPECT_EQ(chart.series[1].points[0], (TPoint{2400, -255.0, "2400", 0x0000FF}));
    EXPECT_EQ(chart.series[1].points[1].value, 4.0);
}
INSTANTIATE_TEST_SUITE_P(Texts, TUnreadableTest,
                         testing::Values("", "abc", "20%", "1,5", "nan", "0x10", "3e9", "-3e9"));

TEST_F(TChartDataTest, LabelsAreTheHeadersNumbersFormatted) {
    grid.SetCell(1, 0, " 2400.6 ");
    RedrawChart(grid, chart);
    EXPECT_EQ(chart.series[0].points[0].label, "2401");
}

TEST_F(TChartDataTest, AGridOfOneCellDrawsNothing) {
    grid.SetShape(1, 1);
    chart.RecreateSeries(0);
    RedrawChart(grid, chart);
    EXPECT_TRUE(chart.series.empty());
}

struct TColorCase {
    double value;
    TColor color;
};
class TChartColorTest : public testing::TestWithParam<TColorCase> {};

TEST_P(TChartColorTest, IsTheRoundedValueAbove0x880000) {
    EXPECT_EQ(ChartValueOf(GetParam().value).color, GetParam().color);
    EXPECT_EQ(ChartValueOf(GetParam().value).value, GetParam().value);
}
INSTANTIATE_TEST_SUITE_P(Values, TChartColorTest,
                         testing::Values(TColorCase{0, 8912896}, TColorCase{255, 0x8800FF},
                                         TColorCase{256, 0x880100}, TColorCase{0.5, 0x880000},
                                         TColorCase{1.5, 0x880002}, TColorCase{2.5, 0x880002},
                                         TColorCase{-1, 0x87FFFF}, TColorCase{-12.7, 0x87FFF3},
                                         TColorCase{-8912896, 0}, TColorCase{-8912897, 0xFFFFFFFF},
                                         TColorCase{2147483647, 0x8087FFFF}));

TEST(TChartColorErrorTest, WhatIsNo32BitIntegerIsMinus255InRed) {
    for (const std::optional<double> number :
         {std::optional<double>(), {2147483648.0}, {-2147483649.0}}) {
        EXPECT_EQ(ChartValueOf(number).value, -255);
        EXPECT_EQ(ChartValueOf(number).color, clRed);
    }
}

/// The rule word for word, on plain tables.
std::vector<TFakeMapChart::TSeries> Literally(const TFakeMapGrid &grid) {
    const int rowCount = grid.RowCount();
    std::vector<TFakeMapChart::TSeries> all(static_cast<std::size_t>(rowCount - 1));
    for (int i = 1; i <= rowCount - 1; ++i) {
        auto &s = all[static_cast<std::size_t>(rowCount - 1 - i)];
        s.title = grid.Cell(0, rowCount - i);
        s.load = grid.Cell(0, i);
        for (int j = 1; j <= grid.ColCount() - 1; ++j) {
            const double x = std::stod(grid.Cell(j, 0));
            const std::string label = std::to_string(std::lrint(x));
            const std::string text = grid.Cell(j, i);
            if (text.find_first_not_of("0123456789.-") != std::string::npos) {
                s.points.push_back({x, -255, label, 255});
                continue;
            }
            const double v = std::stod(text);
            s.points.push_back({x, v, label, static_cast<TColor>(std::lrint(v) + 8912896)});
        }
    }
    return all;
}

TEST(TRandomChartTest, AgreesWithThePlainVersion) {
    std::mt19937 random(20240611);
    const auto upTo = [&](int most) { return std::uniform_int_distribution(0, most)(random); };
    for (int round = 0; round < 300; ++round) {
        TFakeMapGrid grid;
        grid.visible = true;
        const int columns = 1 + upTo(31);
        const int rows = 2 + upTo(19);
        grid.SetShape(columns, rows);
        for (int column = 1; column < columns; ++column)
            grid.SetCell(column, 0, std::to_string(upTo(256) * 40));
        for (int row = 1; row < rows; ++row) {
            grid.SetCell(0, row, std::to_string(upTo(100)) + "%");
            for (int column = 1; column < columns; ++column)
                grid.SetCell(column, row,
                             upTo(9) == 0 ? "x"
                                          : FormatReal("##0.00", (upTo(60000) - 30000) / 64.0));
        }
        TFakeMapChart chart;
        chart.RecreateSeries(rows - 1);
        RedrawChart(grid, chart);
        const auto expected = Literally(grid);
        for (std::size_t s = 0; s < expected.size(); ++s) {
            EXPECT_EQ(chart.series[s].title, expected[s].title);
            EXPECT_EQ(chart.series[s].load, expected[s].load);
            ASSERT_EQ(chart.series[s].points, expected[s].points) << "round " << round;
        }
    }
}

// The quick chart's filling, from the map itself.

class TQuickFillTest : public TModelTest {
protected:
    /// Prepares the chart and fills it, as the window does.
    void Fill(const TMap &map) {
        map.SizeChart(chart);
        FillQuickChart(map, chart);
    }

    TFakeMapChart chart;
};

TEST_F(TQuickFillTest, SeriesRunBackwardsWithTheirOwnTitles) {
    PutMap(0x1000, {60, 136}, {100, 100, 0});
    TFuelMap map(2);
    map.SetOffset(0x1000);
    Fill(map);
    ASSERT_EQ(chart.series.size(), 3U);
    EXPECT_EQ(chart.series[0].title, "100");
    EXPECT_EQ(chart.series[2].title, "20");
    EXPECT_EQ(chart.series[0].load, "100");
    EXPECT_EQ(chart.series[2].load, "20");
    EXPECT_EQ(chart.series[2].points,
              (std::vector<TPoint>{{2400, 1, "2400", 0x880001}, {4800, 4, "4800", 0x880004}}));
    EXPECT_EQ(chart.series[0].points,
              (std::vector<TPoint>{{2400, 3, "2400", 0x880003}, {4800, 6, "4800", 0x880006}}));
}

TEST_F(TQuickFillTest, OldPointsAreCleared) {
    PutMap(0x1000, {60, 136}, {});
    TFuelMap map(1);
    map.SetOffset(0x1000);
    Fill(map);
    Fill(map);
    EXPECT_EQ(chart.series[0].points.size(), 2U);
}

TEST_F(TQuickFillTest, AHiddenChartIsLeftAlone) {
    PutMap(0x1000, TBytes(32, 1), {100, 0});
    TFuelMap map(2);
    map.SetOffset(0x1000);
    chart.RecreateSeries(1);
    Fill(map);
    EXPECT_FALSE(chart.visible);
    EXPECT_TRUE(chart.series[0].points.empty());
}

TEST_F(TQuickFillTest, ConvertedValuesAreDrawnAsShown) {
    PutMap(0x1000, {60, 136}, {});
    Put(0x1000 + 4, {128, 64});
    TFuelMap map(1);
    map.SetOffset(0x1000);
    map.data->SetShowConverted(true);
    Fill(map);
    EXPECT_EQ(chart.series[0].points,
              (std::vector<TPoint>{{2400, 1, "2400", 0x880001}, {4800, 0.5, "4800", 0x880000}}));
}

class TUnreadableBody : public TFuelMapData {
public:
    TUnreadableBody() : TFuelMapData(CreateCollection<TFailingValCollection>) {}
};

TEST_F(TQuickFillTest, WhatCannotBeReadIsMinus255InRed) {
    PutMap(0x1000, {60, 136}, {});
    TFuelMap map(1, [] { return std::unique_ptr<TMapData>(std::make_unique<TUnreadableBody>()); });
    map.SetOffset(0x1000);
    Fill(map);
    EXPECT_EQ(chart.series[0].points, (std::vector<TPoint>{{2400, -255, "2400", 0x0000FF},
                                                           {4800, -255, "4800", 0x0000FF}}));
}

/// The rule word for word, straight from the image's bytes.
std::vector<TFakeMapChart::TSeries> Literally(const TROMImage &image, int offset, int axisCount) {
    const auto points = [&](int axis, int base, double unit) {
        const int count = image.data[static_cast<std::size_t>(axis + 1)];
        std::vector<double> all(static_cast<std::size_t>(count));
        for (int i = count - 1, next = base; i >= 0; --i) {
            next -= image.data[static_cast<std::size_t>(axis + 2 + i)];
            all[static_cast<std::size_t>(i)] = next * unit;
        }
        return all;
    };
    const std::vector<double> rpm = points(offset, 256, 40);
    const int behind = offset + 2 + static_cast<int>(rpm.size());
    const std::vector<double> load = axisCount == 2 ? points(behind, 250, 0.4) : std::vector{0.0};
    const std::size_t body =
        static_cast<std::size_t>(behind) + (axisCount == 2 ? 2 + load.size() : 0);
    const std::size_t m = load.size();
    std::vector<TFakeMapChart::TSeries> all(m);
    for (std::size_t r = 0; r < m; ++r) {
        auto &s = all[m - 1 - r];
        s.title = s.load = std::to_string(std::lround(load[r]));
        for (std::size_t c = 0; c < rpm.size(); ++c) {
            const int byte = image.data[body + c * m + r];
            s.points.push_back({rpm[c], static_cast<double>(byte),
                                std::to_string(std::lround(rpm[c])),
                                static_cast<TColor>(byte + 8912896)});
        }
    }
    return all;
}

TEST_F(TQuickFillTest, AgreesWithThePlainVersionOnRandomMaps) {
    std::mt19937 random(20240612);
    const auto from = [&](int least, int most) {
        return std::uniform_int_distribution(least, most)(random);
    };
    for (int round = 0; round < 300; ++round) {
        for (std::uint8_t &byte : std::span(Image().data).first(0x2000))
            byte = static_cast<std::uint8_t>(from(0, 255));
        const int axisCount = from(1, 2);
        const int offset = from(1, 0x1000);
        const int rpmCount = from(1, 31);
        Image().Poke(offset + 1, static_cast<std::uint8_t>(rpmCount));
        for (int i = 0; i < rpmCount; ++i)
            Image().Poke(offset + 2 + i, static_cast<std::uint8_t>(from(0, 8)));
        const int load = offset + 2 + rpmCount;
        if (axisCount == 2) {
            const int loadCount = from(1, 20);
            Image().Poke(load + 1, static_cast<std::uint8_t>(loadCount));
            for (int i = 0; i < loadCount; ++i)
                Image().Poke(load + 2 + i, static_cast<std::uint8_t>(from(0, 12)));
        }
        TFuelMap map(axisCount);
        map.SetOffset(offset);
        Fill(map);
        const auto expected = Literally(Image(), offset, axisCount);
        ASSERT_EQ(chart.series.size(), expected.size()) << "round " << round;
        for (std::size_t s = 0; s < expected.size(); ++s) {
            EXPECT_EQ(chart.series[s].title, expected[s].title) << "round " << round;
            EXPECT_EQ(chart.series[s].load, expected[s].load) << "round " << round;
            ASSERT_EQ(chart.series[s].points, expected[s].points) << "round " << round;
        }
    }
}
} // namespace
