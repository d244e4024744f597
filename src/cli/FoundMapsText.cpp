#include "cli/FoundMapsText.h"

#include "cli/MapNames.h"
#include "discovery/FindPageTexts.h"
#include "discovery/FindTexts.h"
#include "discovery/FoundRanges.h"
#include "model/Numbers.h"
#include "model/ROMImage.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {
using TColumns = std::array<std::string, 7>;

/// Columns are two blanks apart; the last one is as wide as it is.
std::string TextTable(const std::vector<TColumns> &lines, const std::vector<std::string> &below) {
    TColumns widest;
    for (const TColumns &line : lines)
        for (std::size_t i = 0; i + 1 < line.size(); ++i)
            widest[i].resize(std::max(widest[i].size(), line[i].size()), ' ');
    std::string text;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        for (std::size_t column = 0; column + 1 < widest.size(); ++column)
            text += lines[i][column] + widest[column].substr(lines[i][column].size()) + "  ";
        text += lines[i].back() + '\n' + below[i];
    }
    return text;
}

TColumns ColumnsOf(const TFoundMap &map, std::size_t rank) {
    const std::optional<TAxisRange> load = LoadRange(map.place);
    return {std::to_string(rank),
            FormatOffset(static_cast<std::int32_t>(map.place.offset)),
            KindText(map),
            ShapeText(map.place),
            RpmRange(map.place).Text(),
            load ? load->Text() : std::string(),
            ChanceText(map)};
}

std::string Indented(const std::vector<std::string> &texts) {
    std::string all;
    for (const std::string &text : texts)
        all += "      " + text + '\n';
    return all;
}

TJson SharedJson(const std::optional<TSharedHeader> &header) {
    if (!header)
        return nullptr;
    return {{"location", header->location}, {"maps", header->maps}, {"of_maps", header->ofMaps}};
}

TJson RangeJson(const std::optional<TAxisRange> &range) {
    if (!range)
        return nullptr;
    return {{"first", range->first}, {"last", range->last}};
}

TJson ReasonsJson(const TFoundMap &map) {
    TJson reasons = TJson::array();
    for (const TReason &reason : Reasons(map))
        reasons.push_back({{"text", reason.text}, {"speaks_for", reason.points > 0}});
    return reasons;
}

bool IsProposed(const TFoundMaps &found, std::size_t index) {
    return std::ranges::any_of(
        notebookMaps, [&](const TNotebookMap &map) { return Proposed(found, map) == index; });
}

/// The map of the notebook that it seems to be.
TMapId MapIdOf(const TFoundMap &map) {
    return {map.contents == TMapContents::Fuel ? TMapSetKind::Fuel : TMapSetKind::Timing, map.kind};
}

TJson FoundJson(const TFoundMaps &found, std::size_t index) {
    constexpr double precision = 10000;
    const TFoundMap &map = found.maps[index];
    return {{"rank", index + 1},
            {"name", NameOf(MapIdOf(map))},
            {"proposed", IsProposed(found, index)},
            {"offset", map.place.offset},
            {"rpm_points", map.place.rpmPoints},
            {"load_points", map.place.loadPoints},
            {"rpm", RangeJson(RpmRange(map.place))},
            {"load", RangeJson(LoadRange(map.place))},
            {"chance", std::round(map.Chance() * precision) / precision}};
}
} // namespace

std::string FoundMapsText(const TFoundMaps &found, TFoundChoice choice) {
    const std::string where = LocationsText(found);
    std::string text = LikelyText(found, static_cast<std::size_t>(ROMImage()->size)) + '\n' +
                       where + (where.empty() ? "" : "\n");
    if (choice.count == 0)
        return text;
    std::vector<TColumns> lines{{"#", "offset", "map", "shape", "RPM", "load", "chance"}};
    std::vector<std::string> below{""};
    for (std::size_t i = 0; i < choice.count; ++i) {
        lines.push_back(ColumnsOf(found.maps[i], i + 1));
        below.push_back(choice.reasons ? Indented(ReasonTexts(found.maps[i])) : "");
    }
    return text + TextTable(lines, below);
}

void AddFoundMaps(TJson &json, const TFoundMaps &found, TFoundChoice choice) {
    json["size"] = ROMImage()->size;
    json["likely"] = found.likely;
    json["rpm_location"] = SharedJson(found.rpmLocation);
    json["load_location"] = SharedJson(found.loadLocation);
    json["maps"] = TJson::array();
    for (std::size_t i = 0; i < choice.count; ++i) {
        TJson map = FoundJson(found, i);
        if (choice.reasons)
            map["reasons"] = ReasonsJson(found.maps[i]);
        json["maps"].push_back(std::move(map));
    }
}
