// Where the parts of a chart stand: its box, its value scale, its axes' lines and its texts. What
// is painted there, and how, is ChartPainter.h.
#pragma once

#include "maps/ChartProjection.h"
#include "maps/ChartScale.h"

#include <vector>

#include <QFont>
#include <QLineF>
#include <QPointF>
#include <QRectF>
#include <QStringList>

class QPaintDevice;

/// What a chart shows.
struct TChartContents {
    std::vector<TWall> walls; ///< the first one farthest from the viewer
    QString title;
    QString bottomTitle;
    QString depthTitle;
    QString leftTitle;
    QStringList bottomLabels; ///< one per point of the longest wall, empty texts allowed
    QStringList depthLabels;  ///< one per wall
    bool firstAtRight = false;
    TChartView view;
};

/// Which text of the chart a label is.
enum class TLabelKind { Title, LeftTitle, BottomTitle, DepthTitle, Left, Bottom, Depth };

struct TChartLabel {
    TLabelKind kind;
    QString text;
    QRectF rect;          ///< what the text takes, after turning
    bool upright = false; ///< reads from below to above
};

/// Where a chart is put.
struct TChartPlace {
    QRectF rect;
    QFont font;
    QPaintDevice *device = nullptr; ///< whose pixels measure the texts; none: the screen's
};

struct TChartLayout {
    TChartProjection projection;
    TChartScale scale;
    QFont font;
    QFont titleFont;
    QRectF drawing;    ///< what lies outside of it is cut off: all but the strip of the title
    double lineHeight; ///< of the labels' font; all distances are parts of it
    std::vector<TChartLabel> labels;
    std::vector<QLineF> axes; ///< the axes' lines and ticks
};

/// Lays a chart out.
///
/// Labels stand outside of the box beside the outline's edges, follow them through every view, lie
/// within the rectangle and never touch, those of different axes neither: on a crowded axis every
/// second, third ... label is left, at a corner that of one axis. The axes' titles are left out
/// where there is little room, then the chart's title.
TChartLayout LayOut(const TChartContents &contents, const TChartPlace &place);

QPointF OnScreen(const TScreenPoint &point);
