// What stands above a map and its chart.
#pragma once

#include "model/MapSets.h"
#include "system/Texts.h"

/// In English; "%1" is what the page of its set is called.
constexpr const char *MapHeading(TMapKind kind) {
    if (kind == TMapKind::PT)
        return Translatable("TMapPanel", "Partial Throttle %1 Map");
    return kind == TMapKind::Idle ? Translatable("TMapPanel", "Idle %1 Map")
                                  : Translatable("TMapPanel", "Full Throttle %1 Map");
}
