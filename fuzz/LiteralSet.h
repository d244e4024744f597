// Three maps of one kind as the fuzz target `maps` keeps them beside the model's: plain integers, a
// grid and a chart each, and what the model is expected to have said. What an edit means is worked
// out here once more.
#pragma once

#include "model/LiteralMap.h"
#include "model/MapSets.h"
#include "support/FakeMapViews.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

/// One map, its views, and what the model keeps beside its numbers.
struct TLiteralEntry {
    explicit TLiteralEntry(bool twoAxes) : map(twoAxes) {}

    TLiteralMap map;
    /// A direct place, or with a pointer's place above -1 the byte that the model found there.
    std::int32_t directPlace = 0;
    std::int32_t pointerPlace = -1;
    std::int32_t mask = 0;
    bool modified = false;
    /// Which picture the cells get; a load leaves it as it is.
    bool formatConverted = false;
    TFakeMapGrid grid;
    TFakeMapChart chart;
};

class TLiteralSet {
public:
    explicit TLiteralSet(bool fuelMaps) : fuel(fuelMaps) {}

    bool fuel;
    std::vector<std::uint8_t> image = std::vector<std::uint8_t>(0x100000);
    std::array<TLiteralEntry, 3> entries{TLiteralEntry(true), TLiteralEntry(false),
                                         TLiteralEntry(false)};
    std::int32_t revPlace = -1;
    std::int32_t revRaw = 0;
    bool revModified = false;
    std::vector<std::string> messages;

    std::int32_t Location(const TLiteralEntry &entry) const;
    void PlaceDirectly(TLiteralEntry &entry, std::int32_t place);
    void PlaceThroughPointer(TLiteralEntry &entry, std::int32_t place, std::int32_t mask);
    /// What follows the placing of all three maps.
    void SetSingleLoadPoints();
    void Save(TLiteralEntry &entry);
    void SaveRevLimiter();
    void Zero();
    /// Takes the blue cells of the entry's grid; true when a header cell stops it with an error.
    bool TakeEdits(TLiteralEntry &entry);

    double Shown(std::int32_t raw, bool converted) const;
    double Shown(const TLiteralEntry &entry, std::size_t cell) const;
    static double LoadShown(const TLiteralEntry &entry, std::size_t point);

private:
    std::optional<std::int32_t> CellRaw(double number, bool converted) const;
    void TakeCell(TLiteralEntry &entry, int column, int row);
    static bool TakeHeader(TLiteralEntry &entry, int column, int row);
};
