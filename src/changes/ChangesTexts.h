// What the pages "Changes" and "Compare" say of the differences between the image in force ("here",
// the one after) and another one ("there", the one before).
#pragma once

#include "changes/MapChanges.h"
#include "changes/TextGrid.h"

#include <string>

/// "1 byte", "12 bytes".
std::string BytesText(std::size_t bytes);

/// What the map shows in its grid.
TTextGrid MapTexts(const TMappedImage &image, TMapId map);

/// How the maps of a kind differ: "12 cells, other axes". Empty when they do not.
std::string MapText(const TMapChanges &changes, const TMap &here, const TMap &there);

/// "6520 here, 6800 there".
std::string RevLimiterText(const TByteDifference &limiter);

/// "14 bytes in 3 places".
std::string ElsewhereText(const std::vector<TByteRun> &runs);

/// "12 bytes in 2 maps", or "12 bytes" when none is in a map.
std::string ExtentText(const TImageChanges &changes);

/// How many bytes differ from those of `there`, the name of the other image, and how the lengths
/// do.
std::string TotalText(const TImageChanges &changes, const std::string &there);

/// A value of a cell in units, and as it is stored.
struct TCellSide {
    double value;
    std::uint8_t byte;
};

/// "0.98 (125) here, 1.05 (134) there: -0.07", formatted by `picture`.
std::string CellText(const TCellSide &here, const TCellSide &there, const std::string &picture);

/// Bytes as hexadecimal digits: at most `most` of them, then "...".
std::string HexText(std::span<const std::uint8_t> bytes, std::size_t most);
