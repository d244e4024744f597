// Tests with small maps at known places of the image and one map set of each kind over it.
#pragma once

#include "spec/SpecFile.h"
#include "support/ModelFixture.h"

#include <cstdint>
#include <string>
#include <vector>

class TSpecFixture : public TModelTest {
protected:
    // Each map has two RPM and two load points; a one-axis map reads the first axis only.
    TSpecFixture() {
        TimingConstants() = {1.5, 2.5};
        for (const std::int32_t place : {0x100, 0x200, 0x300, 0x400, 0x500, 0x600, 0x700})
            PutMap(place, {0x20, 0x40}, {0x20, 0x00});
        Put(0x1F0, {170});
    }

    std::vector<std::int32_t> FuelPlaces() const { return Places(fuel_); }
    std::vector<std::int32_t> TimingPlaces() const { return Places(timing_); }

    bool Place(const std::string &text) { return PlaceFromSpec(TIniFile(text), fuel_, timing_); }

    TFuelMapSet fuel_;
    TTimingMapSet timing_;

private:
    static std::vector<std::int32_t> Places(const TMapSet &mapSet) {
        return {mapSet.PTMap->GetLocation(), mapSet.IdleMap->GetLocation(),
                mapSet.WOTMap->GetLocation()};
    }
};
