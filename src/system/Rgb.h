// Colours as three bytes, and what makes them readable on each other. Where a colour comes from,
// and what paints it, is others' business.
#pragma once

struct TRgb {
    int red; ///< 0 to 255, as the others
    int green;
    int blue;
    bool operator==(const TRgb &) const = default;
};

inline constexpr TRgb rgbBlack{0, 0, 0};
inline constexpr TRgb rgbWhite{255, 255, 255};

/// `share` (0 to 1) of `above` over `below`.
TRgb Blended(const TRgb &above, const TRgb &below, double share);

/// The contrast of two colours as the Web Content Accessibility Guidelines measure it, 1 to 21.
double Contrast(const TRgb &one, const TRgb &other);

inline constexpr double leastTextContrast = 4.5; ///< of texts
inline constexpr double leastLineContrast = 3;   ///< of what is no text: lines, frames, marks

/// Black or white, whichever reads better on `background`: a contrast of at least 4.58.
TRgb ReadableOn(const TRgb &background);

/// `color`, or where it is too near to `background` the next tint or shade of it that is not.
TRgb Legible(const TRgb &color, const TRgb &background, double leastContrast = leastTextContrast);
