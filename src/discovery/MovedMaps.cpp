#include "discovery/MovedMaps.h"

#include "discovery/AlikePlaces.h"
#include "discovery/MapPointers.h"
#include "discovery/MovedChoice.h"
#include "discovery/MovedLimiter.h"

#include <algorithm>
#include <cstdlib>

namespace {
// Evidence in bits, as in MapLikeness.cpp.
constexpr double togetherBits = 8;       ///< two maps moved by the same distance
constexpr double orderBits = 0.25;       ///< they lie in the same order
constexpr double pointersBits = 8;       ///< pointers to them have the same distance
constexpr double codeBits = 8;           ///< a pointer has the same bytes around it
constexpr double leastBits = 25;         ///< less resembles too little to be sure
constexpr double leastMargin = 10;       ///< over other places, or it is not sure
constexpr double leastAxis = 0.7;        ///< bits of a step, of 2
constexpr double leastStrangeAxis = 1.8; ///< where all RAM locations are others
constexpr double mostBodyCost = 3.2;
constexpr std::size_t mostOptions = 5; ///< for each map

using TIndex = std::size_t;
constexpr TIndex mapCount = std::tuple_size_v<decltype(TMovedMaps::maps)>;
using TPointers = std::vector<std::uint32_t>;

TMapShape ShapeOf(TMapId map) {
    return map.kind == TMapKind::PT ? TMapShape::TwoD : TMapShape::Linear;
}

std::int64_t Distance(const TMapPlace &from, const TMapPlace &to) {
    return std::int64_t{to.offset} - from.offset;
}

/// All that is looked at for one map.
struct TLookedFor {
    std::optional<TMapPlace> known;
    TAlikePlaces here;  ///< in the other image
    TAlikePlaces there; ///< in the known image, itself not among them
    TPointers knownPointers;
    std::vector<TPointers> pointers; ///< to each of here.best
};

class TMovedSearch {
public:
    TMovedSearch(const TKnownImage &known, TRomBytes image) : known_(known), image_(image) {
        for (TIndex map = 0; map < mapCount; ++map)
            LookFor(map);
        FindPointers();
        Choose();
    }

    TMovedMaps Result() const {
        TMovedMaps moved;
        for (TIndex map = 0; map < mapCount; ++map)
            moved.maps[map] = Judged(map);
        moved.revLimiter = FindMovedLimiter(known_.bytes, known_.revLimiter, image_);
        return moved;
    }

private:
    void LookFor(TIndex map) {
        TLookedFor &looked = maps_[map];
        if (!known_.maps[map])
            return;
        looked.known = PlaceAt(known_.bytes, *known_.maps[map], ShapeOf(allMaps[map]));
        if (!looked.known)
            return;
        looked.here = AlikePlaces(known_.bytes, *looked.known, image_);
        if (looked.here.tooMany)
            looked.here.best.clear();
        looked.here.best.resize(std::min(looked.here.best.size(), mostOptions));
        looked.there = AlikePlaces(known_.bytes, *looked.known, known_.bytes);
        std::erase_if(looked.there.best, [&](const TAlikePlace &place) {
            return Overlap(place.place, *looked.known);
        });
    }

    void FindPointers() {
        std::vector<std::uint32_t> wanted;
        std::vector<std::uint32_t> wantedThere;
        for (const TLookedFor &looked : maps_) {
            wantedThere.push_back(looked.known ? looked.known->offset : 0);
            for (const TAlikePlace &place : looked.here.best)
                wanted.push_back(place.place.offset);
        }
        std::vector<TPointers> found = PointersTo(image_, wanted);
        std::vector<TPointers> foundThere = PointersTo(known_.bytes, wantedThere);
        auto next = found.begin();
        for (TIndex map = 0; map < mapCount; ++map) {
            maps_[map].knownPointers = std::move(foundThere[map]);
            for (TIndex i = 0; i < maps_[map].here.best.size(); ++i)
                maps_[map].pointers.push_back(std::move(*next++));
        }
    }

