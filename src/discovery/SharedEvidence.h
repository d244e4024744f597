// What the places that may be maps tell about each other.
#pragma once

#include "discovery/ScoredPlaces.h"

/// The places that look most like maps, by all features, best first; they may overlap.
TScoredPlaces ScoredAmongOthers(TRomBytes image, const TScorecards &cards);

inline constexpr std::size_t mostOthers = 200; ///< that a place is looked at among

/// How much the values of a linear map differ from the first run of a part throttle map over RPM,
/// or from the last one: the mean of their differences, in counts. Maps with other numbers of RPM
/// points are compared at like parts of their axes.
float DifferenceFrom(TRomBytes image, const TMapPlace &linear, const TMapPlace &partThrottle,
                     bool fullLoad);
