#include "system/Rgb.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace {
/// Light of an 8-bit sRGB channel, 0 to 1.
double Light(int channel) {
    static const std::array<double, 256> lights = [] {
        std::array<double, 256> table{};
        for (std::size_t i = 0; i < table.size(); ++i) {
            const double share = static_cast<double>(i) / 255;
            table[i] = share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
        }
        return table;
    }();
    return lights[static_cast<std::size_t>(channel)];
}

double Luminance(const TRgb &color) {
    return 0.2126 * Light(color.red) + 0.7152 * Light(color.green) + 0.0722 * Light(color.blue);
}
} // namespace

TRgb Blended(const TRgb &above, const TRgb &below, double share) {
    const auto mix = [share](int a, int b) {
        return static_cast<int>(std::lround(a * share + b * (1 - share)));
    };
    return {mix(above.red, below.red), mix(above.green, below.green), mix(above.blue, below.blue)};
}

double Contrast(const TRgb &one, const TRgb &other) {
    const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

TRgb ReadableOn(const TRgb &background) {
    return Contrast(rgbBlack, background) >= Contrast(rgbWhite, background) ? rgbBlack : rgbWhite;
}

TRgb Legible(const TRgb &color, const TRgb &background, double leastContrast) {
    constexpr int steps = 32;
    TRgb legible = color;
    for (int step = 1; step <= steps && Contrast(legible, background) < leastContrast; ++step)
        legible = Blended(ReadableOn(background), color, static_cast<double>(step) / steps);
    return legible;
}
