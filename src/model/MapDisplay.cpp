// How maps show themselves in grids and charts and take edits back from grids.
#include "model/MapTypes.h"
#include "model/Messages.h"
#include "model/Numbers.h"
#include "system/Texts.h"

#include <exception>
#include <optional>
#include <string>

namespace {

constexpr const char *rpmFormat = "####0";
constexpr const char *loadFormat = "##0";

std::string RPMText(const TVal &point) {
    return FormatReal(rpmFormat, point.GetValue());
}

std::string LoadText(const TVal &point) {
    return FormatReal(loadFormat, point.GetValue()) + "%";
}

/// Writes a text where the grid has such a cell.
void ShowCell(IMapGrid &grid, int column, int row, const std::string &text) {
    if (column < grid.ColCount() && row < grid.RowCount())
        grid.SetCell(column, row, text);
}

bool Edited(const IMapGrid &grid, int column, int row) {
    return grid.FontColor(column, row) == clBlue;
}

void ClearMarks(IMapGrid &grid) {
    for (int column = 0; column < grid.ColCount(); ++column)
        for (int row = 0; row < grid.RowCount(); ++row)
            grid.SetFontColor(column, row, clWindowText);
}

/// The number that a cell shows; nothing when it cannot be read.
std::optional<double> ReadCell(const TVal *value) {
    try {
        if (value)
            return value->GetValue();
    } catch (const std::exception &) {
        // The caller reports it together with the cell's place.
    }
    return std::nullopt;
}

/// Takes a body cell's text into its value; false when it is no number or out of range.
bool TakeCell(const std::string &text, TVal *value) {
    const std::optional<double> number = TryParseReal(text);
    if (!number || !value)
        return false;
    try {
        value->SetValue(*number);
    } catch (const std::exception &) {
        return false;
    }
    return true;
}

/// Takes an edited header cell into its point; conversion and range errors go to the caller.
void TakeHeader(IMapGrid &grid, int column, int row, TVal *point) {
    if (!point || !Edited(grid, column, row))
        return;
    const std::string text = grid.Cell(column, row);
    const bool isLoad = column == 0;
    point->SetValue(ParseReal(isLoad ? text.substr(0, text.find('%')) : text));
    grid.SetFontColor(column, row, clBlack);
}

} // namespace

TChartValue ChartValueOf(std::optional<double> number) {
    const std::optional<std::int32_t> rounded = number ? TryRound(*number) : std::nullopt;
    if (!rounded)
        return {unreadableValue, clRed};
    return {*number, static_cast<TColor>(*rounded) + chartColorBase};
}

void TMap::SizeGrid(IMapGrid &grid) const {
    const bool shown = Fits() && RPMCount() > 0;
    grid.SetShape(shown ? RPMCount() + 1 : 1, shown ? LoadCount() + 1 : 1);
    grid.SetVisible(Fits());
}

void TMap::FillGrid(IMapGrid &grid, std::string &locationLabel, const std::string &cellFormat,
                    int maxRows, int maxColumns) const {
    locationLabel = FormatOffset(axes->rpmAxis->offset);
    grid.SetVisible(Fits());
    if (!Fits())
        return;
    // Header marks go too, so that a discarded header edit is never read back later.
    ClearMarks(grid);
    FillHeaders(grid);
    FillBody(grid, cellFormat);
    grid.ShowAtMost(maxRows, maxColumns);
}

void TMap::FillHeaders(IMapGrid &grid) const {
    for (int r = 0; r < RPMCount(); ++r)
        if (const TVal *point = axes->rpmAxis->values->GetItem(r, 0))
            ShowCell(grid, r + 1, 0, RPMText(*point));
    for (int t = 0; t < LoadCount(); ++t)
        if (const TVal *point = axes->throttleAxis->values->GetItem(t, 0))
            ShowCell(grid, 0, t + 1, LoadText(*point));
}

void TMap::FillBody(IMapGrid &grid, const std::string &cellFormat) const {
    for (int r = 0; r < RPMCount(); ++r)
        for (int t = 0; t < LoadCount(); ++t)
            if (const auto number = ReadCell(data->values->GetItem(r, t)))
                ShowCell(grid, r + 1, t + 1, FormatReal(cellFormat, *number));
            else
                ShowModelMessage(Filled(Translated("Model", "data error: x=%1 y=%2"),
                                        {FormatReal(cellFormat, r), FormatReal(cellFormat, t)}));
}

void TMap::ReadGrid(IMapGrid &grid) {
    ReadBody(grid);
    ReadHeaders(grid);
}

void TMap::ReadBody(IMapGrid &grid) {
    for (int column = 1; column < grid.ColCount(); ++column)
        for (int row = 1; row < grid.RowCount(); ++row)
            if (Edited(grid, column, row) &&
                TakeCell(grid.Cell(column, row), data->values->GetItem(column - 1, row - 1)))
                grid.SetFontColor(column, row, clGreen);
}

void TMap::ReadHeaders(IMapGrid &grid) {
    for (int column = 1; column < grid.ColCount(); ++column)
        TakeHeader(grid, column, 0, axes->rpmAxis->values->GetItem(column - 1, 0));
    if (axisCount < 2)
        return;
    for (int row = 1; row < grid.RowCount(); ++row)
        TakeHeader(grid, 0, row, axes->throttleAxis->values->GetItem(row - 1, 0));
}

void TMap::SizeChart(IMapChart &chart) const {
    chart.SetVisible(Fits());
    if (Fits() && chart.SeriesCount() != LoadCount())
        chart.RecreateSeries(LoadCount());
}

void TMap::FillChart(IMapChart &chart) const {
    if (!chart.Visible() || !Fits())
        return;
    SizeChart(chart);
    for (int t = 0; t < LoadCount(); ++t)
        FillSeries(chart, t, t);
}

void TMap::FillSeries(IMapChart &chart, int series, int loadPoint) const {
    chart.ClearSeries(series);
    if (const TVal *load = axes->throttleAxis->values->GetItem(loadPoint, 0)) {
        const std::string label = FormatReal(loadFormat, load->GetValue());
        chart.SetSeriesTitle(series, label);
        chart.SetSeriesLoad(series, label);
    }
    for (int r = 0; r < RPMCount(); ++r)
        if (const TVal *rpm = axes->rpmAxis->values->GetItem(r, 0)) {
            const TChartValue drawn = ChartValueOf(ReadCell(data->values->GetItem(r, loadPoint)));
            chart.AddPoint(series, rpm->GetValue(), drawn.value, RPMText(*rpm), drawn.color);
        }
}
