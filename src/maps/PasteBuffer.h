// The checks before a buffered map is pasted. The slots themselves are the workspace's; the pages
// move the maps.
#pragma once

#include "model/MapSets.h"

#include <string>

/// Why `buffered` cannot be pasted into `target`, as the message to show; empty when it can.
///
/// Only the stored point counts are compared, never axis values: a map with other axis values
/// brings its own.
/// @param buffered  the slot's map, or none when the slot is empty
/// @param setName   "Fuel" or "Timing" in the user's language
std::string WhyNoPaste(const TMap *buffered, const TMap &target, const std::string &setName,
                       TMapKind kind);
