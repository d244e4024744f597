// A map as a page's grid shows it, in texts; as a table of them.
#pragma once

#include "changes/MapChanges.h"
#include "changes/TextGrid.h"

#include <string>

/// The grid's texts: row 0 and column 0 hold the axes. For a map that can be shown.
TTextGrid GridOf(const TMap &map);

/// "lambda" or "degrees", or "counts" for a map that shows them.
const char *UnitsOf(TMapId id, const TMap &map);

/// A line that names the map, and its grid in columns; `colors`: cells stand on the colours of
/// their values, for a terminal.
std::string MapTable(TMapId id, const TMap &map, bool colors);
