// Where the parts of a chart stand: its box, its value scale, its axes' lines and its texts. What
// is drawn there is ChartDrawing.h; no drawing and no toolkit.
#pragma once

#include "maps/ChartProjection.h"
#include "maps/ChartScale.h"

#include <string>
#include <vector>

/// What a chart shows. Texts are UTF-8.
struct TChartContents {
    std::vector<TWall> walls; ///< the first one farthest from the viewer
    std::string title{};
    std::string bottomTitle{};
    std::string depthTitle{};
    std::string leftTitle{};
    std::vector<std::string> bottomLabels{}; ///< one per point of the longest wall, may be empty
    std::vector<std::string> depthLabels{};  ///< one per wall
    bool firstAtRight = false;
    TChartView view{};
};

/// A rectangle on the screen.
struct TChartRect {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;

    double Right() const { return left + width; }
    double Bottom() const { return top + height; }
    TScreenPoint Centre() const { return {left + width / 2, top + height / 2}; }
    /// With so much more at its left and at its right.
    TChartRect Widened(double by) const { return {left - by, top, width + 2 * by, height}; }
    /// Whether all of the other lies in it; an empty one never does.
    bool Contains(const TChartRect &other) const;
    /// Whether they share more than an edge; never with an empty one.
    bool Intersects(const TChartRect &other) const;
};

struct TChartLine {
    TScreenPoint from;
    TScreenPoint to;
};

/// Which text of the chart a label is. The title has a font of its own.
enum class TLabelKind { Title, LeftTitle, BottomTitle, DepthTitle, Left, Bottom, Depth };

struct TChartLabel {
    TLabelKind kind;
    std::string text;
    TChartRect rect;      ///< what the text takes, after turning
    bool upright = false; ///< reads from below to above
};

/// What texts take of the screen.
class ITextSizes {
public:
    virtual ~ITextSizes() = default;
    virtual double LineHeight() const = 0;
    virtual double Width(const std::string &text) const = 0;
    virtual double TitleHeight() const = 0;
    virtual double TitleWidth(const std::string &text) const = 0;
    /// The title, or as much of it with dots behind as fits.
    virtual std::string ShortenedTitle(const std::string &text, double width) const = 0;
};

struct TChartLayout {
    TChartProjection projection;
    TChartScale scale;
    TChartRect drawing; ///< what lies outside of it is cut off: all but the strip of the title
    double lineHeight;  ///< of the labels' font; all distances are parts of it
    std::vector<TChartLabel> labels;
    std::vector<TChartLine> axes; ///< the axes' lines and ticks
};

/// Lays a chart out in a rectangle.
///
/// Labels stand outside of the box beside the outline's edges, follow them through every view, lie
/// within the rectangle and never touch, those of different axes neither: on a crowded axis every
/// second, third ... label is left, at a corner that of one axis. The axes' titles are left out
/// where there is little room, then the chart's title.
TChartLayout LayOut(const TChartContents &contents, const TChartRect &place,
                    const ITextSizes &sizes);
