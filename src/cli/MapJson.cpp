#include "cli/MapJson.h"

#include "cli/MapGridText.h"
#include "cli/MapNames.h"
#include "model/Numbers.h"

namespace {
/// Engine speeds and loads as they are, where the grid shows them without decimals.
constexpr const char *exactAxisPicture = "####0.0";

/// The number that stands for a shown text, not the one that it was rounded from.
TJson NumberOf(const std::string &text) {
    const std::optional<double> number = TryParseReal(text);
    return number ? TJson(*number) : TJson(text);
}

TJson PointsOf(const TAxisData &axis, int count) {
    TJson points = TJson::array();
    for (int i = 0; i < count; ++i)
        if (const TVal *point = axis.values->GetItem(i, 0))
            points.push_back(NumberOf(FormatReal(exactAxisPicture, point->GetValue())));
    return points;
}

template <class TCell>
TJson Rows(const TMap &map, const TCell &cell) {
    TJson rows = TJson::array();
    for (int load = 0; load < map.LoadCount(); ++load) {
        TJson row = TJson::array();
        for (int rpm = 0; rpm < map.RPMCount(); ++rpm)
            row.push_back(cell(rpm, load));
        rows.push_back(std::move(row));
    }
    return rows;
}
} // namespace

TJson MapJson(TMapId id, const TMap &map) {
    const TTextGrid grid = GridOf(map);
    return {{"name", NameOf(id)},
            {"offset", map.GetLocation()},
            {"units", UnitsOf(id, map)},
            {"rpm", PointsOf(*map.axes->rpmAxis, map.RPMCount())},
            {"load", PointsOf(*map.axes->throttleAxis, map.LoadCount())},
            {"values",
             Rows(map, [&](int rpm, int load) { return NumberOf(grid.Cell(rpm + 1, load + 1)); })},
            {"raw", Rows(map, [&](int rpm, int load) {
                 return map.data->values->GetItem(rpm, load)->raw;
             })}};
}
