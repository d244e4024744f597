// What becomes of a number that a cell of a map shows when it is stored in a byte: in words, where
// the byte will not show that number again. Nothing is stored here.
#pragma once

#include "model/MapTypes.h"

#include <string>

/// Whether the note is read before or after "Commit".
enum class TNoteTime { Before, After };

/// What the byte of a body cell becomes by the text in it, such as "5.87 does not fit a byte: 1.87
/// will be stored" or "0.999 will be stored as 1.00". Empty when the byte shows that number again
/// or is exactly it, for a text that is no number and for cells without a byte, headers too.
///
/// @param column, row  in the grid: the body begins at (1, 1)
std::string StoredNote(const TMap &map, int column, int row, const std::string &text,
                       TNoteTime time = TNoteTime::Before);
