// Paints a chart with any painter on any device, in lines, polygons and texts alone: ChartLayout.h
// says where they stand, ChartDrawing.h which they are. Faces keep their exact colours: they are
// never antialiased, only the lines over them.
#pragma once

#include "maps/ChartLayout.h"

#include <QFont>
#include <QPointF>
#include <QRectF>

class QPaintDevice;
class QPainter;
class QPalette;

/// Where a chart is put.
struct TChartPlace {
    QRectF rect;
    QFont font;
    QPaintDevice *device = nullptr; ///< whose pixels measure the texts; none: the screen's
};

/// Lays a chart out with texts in that font, the title in bold.
TChartLayout LayOut(const TChartContents &contents, const TChartPlace &place);

/// Background and texts are the palette's, so that the chart fits any theme. The painter is left as
/// it was.
void PaintChart(QPainter &painter, const TChartContents &contents, const TChartPlace &place,
                const QPalette &palette);

QPointF OnScreen(const TScreenPoint &point);
QRectF OnScreen(const TChartRect &rect);
