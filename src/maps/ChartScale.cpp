#include "maps/ChartScale.h"

#include "model/Numbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace {
/// Far beyond any map, and far enough from the end of the numbers to be reckoned with.
constexpr double largestValue = 1e200;
/// What is smaller counts as nothing: its steps could not be told apart.
constexpr double smallestValue = 1e-200;
/// Of the range, left free between the floor and the lowest value.
constexpr double footShare = 0.04;
/// Where a range is smaller than this part of its values, these count as one value.
constexpr double smallestShare = 1e-9;

/// The range that the axis has to show: with a foot under the lowest value, or from 0.
TRange Drawn(TRange range) {
    range.lowest = std::clamp(range.lowest, -largestValue, largestValue);
    range.highest = std::clamp(range.highest, -largestValue, largestValue);
    const double size = range.highest - range.lowest;
    const double largest = std::max(std::abs(range.lowest), std::abs(range.highest));
    if (largest < smallestValue)
        return {0, 1};
    if (size <= largest * smallestShare)
        return {std::min(range.lowest, 0.0), std::max(range.highest, 0.0)};
    const double foot = range.lowest - size * footShare;
    return {range.lowest >= 0 && foot < size / 4 ? 0.0 : foot, range.highest};
}

/// The smallest of 1, 2, 5 times a power of ten that is at least `size`.
double RoundStep(double size) {
    const double power = std::pow(10, std::floor(std::log10(size)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (factor * power >= size * (1 - smallestShare))
            return factor * power;
    return 10 * power;
}
} // namespace

bool IsReadable(const TChartValue &point) {
    return std::isfinite(point.value) && !(point.value == unreadableValue && point.color == clRed);
}

std::optional<TRange> RangeOf(const std::vector<TWall> &walls) {
    std::optional<TRange> range;
    for (const TWall &wall : walls)
        for (const TChartValue &point : wall.points)
            if (IsReadable(point))
                range = {std::min(range ? range->lowest : point.value, point.value),
                         std::max(range ? range->highest : point.value, point.value)};
    return range;
}

int TChartScale::TickCount() const {
    return static_cast<int>(std::lround((highest - lowest) / step)) + 1;
}

double TChartScale::Tick(int index) const {
    return (std::round(lowest / step) + index) * step;
}

std::string TChartScale::TickText(int index) const {
    const double value = Tick(index);
    const int decimals = std::max(0, -static_cast<int>(std::floor(std::log10(step) + 0.01)));
    if (std::max(std::abs(lowest), std::abs(highest)) < 1e7 && decimals <= 6) {
        std::string picture = "0";
        if (decimals > 0)
            picture += "." + std::string(static_cast<std::size_t>(decimals), '0');
        return FormatReal(picture, value);
    }
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.3g", value);
    return text.data();
}

double TChartScale::Height(double value) const {
    if (!(value > lowest)) // what is no number at all as well
        return 0;
    return value >= highest ? 1 : (value - lowest) / (highest - lowest);
}

TChartScale ScaleOf(const std::vector<TWall> &walls, int steps) {
    const TRange range = Drawn(RangeOf(walls).value_or(TRange{0, 1}));
    TChartScale scale;
    const double size = range.highest - range.lowest;
    for (double wanted = size / std::max(steps, 1);; wanted = scale.step * 1.5) {
        scale.step = RoundStep(wanted);
        scale.lowest = std::floor(range.lowest / scale.step + smallestShare) * scale.step;
        scale.highest = std::ceil(range.highest / scale.step - smallestShare) * scale.step;
        if (scale.TickCount() - 1 <= std::max(steps, 1) || scale.step > size * 4)
            return scale;
    }
}
