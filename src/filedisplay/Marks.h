// The colours that the searches leave in the contents view, and the one table of what each of them
// means: for hints and screen readers, the key window, "All Highlighted" and the tests.
#pragma once

#include "filedisplay/SearchCells.h"
#include "system/Texts.h"

#include <optional>
#include <string_view>

/// The control unit's two layouts. Linear: header byte, count n, n axis values, n data bytes.
/// TwoD: header byte, x count, x values, header byte, y count, y values, x count * y count data
/// bytes.
enum class TMapShape { Linear, TwoD };

/// What the data bytes are: within the fuel or the timing range, or any bytes.
enum class TMapContents { Fuel, Timing, Any };

inline constexpr TColor unmarkedColor = clWindow;
inline constexpr TColor possibleFuelColor = 0x00FF00;
inline constexpr TColor possibleTimingColor = 0xFF00FF;
inline constexpr TColor searchedColor = 0x008080; ///< also the second header byte of a 2-D map
inline constexpr TColor axisCountColor = 0xFF0000;
inline constexpr TColor linearAxisColor = 0x008001;
inline constexpr TColor twoDAxisColor = 0x008002;
inline constexpr TColor fuelMapColor = 0x008000;
inline constexpr TColor timingMapColor = 0x800080;
inline constexpr TColor anyMapColor = 0xFFFFFF;

/// What stands in more than one cell is shaded, each cell with its byte (0 to 255): that is added
/// to the smallest channel of the colour. Blue wins a tie, then green. The sum carries into the
/// next channel (white and 1 give 0x100FFFF); intended, see docs/peculiarities.md.
TColor Shaded(TColor color, TCellValue byte);

/// Colours the cells from `first` to before `end`, each Shaded with its own byte.
void MarkRun(const TSearchGrid &grid, std::size_t first, std::size_t end, TColor color);

/// Of a map's data.
constexpr TColor MapColor(TMapContents contents) {
    if (contents == TMapContents::Fuel)
        return fuelMapColor;
    return contents == TMapContents::Timing ? timingMapColor : anyMapColor;
}

/// The maps marked since the last "Clear All Markers".
struct TMapCounters {
    int linear = 0;
    int twoD = 0;
};

/// Gives every cell the unmarked colour and sets both counters to 0.
void ClearAllMarkers(const TSearchGrid &grid, TMapCounters &counters);

/// A kind of map that "All Highlighted" finds by the colour of its first cell.
struct TMapStart {
    TMapContents contents;
    TMapShape shape;
};

/// A line of the key window.
struct TLegendLine {
    const char *text; ///< for TfrmKey::tr()
    TColor color;     ///< fixed; need not be the mark's
    const char *colorName;
};

struct TMark {
    TColor color;
    bool shaded;      ///< whether its shades are this mark too
    const char *name; ///< see MarkName
    std::optional<TLegendLine> legend = {};
    std::optional<TMapStart> start = {};
};

/// Every mark. Where a colour fits two of them, it means the first: those that start a map come
/// before the shades. The lines of the key window stand in this order.
///
/// The searches give 0x008001 and 0x800081 to the first byte of no linear map: the first is the
/// axis colour, so that each zero axis byte of a found map starts one (0x008002 likewise), the
/// second never stands anywhere. White maps start none. Intended; see docs/peculiarities.md.
inline constexpr TMark marks[] = {
    {0x008001, false, Translatable("MarkNames", "Start of a 1-D fuel map"), std::nullopt,
     TMapStart{TMapContents::Fuel, TMapShape::Linear}},
    {0x008002, false, Translatable("MarkNames", "Start of a 2-D fuel map"), std::nullopt,
     TMapStart{TMapContents::Fuel, TMapShape::TwoD}},
    {0x800081, false, Translatable("MarkNames", "Start of a 1-D timing map"), std::nullopt,
     TMapStart{TMapContents::Timing, TMapShape::Linear}},
    {0x800082, false, Translatable("MarkNames", "Start of a 2-D timing map"), std::nullopt,
     TMapStart{TMapContents::Timing, TMapShape::TwoD}},
    {axisCountColor, false, Translatable("MarkNames", "Axis Count"),
     TLegendLine{Translatable("TfrmKey", "Axis Count"), 0xFF0000, Translatable("TfrmKey", "blue")}},
    {linearAxisColor, true, Translatable("MarkNames", "Axis Values"),
     TLegendLine{Translatable("TfrmKey", "Axis Values"), 0x008000,
                 Translatable("TfrmKey", "green")}},
    {twoDAxisColor, true, Translatable("MarkNames", "Axis Values")},
    {fuelMapColor, true, Translatable("MarkNames", "Map Data, fuel")},
    {timingMapColor, true, Translatable("MarkNames", "Map Data, timing")},
    {anyMapColor, true, Translatable("MarkNames", "Map Data"),
     TLegendLine{Translatable("TfrmKey", "Map Data"), 0x00FFFF, Translatable("TfrmKey", "yellow")}},
    {anyMapColor + 2, false, Translatable("MarkNames", "Map Data")}, // starts one
    {possibleFuelColor, false, Translatable("MarkNames", "Possible Fuel Val"),
     TLegendLine{Translatable("TfrmKey", "Possible Fuel Val"), 0x00FF00,
                 Translatable("TfrmKey", "lime")}},
    {possibleTimingColor, false, Translatable("MarkNames", "Possible Timing Val"),
     TLegendLine{Translatable("TfrmKey", "Possible Timing Val"), 0xFF00FF,
                 Translatable("TfrmKey", "fuchsia")}},
    {searchedColor, false, Translatable("MarkNames", "Searched Val, or a map's header"),
     TLegendLine{Translatable("TfrmKey", "Searched Val"), 0x008080,
                 Translatable("TfrmKey", "olive")}},
};

/// Its row of the table; nullptr for an unmarked cell and for every colour that is no mark.
const TMark *MarkOf(TColor color);

/// What tells marks from each other: the English name, which rows of the table share where they
/// mean the same. Empty where MarkOf gives nothing.
std::string_view MarkKind(TColor color);

/// In the user's language, what a cell's background colour means, for whoever cannot tell it by
/// sight; an empty text for an unmarked cell and for every colour that is no mark.
std::string MarkName(TColor color);

/// The kind of map that a cell of this colour starts; nullptr for any other colour.
const TMapStart *MapStartOf(TColor color);
