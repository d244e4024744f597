// An image with small maps at known places, map sets over it, and everything process-wide put back
// afterwards.
#pragma once

#include "spec/SpecFile.h"

#include <initializer_list>
#include <string>
#include <vector>

#include <gtest/gtest.h>

class TSpecFixture : public testing::Test {
protected:
    TSpecFixture() : oldImage_(ExchangeROMImage(std::make_unique<TROMImage>())) {
        TimingConstants() = {1.5, 2.5};
        oldHook_ = SetMessageHook([this](const std::string &text) { messages_.push_back(text); });
        for (const std::int32_t place : {0x100, 0x200, 0x300, 0x400, 0x500, 0x600, 0x700})
            PutMap(place);
        ROMImage()->Poke(0x1F0, 170);
    }
    ~TSpecFixture() override {
        SetMessageHook(oldHook_);
        SetDecimalSeparator(".");
        TimingConstants() = {};
        ExchangeROMImage(std::move(oldImage_));
    }

    static void Put(std::int32_t offset, std::initializer_list<int> bytes) {
        for (const int byte : bytes)
            ROMImage()->Poke(offset++, static_cast<std::uint8_t>(byte));
    }

    // Two RPM points, two load points, four cells: read as a one-axis map, two cells.
    static void PutMap(std::int32_t offset) {
        Put(offset, {0x4A, 2, 0x20, 0x40, 0x4C, 2, 0x20, 0x00, 1, 2, 3, 4});
    }

    std::vector<std::int32_t> FuelPlaces() const { return Places(fuel_); }
    std::vector<std::int32_t> TimingPlaces() const { return Places(timing_); }

    bool Place(const std::string &text) { return PlaceFromSpec(TIniFile(text), fuel_, timing_); }

    TFuelMapSet fuel_;
    TTimingMapSet timing_;
    std::vector<std::string> messages_;

private:
    static std::vector<std::int32_t> Places(const TMapSet &mapSet) {
        return {mapSet.PTMap->GetLocation(), mapSet.IdleMap->GetLocation(),
                mapSet.WOTMap->GetLocation()};
    }

    std::unique_ptr<TROMImage> oldImage_;
    TMessageHook oldHook_;
};
