// The walls of a chart as flat faces, in the order in which they have to be painted. No drawing and
// no toolkit.
//
// Every wall fills one slot of the box's depth, the first one the farthest, from the floor up to
// its points. Each point's colour reaches half-way to its neighbours. As the view is parallel and
// all walls stand on one grid, painting slot after slot from the far to the near one, and in each
// slot piece after piece, hides exactly what is hidden; nothing is sorted.
#pragma once

#include "maps/ChartProjection.h"
#include "maps/ChartScale.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

/// A face on the screen.
struct TChartFace {
    std::array<TScreenPoint, 5> corners;
    std::size_t count;   ///< of corners: 4 or 5
    TColor color;        ///< of the face's point
    std::uint8_t ridges; ///< bit i: the edge from corner i to the next one is an edge of the wall
    bool end = false;    ///< lies across the wall: its end, or the side of a step
    bool covers =
        true; ///< may hide ridges of faces before it; those of a run without may follow it
};

/// How walls are set up in the box.
struct TWallLayout {
    TChartScale scale;
    bool firstAtRight = false; ///< the first point of each wall stands at the right
};

/// Number of points of the longest wall: the places along the bottom.
int PlaceCount(const std::vector<TWall> &walls);

/// Where point `index` of `count` places stands along the bottom, 0 to 1. A single one stands in
/// the middle.
double PlaceOf(int index, int count, bool firstAtRight);

/// Where the middle of slot `index` of `count` lies in the depth, 0 (near) to 1 (far): slot 0 is
/// the farthest.
double SlotOf(int index, int count);

/// The seen faces of all walls, the farthest first.
std::vector<TChartFace> FacesOf(const std::vector<TWall> &walls, const TWallLayout &layout,
                                const TChartProjection &projection);