    void Choose() {
        std::vector<std::vector<TPlaceOption>> options(mapCount);
        for (TIndex map = 0; map < mapCount; ++map)
            for (TIndex i = 0; i < maps_[map].here.best.size(); ++i) {
                const TAlikePlace &place = maps_[map].here.best[i];
                options[map].push_back(
                    {place.place, place.likeness.bits + (CodeIsAlike(map, i) ? codeBits : 0)});
            }
        choices_ = ChoosePlaces(options, [this](TIndex map, TIndex i, TIndex other, TIndex j) {
            return PairBits(map, i, other, j);
        });
    }

    bool CodeIsAlike(TIndex map, TIndex option) const {
        return PointersLieAlike(known_.bytes, maps_[map].knownPointers, image_,
                                maps_[map].pointers[option]);
    }
    bool PointersAreAlike(TIndex map, TIndex i, TIndex other, TIndex j) const {
        return PointersStandAlike(maps_[map].knownPointers, maps_[other].knownPointers,
                                  maps_[map].pointers[i], maps_[other].pointers[j]);
    }
    std::int64_t MovedBy(TIndex map, TIndex option) const {
        return Distance(*maps_[map].known, maps_[map].here.best[option].place);
    }

    double PairBits(TIndex map, TIndex i, TIndex other, TIndex j) const {
        const std::int64_t before = Distance(*maps_[map].known, *maps_[other].known);
        const bool sameOrder = (before > 0) == (before + MovedBy(other, j) - MovedBy(map, i) > 0);
        return TogetherBits(map, i, other, j) + (sameOrder ? orderBits : -orderBits);
    }
    double TogetherBits(TIndex map, TIndex i, TIndex other, TIndex j) const {
        return (PointersAreAlike(map, i, other, j) ? pointersBits : 0) +
               (MovedBy(map, i) == MovedBy(other, j) ? togetherBits : 0);
    }

    // What was found -------------------------------------------------------------------------

    TMovedMap Judged(TIndex map) const {
        const TLookedFor &looked = maps_[map];
        TMovedMap moved;
        moved.known = looked.known;
        if (!choices_[map].option) {
            moved.reasons = {WhyNot(map)};
            return moved;
        }
        const TIndex option = *choices_[map].option;
        moved.place = looked.here.best[option].place;
        moved.reasons = Against(map, option);
        moved.sureness = moved.reasons.empty() ? TSureness::Sure : TSureness::Unsure;
        const std::vector<TMovedReason> reasons = For(map, option);
        moved.reasons.insert(moved.reasons.end(), reasons.begin(), reasons.end());
        return moved;
    }

    TMovedReason WhyNot(TIndex map) const {
        const TLookedFor &looked = maps_[map];
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
        const TMapLikeness &likeness = maps_[map].here.best[option].likeness;
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
        if (maps_[map].here.best[option].likeness.bits < leastBits)
            reasons.push_back({TMovedFact::LittleToTell});
        if (const std::optional<TIndex> rival = Rival(map, option))
            reasons.push_back({TMovedFact::Rival, maps_[map].here.best[*rival].place.offset});
        if (const std::optional<TMapPlace> rival = KnownRival(map, option))
            reasons.push_back({TMovedFact::KnownRival, rival->offset});
        return reasons;
    }

    /// Another place that could be the map: all together lose little by it. Where nothing else of
    /// either image claims it, equal values do not tell it from the chosen one, for it may be the
    /// map with other values beside an old copy; only what is around and points there does.
    std::optional<TIndex> Rival(TIndex map, TIndex option) const {
        for (TIndex i = 0; i < maps_[map].here.best.size(); ++i) {
            if (i == option)
                continue;
            const bool could = Unlike(map, i).empty() && !IsGiven(map, i) && !IsAnothers(map, i);
            if (choices_[map].losses[i] < leastMargin ||
                (could && ContextBits(map, option) < ContextBits(map, i) + leastMargin))
                return i;
        }
        return std::nullopt;
    }

