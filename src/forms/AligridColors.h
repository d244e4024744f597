// From the grid's 32-bit colours to what is painted. One way only: the cells keep their numbers.
#pragma once

#include "model/MapViews.h"
#include "system/Rgb.h"

#include <QColor>
#include <QPalette>

/// The colour to paint for `color` (0x00BBGGRR). With a top byte of 0x80 it is one of the theme's:
/// window, window text, button face, selection (as a light tint); any other is the window text.
/// Any other top byte is left out.
QColor PaintedColor(TColor color, const QPalette &palette);

/// Without how much of it is seen through.
TRgb RgbOf(const QColor &color);
QColor ColorOf(const TRgb &color);

// As those of Rgb.h.
QColor Blended(const QColor &above, const QColor &below, double share);
double Contrast(const QColor &one, const QColor &other);
QColor ReadableOn(const QColor &background);
QColor Legible(const QColor &color, const QColor &background,
               double leastContrast = leastTextContrast);
