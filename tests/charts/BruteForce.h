// What a chart's walls look like, worked out without any order: every face of every wall, seen or
// not, as triangles in a depth buffer. Slow and plain, to be compared with.
#pragma once

#include "maps/ChartProjection.h"
#include "maps/ChartScale.h"

#include <vector>

/// One sample of the screen.
struct TSample {
    TColor color = 0;
    bool wall = false;      ///< a wall is seen there
    bool end = false;       ///< and it is the end of one
    bool undecided = false; ///< two colours at one distance
    int face = 0;           ///< number of the face; each has one of its own
};

class TDepthBuffer {
public:
    /// Samples at the middles of `columns` x `rows` units from (0, 0) on.
    TDepthBuffer(int columns, int rows);

    /// Puts all walls in; `depth` as for the projection.
    void AddWalls(const std::vector<TWall> &walls, const TChartScale &scale, bool firstAtRight,
                  const TChartView &view, double depth, const TChartProjection &projection);

    const TSample &At(int column, int row) const;
    /// Whether all samples that are at most two away show the same face of a wall.
    bool IsInside(int column, int row) const;

private:
    struct TCorner {
        TScreenPoint at;
        double distance; ///< from the viewer
    };
    struct TMarked : TSample {
        double distance = 1e300;
    };

    void AddFace(const std::vector<TBoxPoint> &corners, TColor color, bool end);
    void AddTriangle(const TCorner &a, const TCorner &b, const TCorner &c, TColor color, bool end);
    void Put(TMarked &sample, double distance, TColor color, bool end) const;

    int columns_;
    int rows_;
    std::vector<TMarked> samples_;
    const TChartProjection *projection_ = nullptr;
    double depth_ = 1;
    int faces_ = 0;
    TChartView view_;
};
