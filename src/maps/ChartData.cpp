#include "maps/ChartData.h"

#include "model/Errors.h"
#include "model/Numbers.h"

namespace {
struct TPoint {
    double value;
    TColor color;
};

TPoint PointOfText(const std::string &text) {
    try {
        const double value = ParseReal(text);
        return {value, PointColor(value)};
    } catch (const EConvertError &) {
    } catch (const ERangeError &) {
    }
    return {unreadableValue, clRed};
}

void AddCell(const IMapGrid &grid, int column, int row, IMapChart &chart, int series) {
    const std::string header = grid.Cell(column, 0);
    const std::optional<double> rpm = TryParseReal(header);
    const TPoint point = PointOfText(grid.Cell(column, row));
    chart.AddPoint(series, rpm.value_or(column), point.value,
                   rpm ? FormatReal("####0", *rpm) : header, point.color);
}
} // namespace

TColor PointColor(double value) {
    return static_cast<TColor>(Round(value)) + chartColorBase;
}

void RedrawChart(const IMapGrid &grid, IMapChart &chart) {
    if (!grid.Visible())
        return;
    const int rows = grid.RowCount();
    for (int row = 1; row < rows; ++row) {
        const int series = rows - 1 - row;
        chart.ClearSeries(series);
        chart.SetSeriesTitle(series, grid.Cell(0, rows - row));
        for (int column = 1; column < grid.ColCount(); ++column)
            AddCell(grid, column, row, chart, series);
    }
}
