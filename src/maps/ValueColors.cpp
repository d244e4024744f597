#include "maps/ValueColors.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {
/// Every 17th of the 256 colours that Nathaniel Smith, Stefan van der Walt and Eric Firing made for
/// matplotlib and gave to the public domain (CC0).
constexpr std::array<TColor, 16> scale{0x540144, 0x6C1A48, 0x7D2F47, 0x874441, 0x8C5639, 0x8E6831,
                                       0x8E782A, 0x8E8823, 0x8B981F, 0x84A822, 0x79B735, 0x68C554,
                                       0x51D17A, 0x36DBA5, 0x1BE2D2, 0x25E7FD};

/// Between two numbers of 8 bits that stand `shift` bits to the left.
TColor Between(TColor from, TColor to, double share, int shift) {
    const double a = from >> shift & 0xFF;
    const double b = to >> shift & 0xFF;
    return static_cast<TColor>(std::lround(a + (b - a) * share)) << shift;
}
} // namespace

TColor ValueColor(double share) {
    const double place = std::clamp(share, 0.0, 1.0) * (scale.size() - 1);
    const auto step = std::min(static_cast<std::size_t>(place), scale.size() - 2);
    const double rest = place - static_cast<double>(step);
    TColor color = 0;
    for (const int shift : {0, 8, 16})
        color |= Between(scale[step], scale[step + 1], rest, shift);
    return color;
}

void TValueScale::Add(double value) {
    least_ = std::min(least_, value);
    largest_ = std::max(largest_, value);
}

TColor TValueScale::ColorOf(double value) const {
    return ValueColor(largest_ > least_ ? (value - least_) / (largest_ - least_) : 0.5);
}
