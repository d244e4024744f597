// The searches of "File Contents", run as a user does who knows nothing of an image: what the
// ranked list is measured against.
#pragma once

#include "truth/Corpus.h"

#include <vector>

/// A map that a search has marked.
struct TMarkedMap {
    TMapPlace place;
    TMapContents contents;
};

/// Those of the four searches for fuel and timing maps, 2-D ones first, on the same marks; with the
/// RAM locations that are given.
std::vector<TMarkedMap> MarkedMaps(TRomBytes image, std::optional<std::uint8_t> rpmLocation,
                                   std::optional<std::uint8_t> loadLocation);
