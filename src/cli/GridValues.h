// What the cells of a map's grid stand for.
#pragma once

#include "model/MapTypes.h"

#include <string>

/// The value that a body or header cell of the map's grid shows; none beyond the map.
const TVal *ValueAt(const TMap &map, int column, int row);

/// How its number is written: as the map shows it, but loads with all their digits.
std::string PictureAt(const TMap &map, int column, int row);

/// The text without blanks at its ends and without a "%", as loads are written.
std::string WithoutPercent(const std::string &text);
