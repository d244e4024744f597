#include "discovery/SixMaps.h"

#include "discovery/SharedEvidence.h"

#include <algorithm>

namespace {

using TIndexes = std::vector<std::size_t>; // of found maps

constexpr float tie = 0.25F; // counts; a difference that is no larger says nothing

/// The likely maps of these contents and this shape, best first.
TIndexes LikelyMaps(const TFoundMaps &found, TMapContents contents, TMapShape shape) {
    TIndexes indexes;
    for (std::size_t i = 0; i < found.likely; ++i)
        if (found.maps[i].contents == contents && found.maps[i].place.shape == shape)
            indexes.push_back(i);
    return indexes;
}

/// How a linear map differs from both ends of a part throttle map.
struct TEnds {
    float idle;
    float full;

    TEnds(TRomBytes image, const TMapPlace &linear, const TMapPlace &partThrottle)
        : idle(DifferenceFrom(image, linear, partThrottle, false)),
          full(DifferenceFrom(image, linear, partThrottle, true)) {}
    float Nearer() const { return std::min(idle, full); }
};

/// By the part throttle map that it resembles most.
TMapKind KindOf(TRomBytes image, const TFoundMaps &found, const TMapPlace &linear,
                const TIndexes &partThrottle) {
    std::optional<TEnds> nearest;
    for (const std::size_t i : partThrottle) {
        const TEnds ends(image, linear, found.maps[i].place);
        if (!nearest || ends.Nearer() < nearest->Nearer())
            nearest = ends;
    }
    return nearest && nearest->full < nearest->idle ? TMapKind::WOT : TMapKind::Idle;
}

/// How badly these two are the idle and the full throttle map of a part throttle map, if there is
/// one.
float Misfit(TRomBytes image, const TMapPlace &idle, const TMapPlace &full,
             const TMapPlace *partThrottle) {
    const float order = idle.offset < full.offset ? 0 : tie;
    if (!partThrottle)
        return order;
    return DifferenceFrom(image, idle, *partThrottle, false) +
           DifferenceFrom(image, full, *partThrottle, true) + order;
}

/// Names the idle and the full throttle map of a set that has its part throttle map, if any.
void ChoosePair(TRomBytes image, const TFoundMaps &found, const TIndexes &linear,
                TSix::value_type &set) {
    const TMapPlace *partThrottle = set[0] ? &found.maps[*set[0]].place : nullptr;
    std::optional<float> least;
    for (const std::size_t idle : linear)
        for (const std::size_t full : linear) {
            if (idle == full)
                continue;
            const float misfit =
                Misfit(image, found.maps[idle].place, found.maps[full].place, partThrottle);
            if (least && misfit >= *least)
                continue;
            least = misfit;
            set[1] = idle;
            set[2] = full;
        }
}

TSix::value_type ChooseSet(TRomBytes image, TFoundMaps &found, TMapContents contents) {
    const TIndexes partThrottle = LikelyMaps(found, contents, TMapShape::TwoD);
    const TIndexes linear = LikelyMaps(found, contents, TMapShape::Linear);
    TSix::value_type set;
    if (!partThrottle.empty())
        set[0] = partThrottle.front();
    ChoosePair(image, found, linear, set);
    if (linear.size() == 1)
        set[static_cast<std::size_t>(found.maps[linear.front()].kind)] = linear.front();
    for (const TMapKind kind : {TMapKind::Idle, TMapKind::WOT})
        if (const auto map = set[static_cast<std::size_t>(kind)])
            found.maps[*map].kind = kind;
    return set;
}

} // namespace

void TellKinds(TRomBytes image, TFoundMaps &found) {
    for (const TMapContents contents : {TMapContents::Fuel, TMapContents::Timing}) {
        const TIndexes partThrottle = LikelyMaps(found, contents, TMapShape::TwoD);
        for (TFoundMap &map : found.maps)
            if (map.contents == contents)
                map.kind =
                    map.place.Is2D() ? TMapKind::PT : KindOf(image, found, map.place, partThrottle);
        found.six[static_cast<std::size_t>(contents)] = ChooseSet(image, found, contents);
    }
}
