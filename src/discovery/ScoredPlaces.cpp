#include "discovery/ScoredPlaces.h"

#include "discovery/Candidates.h"
#include "discovery/OwnEvidence.h"

#include <algorithm>
#include <iterator>
#include <map>

namespace {
bool Better(const TScoredPlace &one, const TScoredPlace &other) {
    if (one.score != other.score)
        return one.score > other.score;
    if (one.place.offset != other.place.offset)
        return one.place.offset < other.place.offset;
    return one.place.End() > other.place.End();
}

void KeepBest(TScoredPlaces &places) {
    if (places.size() <= mostPlaces)
        return;
    std::nth_element(places.begin(), places.begin() + mostPlaces, places.end(), Better);
    places.resize(mostPlaces);
}
} // namespace

TScoredPlaces BestPlaces(TRomBytes image, const TScorecards &cards) {
    const TSurroundings surroundings(image);
    TScoredPlaces best;
    std::size_t runEnd = 0; // of the run of equal bytes that the place begins in
    ForEachCandidate(image, [&](const TMapPlace &place) {
        runEnd = std::max(runEnd, std::size_t{place.offset} + 1);
        while (runEnd < image.size() && image[runEnd] == image[runEnd - 1])
            ++runEnd;
        if (runEnd >= place.End() || !AxesFit(image, place))
            return;
        const TMeasures measures = MeasureOwn(image, place, surroundings);
        best.push_back(
            {place, ContentsOf(image, place), measures, OwnScore(cards.Of(place.shape), measures)});
        if (best.size() == 2 * mostPlaces)
            KeepBest(best);
    });
    KeepBest(best);
    SortByScore(best);
    return best;
}

void SortByScore(TScoredPlaces &places) {
    std::sort(places.begin(), places.end(), Better);
}

TScoredPlaces WithoutOverlaps(const TScoredPlaces &places, std::size_t most) {
    TScoredPlaces kept;
    std::map<std::size_t, std::size_t> taken; // ends of what is kept, by their starts
    for (const TScoredPlace &scored : places) {
        if (kept.size() == most)
            break;
        const auto behind = taken.lower_bound(scored.place.End());
        if (behind != taken.begin() && std::prev(behind)->second > scored.place.offset)
            continue;
        kept.push_back(scored);
        taken.emplace(scored.place.offset, scored.place.End());
    }
    return kept;
}
