#include "forms/AligridColors.h"

#include "forms/AligridTypes.h"

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

double Linear(float channel) {
    return std::pow(static_cast<double>(channel), 2.2);
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

QColor ReadableOn(const QColor &background) {
    // The relative luminance of sRGB; at 0.179 the contrasts to black and to white are equal.
    const double luminance = 0.2126 * Linear(background.redF()) +
                             0.7152 * Linear(background.greenF()) +
                             0.0722 * Linear(background.blueF());
    return luminance > 0.179 ? QColor(Qt::black) : QColor(Qt::white);
}
