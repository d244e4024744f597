#include "discovery/MovedMaps.h"

#include "discovery/MovedLimiter.h"
#include "discovery/MovedSearch.h"

#include <algorithm>

namespace {
// Evidence in bits, as in MapLikeness.cpp.
constexpr double leastBits = 25;         ///< less resembles too little to be sure
constexpr double leastContext = 40;      ///< of a linear map: a body of few values is easily met
constexpr double leastMargin = 10;       ///< over other places, or it is not sure
constexpr double leastAxis = 0.7;        ///< bits of a step, of 2
constexpr double leastStrangeAxis = 1.8; ///< where all RAM locations are others
constexpr double mostBodyCost = 3.2;

using TIndex = TMovedSearch::TIndex;

/// What is to be said of what a search has chosen.
class TMovedJudge {
public:
    TMovedJudge(const TKnownImage &known, TRomBytes image)
        : known_(known), image_(image), search_(known, image) {}

    TMovedMap Judged(TIndex map) const {
        const TMovedSearch::TLookedFor &looked = search_.LookedFor(map);
        TMovedMap moved;
        moved.known = looked.known;
        if (!search_.Choice(map).option) {
            moved.reasons = {WhyNot(map)};
            return moved;
        }
        const TIndex option = *search_.Choice(map).option;
        moved.place = search_.Option(map, option).place;
        moved.reasons = Against(map, option);
        moved.sureness = moved.reasons.empty() ? TSureness::Sure : TSureness::Unsure;
        const std::vector<TMovedReason> reasons = For(map, option);
        moved.reasons.insert(moved.reasons.end(), reasons.begin(), reasons.end());
        return moved;
    }

private:
    TMovedReason WhyNot(TIndex map) const {
        const TMovedSearch::TLookedFor &looked = search_.LookedFor(map);
        if (!known_.maps[map])
            return {TMovedFact::NotPlaced};
        if (!looked.known)
            return {TMovedFact::NoForm};
        if (looked.here.tooMany)
            return {TMovedFact::TooManyAlike};
        if (looked.here.ofForm == 0)
            return {TMovedFact::NoneOfForm, looked.known->rpmPoints, looked.known->loadPoints};
        if (!looked.here.best.empty() && Taker(map, 0))
            return {TMovedFact::GivenAway, looked.here.best.front().place.offset};
        return {TMovedFact::NoneAlike, static_cast<std::int64_t>(looked.here.ofForm)};
    }

    /// How an option differs from the map by so much that it may be another one.
    std::vector<TMovedReason> Unlike(TIndex map, TIndex option) const {
        std::vector<TMovedReason> reasons;
        const TMapLikeness &likeness = search_.Option(map, option).likeness;
        const double least = likeness.equalHeaders > 0 ? leastAxis : leastStrangeAxis;
        if (likeness.axisBits < least * likeness.steps)
            reasons.push_back({TMovedFact::OtherAxes});
        if (likeness.bodyCost > mostBodyCost)
            reasons.push_back({TMovedFact::OtherValues});
        return reasons;
    }

    /// Why the chosen place is not sure.
    std::vector<TMovedReason> Against(TIndex map, TIndex option) const {
        std::vector<TMovedReason> reasons = Unlike(map, option);
        // Of its own: order and pointers are much the same in images of other families.
        if (search_.Option(map, option).likeness.bits < leastBits ||
            (!search_.Option(map, option).place.Is2D() && ContextBits(map, option) < leastContext))
            reasons.push_back({TMovedFact::LittleToTell});
        if (const std::optional<TIndex> rival = Rival(map, option))
            reasons.push_back({TMovedFact::Rival, search_.Option(map, *rival).place.offset});
        if (const std::optional<TMapPlace> rival = KnownRival(map, option))
            reasons.push_back({TMovedFact::KnownRival, rival->offset});
        return reasons;
    }

    /// Another place that could be the map: all together lose little by it. Where nothing else of
    /// either image claims it, equal values do not tell it from the chosen one, for it may be the
    /// map with other values beside an old copy; only what is around and points there does.
    std::optional<TIndex> Rival(TIndex map, TIndex option) const {
        for (TIndex i = 0; i < search_.LookedFor(map).here.best.size(); ++i) {
            if (i == option)
                continue;
            const bool could = Unlike(map, i).empty() && !IsGiven(map, i) && !IsAnothers(map, i);
            if (search_.Choice(map).losses[i] < leastMargin ||
                (could && ContextBits(map, option) < ContextBits(map, i) + leastMargin))
                return i;
        }
        return std::nullopt;
    }

