// What the searches of the contents view work on: the cells' integers, their colours, the search
// parameters; and how cells are marked. It knows no grid and no text. Searches.h looks for single
// values and pointers, MapSearch.h for whole maps.
#pragma once

#include "model/MapViews.h"

#include <cstddef>
#include <cstdint>
#include <span>

/// The number that a cell shows: 0 to 255, or -1 for a cell that is no number.
using TCellValue = std::int16_t;

/// Cells in one row of the contents view.
inline constexpr std::size_t cellsPerRow = 16;

inline constexpr TColor possibleFuelColor = 0x00FF00;
inline constexpr TColor possibleTimingColor = 0xFF00FF;
inline constexpr TColor searchedColor = 0x008080; ///< also the header bytes of a found map
inline constexpr TColor axisCountColor = 0xFF0000;
inline constexpr TColor linearAxisColor = 0x008001;
inline constexpr TColor twoDAxisColor = 0x008002;
inline constexpr TColor fuelMapColor = 0x008000;
inline constexpr TColor timingMapColor = 0x800080;
inline constexpr TColor anyMapColor = 0xFFFFFF;
inline constexpr TColor unmarkedColor = clWindow;

/// The data cells of the contents view in reading order, lent by the page: position p is the byte
/// at image offset p, in row p / 16 + 1 and column p % 16 + 1.
struct TSearchGrid {
    /// May end with the last byte or be filled up to the row's end with -1, which stands nowhere
    /// else. Whatever lies beyond counts as -1.
    std::span<const TCellValue> values;
    /// At least one colour for each of `values`.
    std::span<TColor> colors;

    TCellValue At(std::size_t position) const {
        return position < values.size() ? values[position] : TCellValue{-1};
    }
    std::size_t Rows() const { return (values.size() + cellsPerRow - 1) / cellsPerRow; }
};

/// What the user may set for the searches; -1 stands for "not specified".
struct TSearchParameters {
    std::int32_t fuelMinimum = 90;
    std::int32_t fuelMaximum = 200;
    std::int32_t timingMinimum = 10;
    std::int32_t timingMaximum = 90;
    std::int32_t rpmLocation = -1;  ///< RAM cell of the RPM reading, the first header byte of a map
    std::int32_t loadLocation = -1; ///< RAM cell of the % load reading, the second header byte
    std::uint8_t pointerMask = 15;  ///< bits of a pointer's high byte that are compared
};

/// The bytes from a minimum to a maximum, both included. Any limits do: an unset minimum is no
/// lower bound, an unset maximum and crossed limits leave no byte. -1 is in no range.
class TByteRange {
public:
    TByteRange(std::int32_t minimum, std::int32_t maximum);

    bool IsEmpty() const { return empty_; }
    /// Meaningful for a range that is not empty; one comparison, so that loops over it vectorise.
    bool Contains(TCellValue value) const {
        return static_cast<std::uint16_t>(value - low_) <= width_;
    }

private:
    bool empty_;
    std::uint16_t low_ = 0;
    std::uint16_t width_ = 0;
};

/// What one search found.
struct TFound {
    std::size_t count = 0;
    std::size_t first = 0; ///< image offset of the first one; says nothing when there is none
};

/// The maps marked since the last "Clear All Markers".
struct TMapCounters {
    int linear = 0;
    int twoD = 0;
};

/// The address that the headers of a cell's row and column give. Only the first three digits of the
/// row count, so that beyond 64 KiB it is another address than `offset`; this is intended.
std::int32_t HeaderAddress(std::size_t offset);

/// How far left a byte goes to stand in the smallest channel of `color`: 16, 8 or 0. Blue wins a
/// tie, then green.
int SmallestChannelShift(TColor color);

/// `color` with `value` (0 to 255) added to its smallest channel. The sum carries into the next
/// channel, on purpose: white and 1 give 0x100FFFF.
TColor Shaded(TColor color, TCellValue value);

/// Colours `count` cells from `first` on, each shaded with its own byte; a single cell gets the
/// plain colour. The run must lie within the values.
void MarkRun(const TSearchGrid &grid, std::size_t first, std::size_t count, TColor color);

/// Gives every cell the unmarked colour and sets both counters to 0.
void ClearAllMarkers(std::span<TColor> colors, TMapCounters &counters);
