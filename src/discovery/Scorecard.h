// What speaks for a place being a map, and what against it: features with names. Each is measured,
// and the card of the map's shape gives points for what was measured; the score is their sum. The
// points were fitted on images made for it (docs/discovery.md).
#pragma once

#include "discovery/MapPlace.h"

#include <array>
#include <cstddef>
#include <span>

/// What is looked at.
enum class TFeature {
    // By itself. Those of the load axis, and SmoothByLoad, are of 2-D maps only.
    RpmAxis,   ///< the RPM steps fit into full scale, which bytes like those around seldom do
    RpmPoints, ///< how many points it has
    RpmSteps,  ///< they rise, and do not repeat one step
    RpmSpan,   ///< how much of full scale the axis covers
    RpmEnd,    ///< how far below full scale it ends
    LoadAxis,  ///< as RpmAxis, and so on
    LoadPoints,
    LoadSteps,
    LoadSpan,
    LoadEnd,
    SmoothByRpm,  ///< the values change little from one RPM point to the next
    SmoothByLoad, ///< and from one load point to the next
    Values,       ///< they are those of fuel or of timing
    Variety,      ///< how far they part from each other
    ImageSize,    ///< in large images more places look like maps by chance
    // Among the other places that may be maps.
    RpmHeader,  ///< others have the same RAM location in front of the RPM axis
    LoadHeader, ///< and in front of the load axis
    SharedAxis, ///< another has the same RPM axis, or nearly
    Likeness,   ///< another holds like values: idle or full throttle those of part throttle
    Pointers,   ///< pointers to it stand beside pointers to others
    Neighbours, ///< others lie in front of it or behind it
    Count
};

inline constexpr std::size_t featureCount = static_cast<std::size_t>(TFeature::Count);
inline constexpr std::size_t ownFeatures = static_cast<std::size_t>(TFeature::RpmHeader);

/// What was measured, by feature; in units of each feature's own.
using TMeasures = std::array<float, featureCount>;

inline float &At(TMeasures &measures, TFeature feature) {
    return measures[static_cast<std::size_t>(feature)];
}

/// Points by feature: natural logarithms of odds, above 0 for a map.
using TEvidence = std::array<float, featureCount>;

/// One row of a card: points[i] for what is below edges[i], the last for all above.
struct TScoreRow {
    static constexpr std::size_t bins = 6;
    std::array<float, bins - 1> edges;
    std::array<float, bins> points;

    std::size_t BinOf(float measure) const;
    float PointsOf(float measure) const { return points[BinOf(measure)]; }
};

/// How places of one shape are scored.
struct TScorecard {
    float base; ///< before anything was measured
    std::array<TScoreRow, featureCount> rows;
    /// Of the points that a place has by itself, so much counts once the others are looked at.
    float ownShare;
    float sharedBase;
};

struct TScorecards {
    TScorecard linear;
    TScorecard twoD;

    const TScorecard &Of(TMapShape shape) const { return shape == TMapShape::TwoD ? twoD : linear; }
};

/// Those of the fit.
const TScorecards &FittedCards();

/// The score of a place by itself.
float OwnScore(const TScorecard &card, const TMeasures &measures);
/// All evidence, and its sum with the card's base.
TEvidence EvidenceOf(const TScorecard &card, const TMeasures &measures);
float FullScore(const TScorecard &card, const TMeasures &measures);

/// From the logarithm of odds to a chance from 0 to 1.
double ChanceOf(double score);
