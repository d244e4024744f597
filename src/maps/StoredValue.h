// What becomes of a number that is shown when it is stored in a byte: in words, where the byte will
// not show that number again, and which number to enter for a byte. Nothing is stored here.
#pragma once

#include "model/MapTypes.h"

#include <cstdint>
#include <optional>
#include <string>

/// Whether the note is read before or after "Commit".
enum class TNoteTime { Before, After };

/// Whether the value takes the number at all: not outside 32 bits, nor an angle without a divider.
bool CanBeStored(const TVal &value, double number);

/// What the byte of `value` becomes by a text, such as "5.87 does not fit a byte: 1.87 will be
/// stored" or "0.999 will be stored as 1.00". Empty when the byte shows that number again or is
/// exactly it, and for a text that is no number.
///
/// @param picture  how the number is shown
std::string StoredNote(const TVal &value, const std::string &picture, const std::string &text,
                       TNoteTime time = TNoteTime::Before);

/// The same of a cell in a map's grid, whose body begins at (1, 1). Empty for cells without a byte,
/// headers too.
std::string StoredNote(const TMap &map, int column, int row, const std::string &text,
                       TNoteTime time = TNoteTime::Before);

/// The count that a text is for `value`, whether it fits a byte or not. None for a text that is no
/// number and for a number that CanBeStored refuses.
std::optional<std::int32_t> CountOf(const TVal &value, const std::string &text);

/// What is to be entered where `value` is shown so that it takes `count`: as `picture` shows it
/// where that is exact enough, else with as many more digits as it takes. Empty where no number
/// gives that count: an angle without a divider.
std::string EntryFor(const TVal &value, const std::string &picture, std::int32_t count);

/// Whether a number is what EntryFor gives for `count`, or is the count's value itself.
bool StandsFor(const TVal &value, const std::string &picture, std::int32_t count,
               const std::string &text);
