#include "forms/AligridColors.h"

#include "forms/AligridTypes.h"

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

int Channel(TColor color, int shift) {
    return static_cast<int>((color >> shift) & 0xFF);
}
} // namespace

QColor PaintedColor(TColor color, const QPalette &palette) {
    if ((color & topByte) == systemColor)
        return ThemeColor(color, palette);
    return {Channel(color, 0), Channel(color, 8), Channel(color, 16)};
}

TRgb RgbOf(const QColor &color) {
    return {color.red(), color.green(), color.blue()};
}

QColor ColorOf(const TRgb &color) {
    return {color.red, color.green, color.blue};
}

QColor Blended(const QColor &above, const QColor &below, double share) {
    return ColorOf(Blended(RgbOf(above), RgbOf(below), share));
}

double Contrast(const QColor &one, const QColor &other) {
    return Contrast(RgbOf(one), RgbOf(other));
}

QColor ReadableOn(const QColor &background) {
    return ColorOf(ReadableOn(RgbOf(background)));
}

QColor Legible(const QColor &color, const QColor &background, double leastContrast) {
    return ColorOf(Legible(RgbOf(color), RgbOf(background), leastContrast));
}
