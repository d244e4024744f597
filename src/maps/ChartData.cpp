#include "maps/ChartData.h"

#include "model/Numbers.h"
#include "system/Errors.h"

namespace {
void AddCell(const IMapGrid &grid, int column, int row, IMapChart &chart, int series) {
    const std::string header = grid.Cell(column, 0);
    const std::optional<double> rpm = TryParseReal(header);
    const TChartValue point = ChartValueOf(TryParseReal(grid.Cell(column, row)));
    chart.AddPoint(series, rpm.value_or(column), point.value,
                   rpm ? FormatReal("####0", *rpm) : header, point.color);
}
} // namespace

void RedrawChart(const IMapGrid &grid, IMapChart &chart) {
    if (!grid.Visible())
        return;
    const int rows = grid.RowCount();
    for (int row = 1; row < rows; ++row) {
        const int series = rows - 1 - row;
        chart.ClearSeries(series);
        chart.SetSeriesTitle(series, grid.Cell(0, rows - row));
        chart.SetSeriesLoad(series, grid.Cell(0, row));
        for (int column = 1; column < grid.ColCount(); ++column)
            AddCell(grid, column, row, chart, series);
    }
}

void FillQuickChart(const TMap &map, IMapChart &chart) {
    if (!chart.Visible())
        return;
    for (int load = 0; load < map.LoadCount(); ++load)
        map.FillSeries(chart, map.LoadCount() - 1 - load, load);
}
