// The three edges of a chart's box along which its axes run in a given view: always edges of the
// outline, so that labels beside them never lie on the walls. No drawing and no toolkit.
#pragma once

#include "maps/ChartProjection.h"

/// An edge of the box, and the way from it to the outside.
struct TChartEdge {
    TBoxPoint from; ///< the lower end of its axis: 0 along x, y or z
    TBoxPoint to;
    TScreenPoint outward; ///< of length 1, at right angles to the edge
    double length;        ///< on the screen

    /// The place `part` (0 to 1) of the way along the edge.
    TBoxPoint At(double part) const;
};

/// The outline's edge along the floor, from left to right as seen from the front.
TChartEdge BottomEdge(const TChartProjection &projection);
/// The outline's edge along the floor, from the near to the far side.
TChartEdge DepthEdge(const TChartProjection &projection);
/// The upright edge that is farthest to the left.
TChartEdge LeftEdge(const TChartProjection &projection);
