#include "filedisplay/OverviewLines.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace {
/// One bit for each kind of mark in a line, from left to right.
using TKinds = std::uint32_t;
constexpr TKinds noKind = 0;
constexpr TKinds fuelData = 1;
constexpr TKinds timingData = 2;
constexpr TKinds anyData = 4;
constexpr TKinds searched = 8;
constexpr TKinds axisCount = 16;
constexpr TKinds axis = 32;
constexpr TKinds possibleFuel = 64;
constexpr TKinds possibleTiming = 128;

constexpr TColor kindColors[] = {0x008000, 0x800080, 0x00FFFF, 0x008080,
                                 0xFF0000, 0x008000, 0x00FF00, 0xFF00FF};

struct TMarkKind {
    TColor mark;
    TKinds kind;
};

constexpr TMarkKind markKinds[] = {
    {fuelMapColor, fuelData},
    {timingMapColor, timingData},
    {0x800081, timingData},
    {0x800082, timingData},
    {anyMapColor, anyData},
    {anyMapColor + 2, anyData},
    {searchedColor, searched},
    {axisCountColor, axisCount},
    {linearAxisColor, axis},
    {twoDAxisColor, axis},
    {possibleFuelColor, possibleFuel},
    {possibleTimingColor, possibleTiming},
};

TKinds KindOf(TColor color) {
    if (const TMark *mark = MarkOf(color))
        for (const TMarkKind &each : markKinds)
            if (each.mark == mark->color)
                return each.kind;
    return noKind;
}

/// Remembers the kinds of colours: a million cells have hardly more than a thousand of them.
class TKnownKinds {
public:
    TKinds Of(TColor color) {
        constexpr TColor spread = 2654435769U; // 2^32 by the golden ratio: neighbours part
        TKnown &known = known_[color * spread >> (32 - slotBits)];
        if (known.color != color)
            known = {color, KindOf(color)};
        return known.kind;
    }

private:
    static constexpr int slotBits = 12;
    struct TKnown {
        TColor color = unmarkedColor;
        TKinds kind = noKind;
    };
    std::array<TKnown, 1 << slotBits> known_;
};

/// Of the rows from `first` to before `end`. No branch depends on a cell: which ones are marked is
/// as good as random.
TKinds KindsIn(const TSeenColors &colors, std::size_t first, std::size_t end, TKnownKinds &known) {
    TKinds kinds = noKind;
    for (std::size_t row = first; row < end; ++row)
        for (const TColor color : colors.InRow(row * cellsPerRow, cellsPerRow))
            kinds |= known.Of(color);
    return kinds;
}

TOverviewLine LineOf(TKinds kinds) {
    if ((kinds & (fuelData | timingData | anyData)) != 0)
        kinds &= ~(axisCount | axis);
    TOverviewLine line;
    for (std::size_t i = 0; i < std::size(kindColors); ++i)
        if ((kinds >> i & 1) != 0)
            line.push_back(kindColors[i]);
    return line;
}
} // namespace

std::vector<TOverviewLine> OverviewLines(const TSeenColors &colors, std::size_t lines) {
    std::vector<TOverviewLine> shown(lines);
    const std::size_t rows = colors.size() / cellsPerRow;
    if (rows == 0)
        return shown;
    TKnownKinds known;
    for (std::size_t line = 0; line < lines; ++line) {
        const std::size_t first = line * rows / lines;
        const std::size_t end = std::max(first + 1, (line + 1) * rows / lines);
        shown[line] = LineOf(KindsIn(colors, first, end, known));
    }
    return shown;
}
