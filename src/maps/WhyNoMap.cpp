#include "maps/WhyNoMap.h"

#include "model/Numbers.h"
#include "system/Texts.h"

namespace {
/// A map that does not fit: engine speeds are told before load points.
std::string WhyTooLarge(const TMap &map) {
    if (map.RPMCount() >= TMap::rpmLimit)
        return Filled(Translated("WhyNoMap", "%1 engine speeds: a map of %2 or more is not shown"),
                      {std::to_string(map.RPMCount()), std::to_string(TMap::rpmLimit)});
    return Filled(Translated("WhyNoMap", "%1 load points: a map of %2 or more is not shown"),
                  {std::to_string(map.LoadCount()), std::to_string(TMap::loadLimit)});
}
} // namespace

bool IsPlaced(const TMap &map) {
    return map.location->offset != -1 || map.GetLocation() != 0;
}

std::string WhyNotShown(const TMap &map) {
    if (!map.Fits())
        return WhyTooLarge(map);
    if (map.RPMCount() > 0 && map.LoadCount() > 0)
        return {};
    if (!IsPlaced(map))
        return Translated("WhyNoMap",
                          "Not placed: neither a spec file nor an offset says where this map is");
    const std::string place = FormatOffset(map.GetLocation());
    if (map.RPMCount() == 0)
        return Filled(Translated("WhyNoMap", "0 engine speeds: there is no map at %1"), {place});
    return Filled(Translated("WhyNoMap", "0 load points: there is no map at %1"), {place});
}
