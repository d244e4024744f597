// Paints a chart that has been laid out: grid, walls, axes, texts, with any painter on any device,
// in lines, polygons and texts alone.
#pragma once

#include "maps/ChartLayout.h"

class QPainter;
class QPalette;

struct TChartStyle {
    bool smooth = true; ///< lines antialiased; faces never are, so that each keeps its exact colour
    bool ridges = true; ///< the walls' edges drawn in a tint of their colour
};

/// Background and texts are the palette's, so that the chart fits any theme. The painter is left as
/// it was.
void PaintChart(QPainter &painter, const TChartContents &contents, const TChartPlace &place,
                const QPalette &palette, const TChartStyle &style);
