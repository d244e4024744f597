// The ranges of a found map's axes, for the list of "Find Maps".
#pragma once

#include "discovery/MapPlace.h"

#include <optional>
#include <string>

/// From the first to the last point of an axis, in rpm or percent.
struct TAxisRange {
    double first = 0;
    double last = 0;

    std::string Text() const; ///< "600-7600"
    /// Rises with the first point, where that is the same with the last.
    double SortKey() const { return first * 100000 + last; }
};

// Both decode the axis in the image in force as map pages do; see model/Axes.h.

TAxisRange RpmRange(const TMapPlace &place);
/// None of a linear map.
std::optional<TAxisRange> LoadRange(const TMapPlace &place);
