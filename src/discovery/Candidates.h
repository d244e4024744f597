// Every place of an image at which a map of either shape may start, by the written form alone:
// nothing is marked, and places may overlap. At most two for each byte.
#pragma once

#include "discovery/MapPlace.h"

/// Calls `look` with a TMapPlace for each, by rising offset, a linear map before a 2-D one.
template <class TLook>
void ForEachCandidate(TRomBytes image, TLook look) {
    for (std::size_t offset = 0; offset + 1 < image.size(); ++offset) {
        if (!IsPointCount(image[offset + 1]))
            continue;
        for (const TMapShape shape : {TMapShape::Linear, TMapShape::TwoD})
            if (const std::optional<TMapPlace> place = PlaceAt(image, offset, shape))
                look(*place);
    }
}
