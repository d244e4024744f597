#include "discovery/NotebookMaps.h"

#include "filedisplay/ContentsTexts.h"

std::optional<std::size_t> Proposed(const TFoundMaps &found, const TNotebookMap &map) {
    const std::size_t contents = map.contents == TMapContents::Fuel ? 0 : 1;
    return found.six[contents][static_cast<std::size_t>(map.kind)];
}

std::string MapsAt(const TWorkspace &workspace, const TMapPlace &place) {
    std::string names;
    for (const TNotebookMap &map : notebookMaps) {
        const TMapSet &set = map.contents == TMapContents::Fuel
                                 ? static_cast<const TMapSet &>(workspace.fuelMapSet)
                                 : workspace.timingMapSet;
        const std::int32_t location = set.Map(map.kind).GetLocation(); // 0: it has no place
        if (location <= 0 || static_cast<std::uint32_t>(location) != place.offset ||
            !map.Takes(place))
            continue;
        names += (names.empty() ? "" : ", ") + MapName(map.contents, map.kind);
    }
    return names;
}
