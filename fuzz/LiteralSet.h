// Three maps of one kind as the fuzz targets keep them beside the program's: plain integers, and
// what the program is expected to have said. What an edit means is worked out here once more, and
// so is what a grid shows. LiteralPage.h puts a page's rules on top.
#pragma once

#include "model/LiteralMap.h"
#include "model/MapSets.h"
#include "support/FakeMapViews.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

/// What all sets share.
struct TLiteralWorld {
    std::vector<std::uint8_t> image = std::vector<std::uint8_t>(0x100000);
    std::vector<std::string> messages; ///< the expected ones, in order
};

/// One map and what the program keeps beside its numbers.
struct TLiteralEntry {
    explicit TLiteralEntry(bool twoAxes) : map(twoAxes) {}

    TLiteralMap map;
    /// A direct place, or with a pointer's place above -1 the byte that was found there.
    std::int32_t directPlace = 0;
    std::int32_t pointerPlace = -1;
    std::int32_t mask = 0;
    bool modified = false;
    /// Which picture the cells get; a load leaves it as it is.
    bool formatConverted = false;
};

class TLiteralSet {
public:
    /// The world is lent.
    TLiteralSet(TLiteralWorld &sharedWorld, bool fuelMaps) : world(sharedWorld), fuel(fuelMaps) {}

    TLiteralWorld &world;
    bool fuel;
    std::array<TLiteralEntry, 3> entries{TLiteralEntry(true), TLiteralEntry(false),
                                         TLiteralEntry(false)};
    bool showConverted = false;
    std::int32_t revPlace = -1;
    std::int32_t revRaw = 0;
    bool revModified = false;

    bool Modified() const;
    std::int32_t Location(const TLiteralEntry &entry) const;
    void PlaceDirectly(TLiteralEntry &entry, std::int32_t place);
    void PlaceThroughPointer(TLiteralEntry &entry, std::int32_t place, std::int32_t mask);
    /// The one load point of idle (0) and full throttle (100); part throttle stays.
    void SetSingleLoadPoint(std::size_t which);
    void PlaceRevLimiter(std::int32_t place);
    void SetRevLimiter(std::int32_t rpm);
    void Interpret(bool converted);
    void Save(TLiteralEntry &entry);
    /// All maps, and the fuel set's rev limiter.
    void SaveAll();
    void Zero();
    /// Values, shape and format of another map; all cells count as modified.
    static void Paste(const TLiteralEntry &copied, TLiteralEntry &entry);

    static void Shape(const TLiteralEntry &entry, TFakeMapGrid &grid);
    /// Fills what the grid has cells for; hides it, and no more, when the map does not fit.
    void Fill(const TLiteralEntry &entry, TFakeMapGrid &grid) const;
    /// Takes the blue cells of a grid; true when a header cell stops it with an error.
    bool TakeEdits(TLiteralEntry &entry, TFakeMapGrid &grid);

    const char *Picture(const TLiteralEntry &entry) const;
    double CellShown(const TLiteralEntry &entry, std::size_t cell) const;
    static double LoadShown(const TLiteralEntry &entry, std::size_t point);

private:
    std::optional<std::int32_t> CellRaw(double number, bool converted) const;
    void TakeCell(TLiteralEntry &entry, TFakeMapGrid &grid, int column, int row);
    static bool TakeHeader(TLiteralEntry &entry, TFakeMapGrid &grid, int column, int row);
};
