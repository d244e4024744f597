// The scale by which cells are coloured by their value: viridis, which steps evenly for the eye,
// also for colour-blind ones and in grey.
#pragma once

#include "model/MapViews.h"

/// The colour of a value: `share` is its place between the least (0) and the largest (1) one.
/// Beyond these as at the ends.
TColor ValueColor(double share);