    /// Another map that lies at an option of this one.
    std::optional<TIndex> Taker(TIndex map, TIndex option) const {
        for (TIndex other = 0; other < TMovedSearch::mapCount; ++other)
            if (other != map && search_.Choice(other).option &&
                Overlap(search_.Chosen(other).place, search_.Option(map, option).place))
                return other;
        return std::nullopt;
    }
    /// Whether that map resembles it clearly more.
    bool IsGiven(TIndex map, TIndex option) const {
        const std::optional<TIndex> taker = Taker(map, option);
        return taker && search_.Chosen(*taker).likeness.bits >
                            search_.Option(map, option).likeness.bits + leastMargin;
    }

    /// Whether something else of the known image resembles an option clearly more than the map.
    bool IsAnothers(TIndex map, TIndex option) const {
        const TAlikePlace &here = search_.Option(map, option);
        return std::any_of(search_.LookedFor(map).there.best.begin(),
                           search_.LookedFor(map).there.best.end(), [&](const TAlikePlace &there) {
                               return Bits(there.place, here.place) >
                                      here.likeness.bits + leastMargin;
                           });
    }
    double Bits(const TMapPlace &knownPlace, const TMapPlace &place) const {
        return MapLikeness(known_.bytes, knownPlace, image_, place).bits;
    }

    /// A place of the known image that resembles the option about as much as the map does; one of
    /// the maps that have their places, more.
    std::optional<TMapPlace> KnownRival(TIndex map, TIndex option) const {
        const TAlikePlace &here = search_.Option(map, option);
        const double bits = here.likeness.bits + search_.CompanyBits(map, option);
        for (const TAlikePlace &there : search_.LookedFor(map).there.best)
            if (Bits(there.place, here.place) >
                bits - (LiesElsewhere(there.place) && here.likeness.fit == TBodyFit::Same
                            ? 0
                            : leastMargin))
                return there.place;
        return std::nullopt;
    }

    /// What lies around an option and points to it.
    double ContextBits(TIndex map, TIndex option) const {
        return search_.Option(map, option).likeness.aroundBits + search_.CompanyBits(map, option);
    }

    /// Whether this place of the known image is one of the other maps, which have their places.
    bool LiesElsewhere(const TMapPlace &knownPlace) const {
        for (TIndex other = 0; other < TMovedSearch::mapCount; ++other)
            if (search_.LookedFor(other).known == knownPlace && search_.Choice(other).option)
                return true;
        return false;
    }

    /// What speaks for the chosen place.
    std::vector<TMovedReason> For(TIndex map, TIndex option) const {
        const TMapLikeness &likeness = search_.Option(map, option).likeness;
        std::vector<TMovedReason> reasons{
            {TMovedFact::Steps, likeness.equalSteps, likeness.steps},
            {TMovedFact::Headers, likeness.equalHeaders, likeness.headers},
            {TMovedFact::Values, likeness.equalCells, likeness.cells}};
        if (likeness.fit == TBodyFit::Shifted)
            reasons.push_back({TMovedFact::Shifted});
        if (likeness.fit == TBodyFit::Scaled)
            reasons.push_back({TMovedFact::Scaled});
        if (likeness.around > 0)
            reasons.push_back({TMovedFact::Around, likeness.around});
        if (search_.HasPointers(map, option))
            reasons.push_back({TMovedFact::Pointers});
        const std::int64_t together = search_.MovedTogether(map, option);
        if (together > 0)
            reasons.push_back({TMovedFact::Together, together, search_.MovedBy(map, option)});
        else
            reasons.push_back({TMovedFact::Alone, search_.MovedBy(map, option)});
        return reasons;
    }

    const TKnownImage &known_;
    TRomBytes image_;
    TMovedSearch search_;
};
} // namespace

TKnownImage KnownImage(const TMappedImage &image) {
    TKnownImage known{image.Bytes(), {}, {}};
    image.InForce([&] { // a map may be behind a pointer
        for (TIndex map = 0; map < TMovedSearch::mapCount; ++map)
            if (const std::int32_t place = MapOf(image.Maps(), allMaps[map]).GetLocation();
                place > 0)
                known.maps[map] = static_cast<std::uint32_t>(place);
    });
    if (image.Maps().fuelMapSet.HasRevLimiter())
        known.revLimiter = static_cast<std::uint32_t>(image.Maps().fuelMapSet.revLimiter.offset);
    return known;
}

TMovedMaps FindMovedMaps(const TKnownImage &known, TRomBytes image) {
    const TMovedJudge judge(known, image);
    TMovedMaps moved;
    for (TIndex map = 0; map < moved.maps.size(); ++map)
        moved.maps[map] = judge.Judged(map);
    moved.revLimiter = FindMovedLimiter(known.bytes, known.revLimiter, image);
    return moved;
}
