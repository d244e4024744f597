// What a place tells by itself of being a map: its axes, its values.
#pragma once

#include "discovery/Scorecard.h"
#include "discovery/Surroundings.h"

/// Whether the steps of each axis add up to 256 at most, so that they cover the scale only once.
/// All others are no candidates.
bool AxesFit(TRomBytes image, const TMapPlace &place);

/// The own features; those among others are 0.
TMeasures MeasureOwn(TRomBytes image, const TMapPlace &place, const TSurroundings &surroundings);

/// Fuel or timing, by the nearer of the usual values.
TMapContents ContentsOf(TRomBytes image, const TMapPlace &place);
