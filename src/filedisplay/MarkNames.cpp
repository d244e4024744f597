#include "filedisplay/MarkNames.h"

#include "filedisplay/MapStarts.h"

namespace {
/// The colours of runs, as Shaded makes them: the byte stands in (or carries out of) the channel
/// that `mask` leaves out.
struct TRunColor {
    TColor mask;
    TColor color;
    const char *name;
};

constexpr TRunColor runColors[] = {
    {0xFF00FFFF, linearAxisColor, "Axis Values"},
    {0xFF00FFFF, twoDAxisColor, "Axis Values"},
    {0xFF00FFFF, fuelMapColor, "Map Data, fuel"},
    {0xFFFF00FF, timingMapColor, "Map Data, timing"},
};

const char *StartName(const TMapStart &start) {
    if (start.contents == TMapContents::Fuel)
        return start.shape == TMapShape::TwoD ? "Start of a 2-D fuel map"
                                              : "Start of a 1-D fuel map";
    return start.shape == TMapShape::TwoD ? "Start of a 2-D timing map"
                                          : "Start of a 1-D timing map";
}
} // namespace

const char *MarkName(TColor color) {
    if (const TMapStart *start = MapStartOf(color))
        return StartName(*start);
    switch (color) {
    case unmarkedColor:
        return "";
    case possibleFuelColor:
        return "Possible Fuel Val";
    case possibleTimingColor:
        return "Possible Timing Val";
    case searchedColor:
        return "Searched Val, or a map's header";
    case axisCountColor:
        return "Axis Count";
    default:
        break;
    }
    for (const TRunColor &run : runColors)
        if ((color & run.mask) == run.color)
            return run.name;
    return "Map Data"; // white, whatever its shade
}
