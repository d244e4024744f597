#include "discovery/MovedSearch.h"

#include "discovery/MapPointers.h"

#include <algorithm>

namespace {
// Evidence in bits, as in MapLikeness.cpp.
constexpr double togetherBits = 8;     ///< two maps moved by the same distance
constexpr double orderBits = 0.25;     ///< they lie in the same order
constexpr double pointersBits = 8;     ///< pointers to them have the same distance
constexpr double codeBits = 8;         ///< a pointer has the same bytes around it
constexpr std::size_t mostOptions = 5; ///< for each map

using TPointers = std::vector<std::uint32_t>;

TMapShape ShapeOf(TMapId map) {
    return map.kind == TMapKind::PT ? TMapShape::TwoD : TMapShape::Linear;
}

std::int64_t Distance(const TMapPlace &from, const TMapPlace &to) {
    return std::int64_t{to.offset} - from.offset;
}
} // namespace

TMovedSearch::TMovedSearch(const TKnownImage &known, TRomBytes image)
    : known_(known), image_(image) {
    for (TIndex map = 0; map < mapCount; ++map)
        LookFor(map);
    FindPointers();
    Choose();
}

void TMovedSearch::LookFor(TIndex map) {
    TLookedFor &looked = maps_[map];
    if (!known_.maps[map])
        return;
    looked.known = PlaceAt(known_.bytes, *known_.maps[map], ShapeOf(allMaps[map]));
    if (!looked.known)
        return;
    looked.here = AlikePlaces(known_.bytes, *looked.known, image_);
    looked.there = AlikePlaces(known_.bytes, *looked.known, known_.bytes);
    looked.here.tooMany = looked.here.tooMany || looked.there.tooMany;
    if (looked.here.tooMany)
        looked.here.best.clear();
    looked.here.best.resize(std::min(looked.here.best.size(), mostOptions));
    std::erase_if(looked.there.best,
                  [&](const TAlikePlace &place) { return Overlap(place.place, *looked.known); });
}

void TMovedSearch::FindPointers() {
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

void TMovedSearch::Choose() {
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

bool TMovedSearch::CodeIsAlike(TIndex map, TIndex option) const {
    return PointersLieAlike(known_.bytes, maps_[map].knownPointers, image_,
                            maps_[map].pointers[option]);
}

bool TMovedSearch::PointersAreAlike(TIndex map, TIndex i, TIndex other, TIndex j) const {
    return PointersStandAlike(maps_[map].knownPointers, maps_[other].knownPointers,
                              maps_[map].pointers[i], maps_[other].pointers[j]);
}

std::int64_t TMovedSearch::MovedBy(TIndex map, TIndex option) const {
    return Distance(*maps_[map].known, maps_[map].here.best[option].place);
}

double TMovedSearch::PairBits(TIndex map, TIndex i, TIndex other, TIndex j) const {
    const std::int64_t before = Distance(*maps_[map].known, *maps_[other].known);
    const bool sameOrder = (before > 0) == (before + MovedBy(other, j) - MovedBy(map, i) > 0);
    return TogetherBits(map, i, other, j) + (sameOrder ? orderBits : -orderBits);
}

double TMovedSearch::TogetherBits(TIndex map, TIndex i, TIndex other, TIndex j) const {
    return (PointersAreAlike(map, i, other, j) ? pointersBits : 0) +
           (MovedBy(map, i) == MovedBy(other, j) ? togetherBits : 0);
}

double TMovedSearch::CompanyBits(TIndex map, TIndex option) const {
    double bits = CodeIsAlike(map, option) ? codeBits : 0;
    for (TIndex other = 0; other < mapCount; ++other)
        if (other != map && choices_[other].option)
            bits += TogetherBits(map, option, other, *choices_[other].option);
    return bits;
}

bool TMovedSearch::HasPointers(TIndex map, TIndex option) const {
    for (TIndex other = 0; other < mapCount; ++other)
        if (other != map && choices_[other].option &&
            PointersAreAlike(map, option, other, *choices_[other].option))
            return true;
    return CodeIsAlike(map, option);
}

std::int64_t TMovedSearch::MovedTogether(TIndex map, TIndex option) const {
    std::int64_t count = 0;
    for (TIndex other = 0; other < mapCount; ++other)
        if (other != map && choices_[other].option &&
            MovedBy(other, *choices_[other].option) == MovedBy(map, option))
            ++count;
    return count;
}
