// Where an image has a map that resembles a map of another image, or of itself: by counts and axes
// first, which few places share, then by all of it.
#pragma once

#include "discovery/MapLikeness.h"

#include <vector>

struct TAlikePlace {
    TMapPlace place;
    TMapLikeness likeness;
};

struct TAlikePlaces {
    std::vector<TAlikePlace> best; ///< the best ones first
    std::size_t ofForm = 0;        ///< places with the same shape and counts
    std::size_t alike = 0;         ///< of these, whose axes are alike
    bool tooMany = false;          ///< so many that the search was given up
};

inline constexpr std::size_t mostAlikePlaces = 12; ///< in `best`
inline constexpr std::size_t tooManyAlikePlaces = 500;

/// Linear in the size of the searched image, whatever its bytes.
TAlikePlaces AlikePlaces(TRomBytes image, const TMapPlace &map, TRomBytes searched);
