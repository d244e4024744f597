#include "discovery/SharedEvidence.h"

#include "discovery/HeaderVote.h"
#include "discovery/Pointers.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double likely = 0.3; // others of less weight say nothing

/// Mean difference of the RPM steps, in counts; 100 for axes of other lengths.
float AxisDifference(TRomBytes image, const TMapPlace &one, const TMapPlace &other) {
    if (one.rpmPoints != other.rpmPoints)
        return 100;
    int differences = 0;
    for (std::size_t i = 0; i < one.rpmPoints; ++i)
        differences += std::abs(int(image[one.RpmSteps() + i]) - int(image[other.RpmSteps() + i]));
    return static_cast<float>(differences) / static_cast<float>(one.rpmPoints);
}

/// Of a linear and a part throttle map of like contents; 100 for all others.
float ValueDifference(TRomBytes image, const TScoredPlace &one, const TScoredPlace &other) {
    if (one.contents != other.contents || one.place.Is2D() == other.place.Is2D())
        return 100;
    const TMapPlace &linear = one.place.Is2D() ? other.place : one.place;
    const TMapPlace &partThrottle = one.place.Is2D() ? one.place : other.place;
    return std::min(DifferenceFrom(image, linear, partThrottle, false),
                    DifferenceFrom(image, linear, partThrottle, true));
}

/// 64 bytes between two maps are still a neighbourhood.
bool IsNeighbour(const TMapPlace &one, const TMapPlace &other) {
    constexpr std::size_t farthest = 64;
    return one.End() <= other.offset ? other.offset - one.End() <= farthest
                                     : one.offset - other.End() <= farthest;
}

class TOthers {
public:
    TOthers(TRomBytes image, TScoredPlaces others)
        : image_(image),
          others_(std::move(others)),
          rpm_(image, others_, false),
          load_(image, others_, true) {
        for (const TScoredPlace &other : others_)
            if (other.Weight() >= likely)
                likely_.push_back(other);
    }

    const TScoredPlaces &Likely() const { return likely_; }

    void Measure(TScoredPlace &scored) const {
        float axis = 100;
        float values = 100;
        float neighbours = 0;
        for (const TScoredPlace &other : likely_) {
            if (Overlap(scored.place, other.place))
                continue;
            axis = std::min(axis, AxisDifference(image_, scored.place, other.place));
            values = std::min(values, ValueDifference(image_, scored, other));
            neighbours += IsNeighbour(scored.place, other.place) ? 1.0F : 0.0F;
        }
        At(scored.measures, TFeature::RpmHeader) = rpm_.Support(scored);
        At(scored.measures, TFeature::LoadHeader) = load_.Support(scored);
        At(scored.measures, TFeature::SharedAxis) = axis;
        At(scored.measures, TFeature::Likeness) = values;
        At(scored.measures, TFeature::Neighbours) = neighbours;
    }

private:
    TRomBytes image_;
    TScoredPlaces others_;
    THeaderVote rpm_;
    THeaderVote load_;
    TScoredPlaces likely_;
};

/// Measures the features among others and scores the places anew by all of them; best first.
void LookAtOthers(TRomBytes image, TScoredPlaces &places, const TScorecards &cards) {
    const TOthers others(image, WithoutOverlaps(places, mostOthers));
    const std::vector<int> pointers = PointersTo(image, places, others.Likely());
    for (std::size_t i = 0; i < places.size(); ++i) {
        TScoredPlace &scored = places[i];
        others.Measure(scored);
        At(scored.measures, TFeature::Pointers) = static_cast<float>(pointers[i]);
        scored.score = FullScore(cards.Of(scored.place.shape), scored.measures);
    }
    SortByScore(places);
}

} // namespace

float DifferenceFrom(TRomBytes image, const TMapPlace &linear, const TMapPlace &partThrottle,
                     bool fullLoad) {
    const std::size_t run = fullLoad ? partThrottle.loadPoints - std::size_t{1} : 0;
    int differences = 0;
    for (std::size_t i = 0; i < linear.rpmPoints; ++i) {
        const std::size_t column =
            i * (partThrottle.rpmPoints - std::size_t{1}) / (linear.rpmPoints - std::size_t{1});
        const std::size_t cell = partThrottle.Body() + column * partThrottle.loadPoints + run;
        differences += std::abs(int(image[linear.Body() + i]) - int(image[cell]));
    }
    return static_cast<float>(differences) / static_cast<float>(linear.rpmPoints);
}

TScoredPlaces ScoredAmongOthers(TRomBytes image, const TScorecards &cards) {
    TScoredPlaces places = BestPlaces(image, cards);
    for (int round = 0; round < 2; ++round) // what is likely among the others changes with it
        LookAtOthers(image, places, cards);
    return places;
}
