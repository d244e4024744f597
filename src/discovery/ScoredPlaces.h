// The places of an image that look most like maps, and what those tell about each other.
#pragma once

#include "discovery/Scorecard.h"

#include <vector>

struct TScoredPlace {
    TMapPlace place;
    TMapContents contents; ///< never Any
    TMeasures measures;
    float score;

    /// The chance that this is a map, 0 to 1.
    double Chance() const { return ChanceOf(double(score)); }
    /// What it counts among others, 0 to 1: more than its chance, so that some places that are in
    /// doubt one by one can vouch for each other; nothing below a chance of about one in 150, of
    /// which there are too many.
    double Weight() const { return score < -5 ? 0 : ChanceOf(double(score) / 2 + 1.5); }
};

using TScoredPlaces = std::vector<TScoredPlace>;

/// Those with the best scores by themselves, best first; they may overlap. Linear in the image's
/// size.
TScoredPlaces BestPlaces(TRomBytes image, const TScorecards &cards);

inline constexpr std::size_t mostPlaces = 1024; ///< that BestPlaces gives

/// Best first; what scores alike in reading order, so that the order is always the same.
void SortByScore(TScoredPlaces &places);

/// Of places by falling score the first of those that overlap each other, at most `most`.
TScoredPlaces WithoutOverlaps(const TScoredPlaces &places, std::size_t most);
