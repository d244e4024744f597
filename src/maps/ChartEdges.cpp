#include "maps/ChartEdges.h"

#include <cmath>
#include <initializer_list>

namespace {
/// Edges nearer to each other than this, on the screen, count as one.
constexpr double same = 1e-6;

TChartEdge EdgeOf(const TChartProjection &projection, const TBoxPoint &from, const TBoxPoint &to) {
    const TScreenPoint a = projection.Map(from);
    const TScreenPoint b = projection.Map(to);
    const double length = std::hypot(b.x - a.x, b.y - a.y);
    TChartEdge edge{from, to, {0, 1}, length};
    if (length < same)
        return edge;
    edge.outward = {(a.y - b.y) / length, (b.x - a.x) / length};
    const TScreenPoint centre = projection.Map({0.5, 0.5, 0.5});
    const double side = (a.x - centre.x) * edge.outward.x + (a.y - centre.y) * edge.outward.y;
    // An edge through the centre has its outside below.
    if (side < -same || (side <= same && edge.outward.y < 0))
        edge.outward = {-edge.outward.x, -edge.outward.y};
    return edge;
}

/// How far an edge lies outside of the box's middle.
double Reach(const TChartProjection &projection, const TChartEdge &edge) {
    const TScreenPoint place = projection.Map(edge.from);
    const TScreenPoint centre = projection.Map({0.5, 0.5, 0.5});
    return (place.x - centre.x) * edge.outward.x + (place.y - centre.y) * edge.outward.y;
}

/// Of two edges along the floor the outer one; of equals the lower one, or else the first.
TChartEdge Outer(const TChartProjection &projection, const TChartEdge &first,
                 const TChartEdge &second) {
    const double difference = Reach(projection, second) - Reach(projection, first);
    if (std::abs(difference) > same)
        return difference > 0 ? second : first;
    return projection.Map(second.At(0.5)).y > projection.Map(first.At(0.5)).y + same ? second
                                                                                     : first;
}
} // namespace

TBoxPoint TChartEdge::At(double part) const {
    return {from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part,
            from.z + (to.z - from.z) * part};
}

TChartEdge BottomEdge(const TChartProjection &projection) {
    const double nearZ = projection.Away().z < 0 ? 1 : 0;
    return Outer(projection, EdgeOf(projection, {0, 0, nearZ}, {1, 0, nearZ}),
                 EdgeOf(projection, {0, 0, 1 - nearZ}, {1, 0, 1 - nearZ}));
}

TChartEdge DepthEdge(const TChartProjection &projection) {
    const double nearX = projection.Away().x < 0 ? 1 : 0;
    return Outer(projection, EdgeOf(projection, {nearX, 0, 0}, {nearX, 0, 1}),
                 EdgeOf(projection, {1 - nearX, 0, 0}, {1 - nearX, 0, 1}));
}

TChartEdge LeftEdge(const TChartProjection &projection) {
    TChartEdge left{};
    double leftmost = 0;
    bool any = false;
    for (const double z : {0.0, 1.0})
        for (const double x : {0.0, 1.0}) {
            const TChartEdge edge = EdgeOf(projection, {x, 0, z}, {x, 1, z});
            const double place = projection.Map(edge.from).x;
            if (any && place >= leftmost - same)
                continue;
            any = true;
            leftmost = place;
            left = edge;
        }
    left.outward = {-1, 0};
    return left;
}
