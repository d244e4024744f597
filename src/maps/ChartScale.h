// The scale of a chart's value axis: round limits, round steps, texts. No drawing and no toolkit.
#pragma once

#include "model/MapViews.h"

#include <optional>
#include <string>
#include <vector>

/// One series: an area from the floor up to the points, which stand at equal steps.
struct TWall {
    std::vector<TChartValue> points;
    bool stairs = false; ///< drawn in steps instead of slopes
};

struct TChartScale {
    double lowest = 0; ///< at the floor
    double highest = 1;
    double step = 1; ///< 1, 2 or 5 times a power of ten; both limits are multiples of it

    /// Number of ticks, both limits included.
    int TickCount() const;
    double Tick(int index) const;
    /// The tick's value with as many decimals as the step needs, in the decimal separator of all
    /// real numbers; very large and very small ones with an exponent.
    std::string TickText(int index) const;
    /// Height of a value over the floor, 0 to 1; values beyond the limits stop there.
    double Height(double value) const;
};

/// Whether a point stands for a number: it is not the red -255 of an unreadable cell, and finite.
bool IsReadable(const TChartValue &point);

struct TRange {
    double lowest;
    double highest;
};
/// What the readable points reach from and to; none without any.
std::optional<TRange> RangeOf(const std::vector<TWall> &walls);

/// The scale for all readable points, with at most `steps` (at least 1) steps.
///
/// Unreadable points have no say in it: their walls end at the floor, so that one bad cell does not
/// flatten the rest. The floor lies under the lowest value, so that every wall has a height, and is
/// 0 where a map without negative values comes near it or has one value only. Without readable
/// points the scale runs from 0 to 1.
TChartScale ScaleOf(const std::vector<TWall> &walls, int steps);
