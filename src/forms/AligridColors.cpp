#include "forms/AligridColors.h"

#include "forms/AligridTypes.h"

#include <algorithm>
#include <array>
#include <cmath>

#include <QtGlobal>

namespace {
constexpr TColor topByte = 0xFF000000;
constexpr TColor systemColor = 0x80000000;

QColor ThemeColor(TColor color, const QPalette &palette) {
    switch (color) {
    case clWindow:
        return palette.color(QPalette::Base);
    case clBtnFace:
        return palette.color(QPalette::Button);
    case clHighlight:
        // The active one also in windows without the focus, where some themes have plain grey.
        return Blended(palette.color(QPalette::Active, QPalette::Highlight),
                       palette.color(QPalette::Base), 0.25);
    default:
        return palette.color(QPalette::Text);
    }
}

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

double Luminance(const QColor &color) {
    return 0.2126 * Light(color.red()) + 0.7152 * Light(color.green()) +
           0.0722 * Light(color.blue());
}

int Channel(TColor color, int shift) {
    return static_cast<int>((color >> shift) & 0xFF);
}
} // namespace

QColor PaintedColor(TColor color, const QPalette &palette) {
    if ((color & topByte) == systemColor)
        return ThemeColor(color, palette);
    return {Channel(color, 0), Channel(color, 8), Channel(color, 16)};
}

QColor Blended(const QColor &above, const QColor &below, double share) {
    const auto mix = [share](int a, int b) { return qRound(a * share + b * (1 - share)); };
    return {mix(above.red(), below.red()), mix(above.green(), below.green()),
            mix(above.blue(), below.blue())};
}

double Contrast(const QColor &one, const QColor &other) {
    const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor ReadableOn(const QColor &background) {
    const QColor black(Qt::black);
    const QColor white(Qt::white);
    return Contrast(black, background) >= Contrast(white, background) ? black : white;
}

QColor Legible(const QColor &color, const QColor &background, double leastContrast) {
    constexpr int steps = 32;
    QColor legible = color;
    for (int step = 1; step <= steps && Contrast(legible, background) < leastContrast; ++step)
        legible = Blended(ReadableOn(background), color, double(step) / steps);
    return legible;
}
