// The words for the colours that the searches leave in the contents view, for whoever cannot tell
// them by sight.
#pragma once

#include "model/MapViews.h"

#include <string>

/// In the user's language, what a cell's background colour, shaded or not, means; an empty text for
/// an unmarked cell. The exact colours of MapStarts.h are the start of a map, as they are to "All
/// Highlighted".
std::string MarkName(TColor color);
