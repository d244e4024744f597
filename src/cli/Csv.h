// Comma-separated values as spreadsheets write them. What the table of a map says is
// CommandImport.cpp's, writing one MapCsv.h's.
#pragma once

#include "maps/CellTable.h"

#include <string>
#include <string_view>

/// Rows of fields, quotes taken away. Lines end with CR, LF or both. Semicolons or tabs separate
/// the fields where the first line has these and no comma.
///
/// @param name  the file's, for the error: EWrongUse for quotes that are not closed, or that end
///              within a field
TTextTable ReadCsv(std::string_view utf8, const std::string &name);

/// "TABLE.CSV: row 2, column 3", both counted from 1.
std::string CsvPlace(const std::string &name, std::size_t row, std::size_t column);
