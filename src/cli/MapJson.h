// A map in JSON: its place, axes and cells.
#pragma once

#include "changes/MapChanges.h"
#include "cli/Json.h"

/// For a map that can be shown, of the image in force. "values" are the numbers of its grid, row by
/// row; "raw" the same cells as they are stored.
TJson MapJson(TMapId id, const TMap &map);
