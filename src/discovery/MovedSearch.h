// The search for moved maps up to the choice of a place for each: what resembles them, where
// pointers lead, and which places go together best. What is to be said of the choice is
// MovedMaps.cpp's.
#pragma once

#include "discovery/AlikePlaces.h"
#include "discovery/MovedChoice.h"
#include "discovery/MovedMaps.h"

class TMovedSearch {
public:
    /// The index of a map, in the order of allMaps; and of an option, one of the places here.
    using TIndex = std::size_t;
    static constexpr TIndex mapCount = std::tuple_size_v<decltype(TMovedMaps::maps)>;

    /// All that was looked at for one map.
    struct TLookedFor {
        std::optional<TMapPlace> known;
        TAlikePlaces here;  ///< in the other image: its options
        TAlikePlaces there; ///< in the known image, itself not among them
        std::vector<std::uint32_t> knownPointers;
        std::vector<std::vector<std::uint32_t>> pointers; ///< to each option
    };

    /// `known` and `image` outlive this.
    TMovedSearch(const TKnownImage &known, TRomBytes image);

    const TLookedFor &LookedFor(TIndex map) const { return maps_[map]; }
    const TPlaceChoice &Choice(TIndex map) const { return choices_[map]; }
    const TAlikePlace &Option(TIndex map, TIndex option) const {
        return maps_[map].here.best[option];
    }
    /// The chosen one; only where there is one.
    const TAlikePlace &Chosen(TIndex map) const { return Option(map, *choices_[map].option); }

    /// How far an option lies from the map in the known image.
    std::int64_t MovedBy(TIndex map, TIndex option) const;
    /// How many other maps moved by the same distance to their chosen places.
    std::int64_t MovedTogether(TIndex map, TIndex option) const;
    /// Whether pointers lead to an option as to the map in the known image.
    bool HasPointers(TIndex map, TIndex option) const;
    /// Evidence, in bits, of the pointers and the other maps' chosen places for an option.
    double CompanyBits(TIndex map, TIndex option) const;

private:
    void LookFor(TIndex map);
    void FindPointers();
    void Choose();
    bool CodeIsAlike(TIndex map, TIndex option) const;
    bool PointersAreAlike(TIndex map, TIndex i, TIndex other, TIndex j) const;
    double PairBits(TIndex map, TIndex i, TIndex other, TIndex j) const;
    double TogetherBits(TIndex map, TIndex i, TIndex other, TIndex j) const;

    const TKnownImage &known_;
    TRomBytes image_;
    std::array<TLookedFor, mapCount> maps_;
    std::vector<TPlaceChoice> choices_;
};
