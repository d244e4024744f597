#include "spec/MappingChoice.h"

#include "model/Numbers.h"
#include "spec/SpecFile.h"

#include <algorithm>
#include <cstdint>

TMappingType MappingTypeOf(int item, int lastItem) {
    if (item < 0 || item > lastItem)
        return TMappingType::None;
    return item == lastItem ? TMappingType::Manual : TMappingType::Spec;
}

void ZeroBothSets(TWorkspace &workspace) {
    workspace.fuelMapSet.ZeroMaps();
    workspace.timingMapSet.ZeroMaps();
}

TSpecReading ReadSpec(const std::filesystem::path &file, TWorkspace &workspace) {
    TSpecReading reading;
    try {
        const TIniFile ini = TIniFile::Load(file);
        reading.placed = PlaceFromSpec(ini, workspace.fuelMapSet, workspace.timingMapSet);
        ReadTimingConstants(ini);
    } catch (...) {
        reading.error = std::current_exception();
    }
    return reading;
}

void PlaceByHand(const TTypedOffsets &typed, TWorkspace &workspace) {
    std::array<std::int32_t, 6> at{};
    std::transform(typed.begin(), typed.end(), at.begin(), ParseInteger);
    workspace.fuelMapSet.ZeroMaps();
    workspace.fuelMapSet.SetOffsets(at[0], at[1], at[2]);
    workspace.timingMapSet.ZeroMaps();
    workspace.timingMapSet.SetOffsets(at[3], at[4], at[5]);
}
