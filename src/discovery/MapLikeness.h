// How much a place in one image resembles a map in another image of the same family: what is the
// same of the axes, the values and the bytes around, and how much evidence that is.
#pragma once

#include "discovery/MapPlace.h"

/// By what the values of the one map become those of the other, but for small differences.
enum class TBodyFit { Same, Shifted, Scaled };

struct TMapLikeness {
    int steps = 0; ///< of both axes
    int equalSteps = 0;
    int headers = 0; ///< 1 or 2: the first byte of each axis
    int equalHeaders = 0;
    int cells = 0;
    int equalCells = 0;
    TBodyFit fit = TBodyFit::Same;
    double bodyCost = 0; ///< bits that a value's difference takes: 0 for equal ones, 8 at most
    int around = 0;      ///< bytes in front and behind that are the same and tell something

    /// Evidence in bits: above 0 speaks for the same map.
    double axisBits = 0;
    double aroundBits = 0;
    double bits = 0; ///< all of it together
};

/// Both places have the same shape and counts, and lie in their images.
TMapLikeness MapLikeness(TRomBytes image, const TMapPlace &map, TRomBytes otherImage,
                         const TMapPlace &other);

/// Whether the axes are alike enough for the two to be the same map; cheap where they are not.
bool AxesAreAlike(TRomBytes image, const TMapPlace &map, TRomBytes otherImage,
                  const TMapPlace &other);