    /// Another map that lies at an option of this one.
    std::optional<TIndex> Taker(TIndex map, TIndex option) const {
        for (TIndex other = 0; other < mapCount; ++other)
            if (other != map && choices_[other].option &&
                Overlap(Chosen(other), maps_[map].here.best[option].place))
                return other;
        return std::nullopt;
    }
    /// Whether that map resembles it clearly more.
    bool IsGiven(TIndex map, TIndex option) const {
        const std::optional<TIndex> taker = Taker(map, option);
        return taker && maps_[*taker].here.best[*choices_[*taker].option].likeness.bits >
                            maps_[map].here.best[option].likeness.bits + leastMargin;
    }
    const TMapPlace &Chosen(TIndex map) const {
        return maps_[map].here.best[*choices_[map].option].place;
    }

    /// Whether something else of the known image resembles an option clearly more than the map.
    bool IsAnothers(TIndex map, TIndex option) const {
        const TAlikePlace &here = maps_[map].here.best[option];
        return std::any_of(maps_[map].there.best.begin(), maps_[map].there.best.end(),
                           [&](const TAlikePlace &there) {
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
        const TAlikePlace &here = maps_[map].here.best[option];
        const double bits = here.likeness.bits + CompanyBits(map, option);
        for (const TAlikePlace &there : maps_[map].there.best)
            if (Bits(there.place, here.place) >
                bits - (LiesElsewhere(there.place) && here.likeness.fit == TBodyFit::Same
                            ? 0
                            : leastMargin))
                return there.place;
        return std::nullopt;
    }

    /// What lies around an option and points to it.
    double ContextBits(TIndex map, TIndex option) const {
        return maps_[map].here.best[option].likeness.aroundBits + CompanyBits(map, option);
    }

    /// What the other maps and the pointers say for the option.
    double CompanyBits(TIndex map, TIndex option) const {
        double bits = CodeIsAlike(map, option) ? codeBits : 0;
        for (TIndex other = 0; other < mapCount; ++other)
            if (other != map && choices_[other].option)
                bits += TogetherBits(map, option, other, *choices_[other].option);
        return bits;
    }

    /// Whether this place of the known image is one of the other maps, which have their places.
    bool LiesElsewhere(const TMapPlace &knownPlace) const {
        for (TIndex other = 0; other < mapCount; ++other)
            if (maps_[other].known == knownPlace && choices_[other].option)
                return true;
        return false;
    }

    /// What speaks for the chosen place.
    std::vector<TMovedReason> For(TIndex map, TIndex option) const {
        const TMapLikeness &likeness = maps_[map].here.best[option].likeness;
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
        if (HasPointers(map, option))
            reasons.push_back({TMovedFact::Pointers});
        const std::int64_t together = MovedTogether(map, option);
        if (together > 0)
            reasons.push_back({TMovedFact::Together, together, MovedBy(map, option)});
        else
            reasons.push_back({TMovedFact::Alone, MovedBy(map, option)});
        return reasons;
    }

    bool HasPointers(TIndex map, TIndex option) const {
        for (TIndex other = 0; other < mapCount; ++other)
            if (other != map && choices_[other].option &&
                PointersAreAlike(map, option, other, *choices_[other].option))
                return true;
        return CodeIsAlike(map, option);
    }

    std::int64_t MovedTogether(TIndex map, TIndex option) const {
        std::int64_t count = 0;
        for (TIndex other = 0; other < mapCount; ++other)
            if (other != map && choices_[other].option &&
                MovedBy(other, *choices_[other].option) == MovedBy(map, option))
                ++count;
        return count;
    }

    const TKnownImage &known_;
    TRomBytes image_;
    std::array<TLookedFor, mapCount> maps_;
    std::vector<TPlaceChoice> choices_;
};
} // namespace

TKnownImage KnownImage(const TMappedImage &image) {
    TKnownImage known{image.Bytes(), {}, {}};
    image.InForce([&] { // a map may be behind a pointer
        for (TIndex map = 0; map < mapCount; ++map)
            if (const std::int32_t place = MapOf(image.Maps(), allMaps[map]).GetLocation();
                place > 0)
                known.maps[map] = static_cast<std::uint32_t>(place);
    });
    if (image.Maps().fuelMapSet.HasRevLimiter())
        known.revLimiter = static_cast<std::uint32_t>(image.Maps().fuelMapSet.revLimiter.offset);
    return known;
}

TMovedMaps FindMovedMaps(const TKnownImage &known, TRomBytes image) {
    return TMovedSearch(known, image).Result();
}
