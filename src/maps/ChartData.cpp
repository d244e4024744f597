#include "maps/ChartData.h"

#include "model/Errors.h"
#include "model/Numbers.h"

#include <exception>

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

TPoint PointOfValue(const TVal *value) {
    try {
        if (value)
            return {value->GetValue(), PointColor(value->GetValue())};
    } catch (const std::exception &) {
        // Drawn like what cannot be read at all.
    }
    return {unreadableValue, clRed};
}

void AddValue(const TMap &map, int rpmPoint, int loadPoint, IMapChart &chart, int series) {
    const TVal *rpm = map.axes->rpmAxis->values->GetItem(rpmPoint, 0);
    if (!rpm)
        return;
    const TPoint point = PointOfValue(map.data->values->GetItem(rpmPoint, loadPoint));
    chart.AddPoint(series, rpm->GetValue(), point.value, FormatReal("####0", rpm->GetValue()),
                   point.color);
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
        chart.SetSeriesLoad(series, grid.Cell(0, row));
        for (int column = 1; column < grid.ColCount(); ++column)
            AddCell(grid, column, row, chart, series);
    }
}

void FillQuickChart(const TMap &map, IMapChart &chart) {
    if (!chart.Visible())
        return;
    const int loadPoints = map.LoadCount();
    for (int r = 0; r < loadPoints; ++r) {
        const int series = loadPoints - 1 - r;
        chart.ClearSeries(series);
        if (const TVal *load = map.axes->throttleAxis->values->GetItem(r, 0)) {
            const std::string label = FormatReal("##0", load->GetValue());
            chart.SetSeriesTitle(series, label);
            chart.SetSeriesLoad(series, label);
        }
        for (int c = 0; c < map.RPMCount(); ++c)
            AddValue(map, c, r, chart, series);
    }
}
