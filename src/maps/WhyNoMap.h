// Why a map is not to be seen: said in its place on the pages, so that none of them is just empty.
#pragma once

#include "model/MapTypes.h"

#include <string>

/// Whether the map has a place, directly or through a pointer.
bool IsPlaced(const TMap &map);

/// The line that stands in place of the map; empty for one that is shown.
///
/// A map with too many points is hidden, one without any (or without a place) has no cells. One
/// that was placed once and has been given the offset 0 since still shows its old cells.
std::string WhyNotShown(const TMap &map);
