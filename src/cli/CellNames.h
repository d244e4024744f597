// How places in maps are written: cells, ranges of cells, points of axes.
//
//   fuel-pt[3120,56]     the cell at 3120 rpm and 56 % load
//   fuel-pt[#5,#3]       the cell in column 5, row 3, counted from 1
//   fuel-wot[3120]       of a map with one axis
//   fuel-pt[1000:3000,60:#12], fuel-pt[:,60], fuel-pt    cells from one point to another, or all
//   fuel-pt.rpm[3], fuel-pt.load[3]                      a point of an axis, counted from 1
#pragma once

#include "changes/MapChanges.h"
#include "maps/BulkAdjust.h"

#include <string>
#include <string_view>

/// How points of axes and the rev limiter are shown.
inline constexpr const char *axisPicture = "####0";

/// From a point of an axis to another, both included. Empty texts: from the first, to the last.
struct TPointNames {
    std::string first;
    std::string last;
};

enum class TMapPart { Body, RpmAxis, LoadAxis };

/// A place as it is written.
struct TCellNames {
    std::string text; ///< all of it
    TMapId map;
    TMapPart part = TMapPart::Body;
    TPointNames rpm{};
    TPointNames load{};
};

/// Throws EWrongUse for anything of another form; which points there are is not looked at.
TCellNames ReadCellNames(std::string_view text);

/// The cells of the map's grid: row 0 for the RPM axis, column 0 for the load axis. Throws
/// EWrongUse for a point that the map does not have, or has twice, and for a range that runs
/// backwards.
TCellRange CellsNamed(const TCellNames &names, const TMap &map);

/// As CellsNamed for a place that is one cell; throws for more.
TCellRange CellNamed(const TCellNames &names, const TMap &map);

/// How the cell of the map's grid is written, by its axes' values: "fuel-pt[3120,56]".
std::string CellName(TMapId id, const TMap &map, int column, int row);
