// A map as a table for spreadsheets: comma-separated values that give the same bytes again.
#pragma once

#include "changes/MapChanges.h"

#include <string>

/// A line of engine speeds behind an empty field, then a line for each load: the load with a "%",
/// and its cells in the units that the map shows. Numbers have as many digits as it takes to store
/// the same count again, and the decimal separator in force. Lines end with CR and LF. For a map
/// that can be shown, while its image is in force. Throws EWrongUse for a cell whose byte no number
/// stands for: an angle without a divider.
///
/// @param between  what separates the fields
std::string MapCsv(TMapId id, const TMap &map, char between = ',');

/// The option --decimal-comma of the commands that write and read such tables.
constexpr const char *decimalCommaOption = "--decimal-comma";
constexpr const char *decimalCommaHelp =
    "Numbers have a comma, and semicolons stand between them, as spreadsheets of many countries "
    "have it";
