#include "cli/MapNames.h"

#include "cli/WrongUse.h"

#include <algorithm>

namespace {
const char *KindName(TMapKind kind) {
    if (kind == TMapKind::PT)
        return "-pt";
    return kind == TMapKind::Idle ? "-idle" : "-wot";
}
} // namespace

std::string NameOf(TMapId map) {
    return std::string(map.set == TMapSetKind::Fuel ? "fuel" : "timing") + KindName(map.kind);
}

std::optional<TMapId> FindMap(std::string_view name) {
    const auto found = std::find_if(allMaps.begin(), allMaps.end(),
                                    [&](const TMapId &map) { return NameOf(map) == name; });
    return found == allMaps.end() ? std::nullopt : std::optional(*found);
}

TMapId NamedMap(std::string_view name) {
    if (const std::optional<TMapId> map = FindMap(name))
        return *map;
    std::string names;
    for (const TMapId &map : allMaps)
        names += " " + NameOf(map);
    throw EWrongUse("'" + std::string(name) + "' is no map; maps are" + names);
}

std::vector<TMapId> NamedMaps(const std::vector<std::string> &names) {
    if (names.empty())
        return {allMaps.begin(), allMaps.end()};
    std::vector<TMapId> maps(names.size());
    std::transform(names.begin(), names.end(), maps.begin(), NamedMap);
    return maps;
}
