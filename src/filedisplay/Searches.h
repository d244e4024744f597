// Marks and counts single values and pointers in the contents view, whether marked before or not.
#pragma once

#include "filedisplay/SearchCells.h"

#include <optional>

/// Marks every byte of the range that has a neighbour in it. The byte after the end of a row is no
/// neighbour of the row's last, but the row's last is one of the byte after it (intended; see
/// docs/peculiarities.md).
TFound MarkPossibleValues(const TSearchGrid &grid, TByteRange range, TColor color);

/// Marks every byte equal to `value` olive; none for a value that is no byte.
TFound MarkValue(const TSearchGrid &grid, std::int32_t value);

/// The two bytes by which the control unit's program names a place in the image.
struct TPointerAddress {
    std::uint8_t high;
    std::uint8_t low;
};

/// Splits an address; none for one that does not fit 16 bits, and so for every negative one.
std::optional<TPointerAddress> SplitAddress(std::int32_t address);

/// Marks olive each pointer to `address`, and counts pointers, not cells: a byte that under `mask`
/// equals the high byte, which is not masked itself, and the low byte behind it. What is behind a
/// fitting high byte is no high byte of its own (intended; see docs/peculiarities.md).
TFound MarkPointers(const TSearchGrid &grid, TPointerAddress address, std::uint8_t mask);
