#include "cli/MapEdits.h"

#include <algorithm>

TMapEdit &TMapEdits::Of(TMapId map) {
    const auto known = std::find_if(edits_.begin(), edits_.end(),
                                    [&](const TOneMap &each) { return each.map == map; });
    if (known != edits_.end())
        return *known->edit;
    TMap &edited = MapOf(maps_, map);
    NeedMap(edited, map, image_);
    edits_.push_back({map, std::make_unique<TMapEdit>(map, edited, notes_)});
    return *edits_.back().edit;
}

void TMapEdits::Commit() {
    for (const TOneMap &each : edits_)
        each.edit->Commit();
}
