#include "support/FailingVals.h"
#include "support/FakeMapViews.h"
#include "support/ModelFixture.h"

#include <cstdint>
#include <memory>
#include <string>

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// A part throttle map of 3 RPM points and 2 load points at 0x6000 with the body 1 to 6.
struct TMapDisplayTest : TModelTest {
    TMapDisplayTest() {
        PutMap(0x6000, {0x10, 0x20, 0x40}, {0x32, 0x7D});
        map.SetOffset(0x6000);
    }

    TFuelMap map{2};
    TFakeMapGrid grid;
    TFakeMapChart chart;
    std::string label;

    void Show(const TMap &shown) {
        shown.SizeGrid(grid);
        shown.FillGrid(grid, label, shown.GetCellFormat(), 12, 12);
    }
    /// Places a map with axes of these counts.
    void Shape(TMap &shaped, std::size_t rpm, std::size_t load) {
        PutAxis(PutAxis(0x100, TBytes(rpm, 1)), TBytes(load, 1));
        shaped.SetOffset(0x100);
    }
    std::int32_t Raw(std::int32_t r, std::int32_t t) {
        return map.data->values->GetItem(r, t)->raw;
    }
};

TEST_F(TMapDisplayTest, SizesTheGridByTheStoredCounts) {
    const struct {
        std::size_t rpm, load;
        int columns, rows;
        bool visible;
    } cases[] = {{3, 2, 4, 3, true},     {1, 1, 2, 2, true},   {31, 20, 32, 21, true},
                 {5, 0, 6, 1, true},     {0, 5, 1, 1, true},   {32, 2, 1, 1, false},
                 {33, 2, 1, 1, false},   {3, 21, 1, 1, false}, {3, 32, 1, 1, false},
                 {255, 255, 1, 1, false}};
    for (const auto &[rpm, load, columns, rows, visible] : cases) {
        grid.SetShape(7, 7);
        grid.visible = !visible;
        Shape(map, rpm, load);
        map.SizeGrid(grid);
        EXPECT_EQ(grid.ColCount(), columns) << rpm << " x " << load;
        EXPECT_EQ(grid.RowCount(), rows) << rpm << " x " << load;
        EXPECT_EQ(grid.visible, visible) << rpm << " x " << load;
    }
}

TEST_F(TMapDisplayTest, AnUnplacedMapIsOneEmptyCell) {
    for (const std::int32_t axes : {1, 2}) {
        TFuelMap unplaced(axes);
        unplaced.axes->throttleAxis->SetSinglePoint(0);
        Show(unplaced);
        EXPECT_EQ(grid.ColCount(), 1);
        EXPECT_EQ(grid.RowCount(), 1);
        EXPECT_TRUE(grid.visible);
        EXPECT_EQ(grid.Cell(0, 0), "");
        EXPECT_EQ(label, "$0000");
    }
}

