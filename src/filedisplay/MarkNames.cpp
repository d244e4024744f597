#include "filedisplay/MarkNames.h"

#include "filedisplay/MapStarts.h"
#include "model/Texts.h"

namespace {
// What Shaded leaves of a run's colour: all but the channel in which (or out of which) the byte is.
constexpr TColor withoutBlue = 0xFF00FFFF;
constexpr TColor withoutGreen = 0xFFFF00FF;

std::string StartName(const TMapStart &start) {
    const bool twoD = start.shape == TMapShape::TwoD;
    if (start.contents == TMapContents::Fuel)
        return twoD ? Translated("MarkNames", "Start of a 2-D fuel map")
                    : Translated("MarkNames", "Start of a 1-D fuel map");
    return twoD ? Translated("MarkNames", "Start of a 2-D timing map")
                : Translated("MarkNames", "Start of a 1-D timing map");
}

std::string RunName(TColor color) {
    const TColor plain = color & withoutBlue;
    if (plain == linearAxisColor || plain == twoDAxisColor)
        return Translated("MarkNames", "Axis Values");
    if (plain == fuelMapColor)
        return Translated("MarkNames", "Map Data, fuel");
    if ((color & withoutGreen) == timingMapColor)
        return Translated("MarkNames", "Map Data, timing");
    return Translated("MarkNames", "Map Data"); // white, whatever its shade
}
} // namespace

std::string MarkName(TColor color) {
    if (const TMapStart *start = MapStartOf(color))
        return StartName(*start);
    switch (color) {
    case unmarkedColor:
        return {};
    case possibleFuelColor:
        return Translated("MarkNames", "Possible Fuel Val");
    case possibleTimingColor:
        return Translated("MarkNames", "Possible Timing Val");
    case searchedColor:
        return Translated("MarkNames", "Searched Val, or a map's header");
    case axisCountColor:
        return Translated("MarkNames", "Axis Count");
    default:
        return RunName(color);
    }
}
