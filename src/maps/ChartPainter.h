// Paints a chart that has been laid out: grid, walls, axes, texts, with any painter on any device,
// in lines, polygons and texts alone. Faces keep their exact colours: they are never antialiased,
// only the lines over them.
#pragma once

#include "maps/ChartLayout.h"

class QPainter;
class QPalette;

/// Background and texts are the palette's, so that the chart fits any theme. The painter is left as
/// it was.
void PaintChart(QPainter &painter, const TChartContents &contents, const TChartPlace &place,
                const QPalette &palette);
