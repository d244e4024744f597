// Chooses a place for each of several maps so that all of them together are the likeliest, no two
// overlap, and tells how much likelier that is than any other place of a map.
#pragma once

#include "discovery/MapPlace.h"

#include <functional>
#include <vector>

struct TPlaceOption {
    TMapPlace place;
    double bits; ///< evidence that the map lies there, by itself
};

struct TPlaceChoice {
    std::optional<std::size_t> option; ///< none: the map is left out
    double bits = 0;                   ///< how much all together lose without it
    /// What all together lose when the map lies at each of its options; 0 for the chosen one.
    std::vector<double> losses;
};

/// Evidence in bits from two maps, by their indexes, lying at these options.
using TPairBits = std::function<double(std::size_t map, std::size_t option, std::size_t otherMap,
                                       std::size_t otherOption)>;

/// A choice for each map. Tries them all: for a few maps with a few options each.
std::vector<TPlaceChoice> ChoosePlaces(const std::vector<std::vector<TPlaceOption>> &options,
                                       const TPairBits &pairBits);
