// The scale by which cells are coloured by their value: viridis, which steps evenly for the eye,
// also for colour-blind ones and in grey.
#pragma once

#include "model/MapViews.h"

#include <limits>

/// The colour of a value: `share` is its place between the least (0) and the largest (1) one.
/// Beyond these as at the ends.
TColor ValueColor(double share);

/// The colours of numbers between the least and the largest of them.
class TValueScale {
public:
    void Add(double value);
    /// Where all are the same, that in the middle.
    TColor ColorOf(double value) const;

private:
    double least_ = std::numeric_limits<double>::infinity();
    double largest_ = -std::numeric_limits<double>::infinity();
};
