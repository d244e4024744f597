// Pointers of an image: two bytes, high byte first, the upper bits of which may be those of the
// processor's bus.
#pragma once

#include "discovery/ScoredPlaces.h"

#include <vector>

/// For each place: 0 when no two bytes of the image can point to it, 1 when some do, 2 when some do
/// and a pointer to one of `others`, which it does not overlap, stands directly beside them.
std::vector<int> PointersTo(TRomBytes image, const TScoredPlaces &places,
                            const TScoredPlaces &others);
