#include "filedisplay/OverviewLines.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <iterator>

namespace {
/// From left to right.
enum TLane {
    FuelData,
    TimingData,
    AnyData,
    Searched,
    AxisCount,
    Axis,
    PossibleFuel,
    PossibleTiming
};
constexpr TColor laneColors[] = {0x008000, 0x800080, 0x00FFFF, 0x008080,
                                 0xFF0000, 0x008000, 0x00FF00, 0xFF00FF};
constexpr std::size_t lanes = std::size(laneColors);
constexpr std::size_t noLane = lanes;

using TMarked = std::bitset<lanes + 1>;

struct TMarkLane {
    TColor mark;
    TLane lane;
};

constexpr TMarkLane markLanes[] = {
    {fuelMapColor, FuelData},
    {timingMapColor, TimingData},
    {0x800081, TimingData},
    {0x800082, TimingData},
    {anyMapColor, AnyData},
    {anyMapColor + 2, AnyData},
    {searchedColor, Searched},
    {axisCountColor, AxisCount},
    {linearAxisColor, Axis},
    {twoDAxisColor, Axis},
    {possibleFuelColor, PossibleFuel},
    {possibleTimingColor, PossibleTiming},
};

std::size_t LaneOf(TColor color) {
    if (const TMark *mark = MarkOf(color))
        for (const TMarkLane &each : markLanes)
            if (each.mark == mark->color)
                return each.lane;
    return noLane;
}

/// Remembers the lanes of colours: a million cells have hardly more than a thousand of them.
class TLanes {
public:
    std::size_t Of(TColor color) {
        constexpr TColor spread = 2654435769U; // 2^32 by the golden ratio: neighbours part
        TKnown &known = known_[color * spread >> (32 - slotBits)];
        if (known.color != color)
            known = {color, LaneOf(color)};
        return known.lane;
    }

private:
    static constexpr int slotBits = 11;
    struct TKnown {
        TColor color = unmarkedColor;
        std::size_t lane = noLane;
    };
    std::array<TKnown, 1 << slotBits> known_;
};

/// Of the rows from `first` to before `end`.
TMarked MarkedIn(const TSeenColors &colors, std::size_t first, std::size_t end, TLanes &known) {
    TMarked marked;
    TColor last = unmarkedColor;
    for (std::size_t row = first; row < end; ++row)
        for (const TColor color : colors.InRow(row * cellsPerRow, cellsPerRow)) {
            if (color != last)
                marked.set(known.Of(color));
            last = color;
        }
    return marked;
}

TOverviewLine LineOf(TMarked marked) {
    if (marked[FuelData] || marked[TimingData] || marked[AnyData])
        marked.reset(AxisCount).reset(Axis);
    TOverviewLine line;
    for (std::size_t lane = 0; lane < lanes; ++lane)
        if (marked[lane])
            line.push_back(laneColors[lane]);
    return line;
}
} // namespace

std::vector<TOverviewLine> OverviewLines(const TSeenColors &colors, std::size_t lines) {
    std::vector<TOverviewLine> shown(lines);
    const std::size_t rows = colors.size() / cellsPerRow;
    if (rows == 0)
        return shown;
    TLanes known;
    for (std::size_t line = 0; line < lines; ++line) {
        const std::size_t first = line * rows / lines;
        const std::size_t end = std::max(first + 1, (line + 1) * rows / lines);
        shown[line] = LineOf(MarkedIn(colors, first, end, known));
    }
    return shown;
}
