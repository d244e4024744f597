// What the chart of a map shows, as on its page in the window before anything is edited there.
#pragma once

#include "changes/MapChanges.h"
#include "maps/ChartLayout.h"

/// For a map that can be shown, in the first view.
TChartContents MapChartContents(TMapId id, const TMap &map);
