// The searches of the contents view for single values and for pointers. They only add colours, and
// tell what they found whether it was marked before or not. Maps are found by MapSearch.h;
// questions, answers and the grid belong to the page.
#pragma once

#include "filedisplay/SearchCells.h"

#include <cstdint>
#include <optional>

/// Marks every byte from `minimum` to `maximum` that has a neighbour in the same range. The byte
/// after the end of a row is no neighbour of the row's last, but the row's last is one of the byte
/// after it: the difference is intended.
TFound MarkPossibleValues(const TSearchGrid &grid, std::int32_t minimum, std::int32_t maximum,
                          TColor color);

/// MarkPossibleValues with the fuel range, in lime.
TFound MarkPossibleFuelValues(const TSearchGrid &grid, const TSearchParameters &parameters);

/// MarkPossibleValues with the timing range, in fuchsia.
TFound MarkPossibleTimingValues(const TSearchGrid &grid, const TSearchParameters &parameters);

/// Marks every byte equal to `value` olive; none for a value that is no byte.
TFound MarkValue(const TSearchGrid &grid, std::int32_t value);

/// The two bytes by which the control unit's program names a place in the image.
struct TPointerAddress {
    std::uint8_t high;
    std::uint8_t low;
};

/// Splits a 16-bit address; none for one whose hexadecimal form needs more than four digits, and so
/// for every negative one.
std::optional<TPointerAddress> SplitAddress(std::int32_t address);

/// Marks olive each pointer to `address`: a byte that under `mask` equals the high byte (which is
/// not masked itself), and the low byte behind it. The byte behind a fitting high byte is never
/// tested as a high byte of its own, whatever it is; this is intended.
/// It is the pointers that are counted, not their cells.
TFound MarkPointers(const TSearchGrid &grid, TPointerAddress address, std::uint8_t mask);
