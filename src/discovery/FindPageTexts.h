// What the page "Find Maps" says, in the user's language. What is said of a single map:
// FindTexts.h.
#pragma once

#include "discovery/FoundMaps.h"
#include "discovery/NotebookMaps.h"
#include "filedisplay/SearchParameters.h"

#include <string>
#include <vector>

/// How many likely maps were found in an image of `size` bytes.
std::string LikelyText(const TFoundMaps &found, std::size_t size);

/// As LikelyText, and how many others; for no image, that none is loaded.
std::string FoundText(const TFoundMaps &found, std::size_t size);

/// The RAM locations that most maps agree on; empty when no map is likely.
std::string LocationsText(const TFoundMaps &found);

/// What speaks for a found map, and what against it.
std::vector<std::string> ReasonTexts(const TFoundMap &map);

/// A found map and what speaks for it and against it, a line each.
std::string DetailsText(const TFoundMap &map);

/// What has become of "Give All Six", by what was not there to be given.
std::string GivenText(const std::vector<TNotebookMap> &missing);

/// Which RAM locations the searches look for now.
std::string UsedText(const TSearchParameters &parameters);