TEST_F(TMapDisplayTest, FillsHeadersAndBody) {
    Show(map);
    EXPECT_EQ(label, "$6000");
    EXPECT_THAT(grid.Row(0), ElementsAre("", "5760", "6400", "7680"));
    EXPECT_THAT(grid.Row(1), ElementsAre("30%", "1", "3", "5"));
    EXPECT_THAT(grid.Row(2), ElementsAre("50%", "2", "4", "6"));
    EXPECT_EQ(grid.limits, std::pair(12, 12));
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(TMapDisplayTest, ShowsCellsInTheUnitsAndFormatsGiven) {
    Put(0x6009, {131});
    map.SetOffset(0x6000);
    map.data->SetShowConverted(true);
    Show(map);
    EXPECT_EQ(grid.Cell(1, 1), "1.02");
    EXPECT_EQ(grid.Cell(2, 1), "0.02");
    map.FillGrid(grid, label, "0.0000", 1, 20);
    EXPECT_EQ(grid.Cell(1, 1), "1.0234");
    EXPECT_EQ(grid.limits, std::pair(1, 20));
}

TEST_F(TMapDisplayTest, ShowsTimingCellsInDegrees) {
    TTimingMap timing(2);
    Put(0x6009, {60});
    timing.SetOffset(0x6000);
    timing.data->SetShowConverted(true);
    Show(timing);
    EXPECT_EQ(grid.Cell(1, 1), "0.0") << "no divider yet";
    TimingConstants() = {0.65, 12.7};
    Show(timing);
    EXPECT_EQ(grid.Cell(1, 1), "30.7");
}

TEST_F(TMapDisplayTest, ShowsLinearMapsWithTheirSingleLoadPoint) {
    TFuelMapSet set;
    set.SetOffsets(0, 0x6000, 0x6000);
    Show(*set.IdleMap);
    EXPECT_THAT(grid.Row(0), ElementsAre("", "5760", "6400", "7680"));
    EXPECT_EQ(grid.Cell(0, 1), "0%");
    Show(*set.WOTMap);
    EXPECT_EQ(grid.Cell(0, 1), "100%");
    EXPECT_EQ(grid.RowCount(), 2);
}

TEST_F(TMapDisplayTest, AFillClearsAllEditMarks) {
    Show(map);
    for (int column = 0; column < grid.ColCount(); ++column)
        for (int row = 0; row < grid.RowCount(); ++row)
            grid.SetFontColor(column, row, (column + row) % 2 ? clBlue : clRed);
    map.FillGrid(grid, label, "##0", 12, 12);
    for (int column = 0; column < grid.ColCount(); ++column)
        for (int row = 0; row < grid.RowCount(); ++row)
            EXPECT_EQ(grid.FontColor(column, row), clWindowText) << column << " " << row;
}

TEST_F(TMapDisplayTest, AnOversizedMapIsHiddenAndNotFilled) {
    Show(map);
    Shape(map, 32, 2);
    map.FillGrid(grid, label, "##0", 3, 3);
    EXPECT_EQ(label, "$0100") << "the label is set in any case";
    EXPECT_FALSE(grid.visible);
    EXPECT_EQ(grid.Cell(1, 0), "5760");
    EXPECT_EQ(grid.limits, std::pair(12, 12));
    map.SetOffset(0x6000);
    map.FillGrid(grid, label, "##0", 3, 3);
    EXPECT_TRUE(grid.visible);
    EXPECT_EQ(grid.limits, std::pair(3, 3));
}

TEST_F(TMapDisplayTest, AGridOfAnotherShapeIsFilledAsFarAsItGoes) {
    grid.SetShape(2, 2);
    map.FillGrid(grid, label, "##0", 12, 12);
    EXPECT_THAT(grid.Row(0), ElementsAre("", "5760"));
    EXPECT_THAT(grid.Row(1), ElementsAre("30%", "1"));
    grid.SetShape(6, 5);
    map.FillGrid(grid, label, "##0", 12, 12);
    EXPECT_THAT(grid.Row(2), ElementsAre("50%", "2", "4", "6", "", ""));
}

TEST_F(TMapDisplayTest, ACellThatCannotBeShownIsReportedAndTheOthersFilled) {
    Shape(map, 6, 7);
    map.data->SetShowConverted(true);
    map.data->values->SetItem(3, 5, std::make_unique<TFailingVal>());
    map.data->values->SetItem(4, 0, nullptr);
    Show(map);
    EXPECT_THAT(Messages(), ElementsAre("data error: x=3.00 y=5.00", "data error: x=4.00 y=0.00"));
    EXPECT_EQ(grid.Cell(4, 6), "");
    EXPECT_EQ(grid.Cell(6, 7), "0.00");
}

TEST_F(TMapDisplayTest, TheErrorsPlaceIsInTheCellsFormat) {
    map.data->values->SetItem(1, 1, std::make_unique<TFailingVal>());
    Show(map);
    EXPECT_THAT(Messages(), ElementsAre("data error: x=1 y=1"));
}

TEST_F(TMapDisplayTest, ReadsBlueBodyCellsOnly) {
    Show(map);
    grid.Edit(1, 1, "200");
    grid.Edit(3, 2, " 2.5 ");
    grid.SetCell(2, 1, "99");
    grid.Edit(2, 2, "77");
    grid.SetFontColor(2, 2, clRed);
    map.ReadGrid(grid);
    EXPECT_THAT(RawOf(*map.data), ElementsAre(200, 2, 3, 4, 5, 2));
    EXPECT_EQ(grid.FontColor(1, 1), clGreen);
    EXPECT_EQ(grid.FontColor(3, 2), clGreen);
    EXPECT_EQ(grid.FontColor(2, 1), clWindowText);
    EXPECT_EQ(grid.FontColor(2, 2), clRed);
    EXPECT_TRUE(map.IsModified());
    EXPECT_EQ(Image().Peek(0x6009), 1) << "nothing reaches the image before the save";
}

TEST_F(TMapDisplayTest, TakesEditsInTheUnitsShown) {
    map.data->SetShowConverted(true);
    Show(map);
    grid.Edit(1, 1, "0.996");
    map.ReadGrid(grid);
    EXPECT_EQ(Raw(0, 0), 127);
}

TEST_F(TMapDisplayTest, FollowsTheDecimalSeparator) {
    map.data->SetShowConverted(true);
    SetDecimalSeparator(",");
    Show(map);
    EXPECT_EQ(grid.Cell(3, 2), "0,05");
    grid.Edit(1, 1, "0,996");
    grid.Edit(2, 1, "0.996");
    map.ReadGrid(grid);
    EXPECT_EQ(Raw(0, 0), 127);
    EXPECT_EQ(Raw(1, 0), 3) << "no number in this locale";
}

TEST_F(TMapDisplayTest, BodyCellsThatAreNoNumberStayBlue) {
    Show(map);
    for (const char *text : {"", "abc", "12%", "1e30", "nan"}) {
        grid.Edit(1, 1, text);
        grid.Edit(1, 2, "9");
        map.ReadGrid(grid);
        EXPECT_EQ(grid.FontColor(1, 1), clBlue) << text;
        EXPECT_EQ(Raw(0, 0), 1) << text;
        EXPECT_EQ(grid.FontColor(1, 2), clGreen);
        EXPECT_EQ(Raw(0, 1), 9);
    }
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(TMapDisplayTest, ReadsHeaders) {
    Show(map);
    grid.Edit(2, 0, "6510");
    grid.Edit(0, 1, "25%");
    grid.Edit(0, 2, "48 % or % so");
    map.ReadGrid(grid);
    EXPECT_THAT(RawOf(*map.axes->rpmAxis), ElementsAre(144, 163, 192));
    EXPECT_THAT(RawOf(*map.axes->throttleAxis), ElementsAre(62, 120));
    for (const auto &[column, row] : {std::pair{2, 0}, {0, 1}, {0, 2}})
        EXPECT_EQ(grid.FontColor(column, row), clBlack);
    EXPECT_FALSE(map.IsModified()) << "axis edits do not count";
    map.Save();
    EXPECT_EQ(Get(0x6000, 9), (TBytes{0xA5, 3, 19, 29, 64, 0xA5, 2, 58, 130}));
}

TEST_F(TMapDisplayTest, ALinearMapReadsNoLoadHeader) {
    TFuelMap linear(1);
    linear.SetOffset(0x6000);
    Show(linear);
    grid.Edit(0, 1, "no number");
    linear.ReadGrid(grid);
    EXPECT_EQ(grid.FontColor(0, 1), clBlue);
    EXPECT_EQ(linear.axes->throttleAxis->values->GetItem(0, 0)->raw, 0);
}

TEST_F(TMapDisplayTest, ABadHeaderStopsButKeepsWhatWasTaken) {
    Show(map);
    grid.Edit(1, 1, "200");
    grid.Edit(1, 0, "4000");
    grid.Edit(2, 0, "abc");
    grid.Edit(3, 0, "8000");
    grid.Edit(0, 1, "20%");
    try {
        map.ReadGrid(grid);
        FAIL() << "no conversion error";
    } catch (const EConvertError &error) {
        EXPECT_STREQ(error.what(), "'abc' is not a valid floating point value");
    }
    EXPECT_EQ(Raw(0, 0), 200);
    EXPECT_THAT(RawOf(*map.axes->rpmAxis), ElementsAre(100, 160, 192));
    EXPECT_EQ(grid.FontColor(1, 0), clBlack);
    EXPECT_EQ(grid.FontColor(2, 0), clBlue);
    EXPECT_EQ(map.axes->throttleAxis->values->GetItem(0, 0)->modified, false);
}

TEST_F(TMapDisplayTest, HeaderErrorsReachTheCaller) {
    const struct {
        int column, row;
        const char *text;
    } cases[] = {{1, 0, "400%"}, {0, 1, "%"}, {0, 2, ""}};
    for (const auto &[column, row, text] : cases) {
        Show(map);
        grid.Edit(column, row, text);
        EXPECT_THROW(map.ReadGrid(grid), EConvertError) << text;
    }
    Show(map);
    grid.Edit(1, 0, "1e30");
    EXPECT_THROW(map.ReadGrid(grid), ERangeError);
}

TEST_F(TMapDisplayTest, CellsWithoutAValueAreLeftAlone) {
    grid.SetShape(6, 6);
    map.FillGrid(grid, label, "##0", 12, 12);
    grid.Edit(5, 5, "9");
    grid.Edit(5, 0, "9");
    grid.Edit(0, 5, "9");
    grid.Edit(0, 0, "9");
    map.ReadGrid(grid);
    EXPECT_FALSE(map.IsModified());
    EXPECT_EQ(grid.FontColor(5, 5), clBlue);
}

TEST_F(TMapDisplayTest, ATimingEntryWithoutDividerCountsAsAnEdit) {
    TTimingMap timing(2);
    timing.SetOffset(0x6000);
    timing.data->SetShowConverted(true);
    Show(timing);
    grid.Edit(1, 1, "30");
    timing.ReadGrid(grid);
    EXPECT_THAT(Messages(), ElementsAre("Timing Divider Not yet Set"));
    EXPECT_EQ(timing.data->values->GetItem(0, 0)->raw, 1);
    EXPECT_TRUE(timing.IsModified());
    EXPECT_EQ(grid.FontColor(1, 1), clGreen);
}

TEST_F(TMapDisplayTest, AFillAndReadBackWithoutEditsChangesNothing) {
    const TBytes before = Get(0, TROMImage::capacity);
    Show(map);
    map.ReadGrid(grid);
    EXPECT_FALSE(map.IsModified());
    map.Save();
    EXPECT_EQ(Get(0, TROMImage::capacity), before);
}

TEST_F(TMapDisplayTest, SizesTheChartByTheLoadPoints) {
    chart.RecreateSeries(12);
    map.SizeChart(chart);
    EXPECT_TRUE(chart.visible);
    EXPECT_THAT(chart.series, SizeIs(2));
    map.SizeChart(chart);
    EXPECT_EQ(chart.recreations, 2) << "a chart with the right count keeps its series";
    Shape(map, 3, 21);
    map.SizeChart(chart);
    EXPECT_FALSE(chart.visible);
    EXPECT_THAT(chart.series, SizeIs(2));
}

TEST_F(TMapDisplayTest, FillsTheChart) {
    map.SizeChart(chart);
    map.FillChart(chart);
    ASSERT_THAT(chart.series, SizeIs(2));
    EXPECT_EQ(chart.series[0].title, "30");
    EXPECT_EQ(chart.series[1].title, "50");
    EXPECT_EQ(chart.series[0].load, "30");
    EXPECT_EQ(chart.series[1].load, "50");
    EXPECT_THAT(chart.series[0].points,
                ElementsAre(TFakeMapChart::TPoint{5760, 1, "5760", 0x880001},
                            TFakeMapChart::TPoint{6400, 3, "6400", 0x880003},
                            TFakeMapChart::TPoint{7680, 5, "7680", 0x880005}));
    map.FillChart(chart);
    EXPECT_THAT(chart.series[1].points, SizeIs(3)) << "series are cleared first";
}

TEST_F(TMapDisplayTest, ChartsShowWhatCannotBeReadInRed) {
    map.data->values->SetItem(1, 0, std::make_unique<TFailingVal>());
    map.SizeChart(chart);
    map.FillChart(chart);
    EXPECT_EQ(chart.series[0].points[1], (TFakeMapChart::TPoint{6400, -255, "6400", clRed}));
    EXPECT_EQ(chart.series[0].points[2].value, 5);
}

TEST_F(TMapDisplayTest, AHiddenChartIsNotFilled) {
    map.SizeChart(chart);
    chart.visible = false;
    map.FillChart(chart);
    EXPECT_THAT(chart.series[0].points, IsEmpty());
}

TEST_F(TMapDisplayTest, AChartOfAMapThatDoesNotFitIsNotFilled) {
    map.SizeChart(chart);
    for (const auto &[rows, columns] : {std::pair{32U, 2U}, std::pair{3U, 21U}}) {
        Shape(map, rows, columns);
        map.FillChart(chart);
        EXPECT_THAT(chart.series, SizeIs(2));
        EXPECT_THAT(chart.series[0].points, IsEmpty());
    }
}

TEST_F(TMapDisplayTest, AChartOfAnotherCountIsGivenTheRightOne) {
    chart.RecreateSeries(5);
    map.FillChart(chart);
    ASSERT_THAT(chart.series, SizeIs(2));
    EXPECT_THAT(chart.series[0].points, SizeIs(3));
}

TEST_F(TMapDisplayTest, OnlyPureBlueIsEdited) {
    for (const TColor color : {0xFF0001U, 0xFF0100U, 0xFE0000U, 0x01FF0000U, 0x80FF0000U, clBlack,
                               clGreen, clWindowText}) {
        Show(map);
        for (const auto &[column, row] : {std::pair{1, 1}, {1, 0}, {0, 1}}) {
            grid.SetCell(column, row, "99");
            grid.SetFontColor(column, row, color);
        }
        map.ReadGrid(grid);
        EXPECT_EQ(Raw(0, 0), 1) << std::hex << color;
        EXPECT_THAT(RawOf(*map.axes->rpmAxis), ElementsAre(144, 160, 192)) << std::hex << color;
        EXPECT_THAT(RawOf(*map.axes->throttleAxis), ElementsAre(75, 125)) << std::hex << color;
        EXPECT_EQ(grid.FontColor(1, 1), color) << "no mark of a commit";
    }
}
} // namespace
