// From the grid's 32-bit colours to what is painted. One way only: the cells keep their numbers.
#pragma once

#include "model/MapViews.h"

#include <QColor>
#include <QPalette>

/// The colour to paint for `color` (0x00BBGGRR). With a top byte of 0x80 it is one of the theme's:
/// window, window text, button face, selection (as a light tint); any other is the window text.
/// Any other top byte is left out.
QColor PaintedColor(TColor color, const QPalette &palette);

/// `share` (0 to 1) of `above` over `below`.
QColor Blended(const QColor &above, const QColor &below, double share);

/// The contrast of two colours as the Web Content Accessibility Guidelines measure it, 1 to 21.
double Contrast(const QColor &one, const QColor &other);

inline constexpr double leastTextContrast = 4.5; ///< of texts
inline constexpr double leastLineContrast = 3;   ///< of what is no text: lines, frames, marks

/// Black or white, whichever reads better on `background`: a contrast of at least 4.58.
QColor ReadableOn(const QColor &background);

/// `color`, or where it is too near to `background` the next tint or shade of it that is not.
QColor Legible(const QColor &color, const QColor &background,
               double leastContrast = leastTextContrast);
