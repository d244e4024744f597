#include "maps/PasteBuffer.h"

#include <array>

std::string WhyNoPaste(const TMap *buffered, const TMap &target, const std::string &setName,
                       TMapKind kind) {
    constexpr std::array kindNames{"PT", "Idle", "WOT"};
    const std::string map = setName + " " + kindNames[static_cast<std::size_t>(kind)] + " Map";
    if (!buffered)
        return "No " + map + " currently in paste buffer";
    if (buffered->RPMCount() != target.RPMCount())
        return map + " in paste buffer has different RPM axis count";
    if (buffered->LoadCount() != target.LoadCount())
        return map + " in paste buffer has different Load axis count";
    return {};
}
