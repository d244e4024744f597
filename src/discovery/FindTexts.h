// What "Find Maps" says of a map that was found.
#pragma once

#include "discovery/FoundMaps.h"

#include <string>
#include <vector>

/// "Fuel, part throttle", "Timing, idle" and so on.
std::string KindText(const TFoundMap &map);

/// "97 %"; never 0 or 100.
std::string ChanceText(const TFoundMap &map);

/// "16 x 12" (RPM by load points), of a linear map "16".
std::string ShapeText(const TMapPlace &place);

struct TReason {
    std::string text;
    float points; ///< above 0 speaks for a map
};

/// What speaks for the map and against it, the strongest first; what says little is left out.
std::vector<TReason> Reasons(const TFoundMap &map);

/// "RPM in RAM cell $4A: 6 of 6 likely maps", or that it cannot be told.
std::string RpmLocationText(const TFoundMaps &found);
std::string LoadLocationText(const TFoundMaps &found);
