// What is drawn of a chart that has been laid out: its grid, walls and axes, as coloured lines and
// faces in the order in which they cover each other. Who draws them is behind IChartCanvas; the
// texts are the layout's.
#pragma once

#include "maps/ChartLayout.h"
#include "system/Rgb.h"

#include <span>

/// Takes lines and faces. Those that come later cover those before.
class IChartCanvas {
public:
    virtual ~IChartCanvas() = default;
    virtual TRgb Background() const = 0;
    /// The colour of texts on it.
    virtual TRgb Text() const = 0;
    /// What stands for a point's colour; those of a theme have a meaning of their own.
    virtual TRgb Painted(TColor color) const = 0;

    /// Lines of the grid and the axes.
    virtual void DrawLines(std::span<const TChartLine> lines, const TRgb &color) = 0;
    /// A convex face in its exact colour.
    virtual void DrawFace(std::span<const TScreenPoint> corners, const TRgb &color) = 0;
    /// Edges of walls, over the faces before them.
    virtual void DrawRidges(std::span<const TChartLine> lines, const TRgb &color) = 0;
};

/// How thick lines are, in line heights of the layout.
inline constexpr double chartLineWidth = 1.0 / 16;

/// Draws all but the texts.
void DrawChart(const TChartContents &contents, const TChartLayout &layout, IChartCanvas &canvas);
