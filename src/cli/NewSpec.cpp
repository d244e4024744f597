#include "cli/NewSpec.h"

#include "model/Workspace.h"
#include "spec/SpecFile.h"
#include "system/PathText.h"

void WriteNewSpec(const std::filesystem::path &file, const std::filesystem::path &image,
                  const TSpecPlaces &places) {
    const auto offset = [&](std::size_t map) {
        return static_cast<std::int32_t>(places.maps[map].value_or(0));
    };
    TWorkspace maps;
    maps.fuelMapSet.SetOffsets(offset(0), offset(1), offset(2));
    maps.timingMapSet.SetOffsets(offset(3), offset(4), offset(5));
    if (places.revLimiter)
        maps.fuelMapSet.revLimiter.SetOffset(static_cast<std::int32_t>(*places.revLimiter));
    SaveNewSpecFile(file, PathText(image.filename()), maps.fuelMapSet, maps.timingMapSet);
}
