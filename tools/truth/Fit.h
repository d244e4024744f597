// Fits the points of the scorecards (src/discovery/ScorecardPoints.cpp) to training images.
#pragma once

#include "discovery/Scorecard.h"

#include <ostream>

/// Writes that file, from so many images and as many files that are none.
void WriteFit(std::ostream &out, std::uint32_t images);
