#include "maps/ChartDrawing.h"

#include "maps/ChartWalls.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace {
// Shares of the text's colour over the background.
constexpr double gridShare = 0.16;
constexpr double axisShare = 0.6;
/// Share of black or white in the lines over a face's colour.
constexpr double fullRidgeShare = 0.45;
constexpr double faintestRidges = 0.45; ///< of the full share
constexpr double fullRidgesApart = 0.8; ///< line heights
constexpr double endShade = 0.3;        ///< share of black over the ends of walls

/// The mean of many colours.
class TMeanColor {
public:
    void Add(const TRgb &color) {
        red_ += color.red;
        green_ += color.green;
        blue_ += color.blue;
        ++count_;
    }
    /// Not for none.
    TRgb Mean() const { return {red_ / count_, green_ / count_, blue_ / count_}; }

private:
    int red_ = 0;
    int green_ = 0;
    int blue_ = 0;
    int count_ = 0;
};

double Distance(const TScreenPoint &one, const TScreenPoint &other) {
    return std::hypot(other.x - one.x, other.y - one.y);
}

class TChartDrawing {
public:
    TChartDrawing(IChartCanvas &canvas, const TChartLayout &layout, const TChartContents &contents)
        : canvas_(canvas), layout_(layout), contents_(contents), ridgeShare_(RidgeShare()) {}

    void Run() {
        DrawGrid();
        DrawWalls();
        canvas_.DrawLines(layout_.axes, Ink(axisShare));
    }

private:
    TRgb Ink(double share) const { return Blended(canvas_.Text(), canvas_.Background(), share); }
    /// Ridges are tinted the less the nearer they are to each other, or a small chart would show
    /// nothing else.
    double RidgeShare() const {
        const double placeSteps = std::max(PlaceCount(contents_.walls) - 1, 1);
        const double slotCount = std::max<double>(static_cast<double>(contents_.walls.size()), 1);
        const double apart = std::min(Distance(Map(0, 0, 0), Map(1 / placeSteps, 0, 0)),
                                      Distance(Map(0, 0, 0), Map(0, 0, 1 / slotCount)));
        return fullRidgeShare *
               std::clamp(apart / (fullRidgesApart * layout_.lineHeight), faintestRidges, 1.0);
    }
    TScreenPoint Map(double x, double y, double z) const {
        return layout_.projection.Map({x, y, z});
    }

    /// Lines at the value axis' ticks over the two far sides, and the floor's outline.
    void DrawGrid() {
        const TBoxPoint away = layout_.projection.Away();
        const double farX = away.x > 0 ? 1 : 0;
        const double farZ = away.z < 0 ? 0 : 1;
        std::vector<TChartLine> lines;
        for (int i = 0; i < layout_.scale.TickCount(); ++i) {
            const double y = layout_.scale.Height(layout_.scale.Tick(i));
            lines.push_back({Map(0, y, farZ), Map(1, y, farZ)});
            lines.push_back({Map(farX, y, 0), Map(farX, y, 1)});
        }
        for (const double x : {0.0, 1.0})
            lines.push_back({Map(x, 0, farZ), Map(x, 1, farZ)});
        lines.push_back({Map(farX, 0, 1 - farZ), Map(farX, 1, 1 - farZ)});
        lines.push_back({Map(1 - farX, 0, 0), Map(1 - farX, 0, 1)});
        lines.push_back({Map(0, 0, 1 - farZ), Map(1, 0, 1 - farZ)});
        canvas_.DrawLines(lines, Ink(gridShare));
    }

    void DrawWalls() {
        const TWallLayout walls{layout_.scale, contents_.firstAtRight};
        for (const TChartFace &face : FacesOf(contents_.walls, walls, layout_.projection)) {
            if (face.covers)
                DrawRidges();
            DrawFace(face);
        }
        DrawRidges();
    }

    void DrawFace(const TChartFace &face) {
        UseColor(face);
        canvas_.DrawFace({face.corners.data(), face.count}, fill_);
        for (std::size_t i = 0; i < face.count; ++i)
            if (face.ridges >> i & 1U)
                ridges_.push_back({face.corners[i], face.corners[(i + 1) % face.count]});
        ridged_.Add(fill_);
    }

    void UseColor(const TChartFace &face) {
        if (face.color == color_ && face.end == end_)
            return;
        color_ = face.color;
        end_ = face.end;
        const TRgb color = canvas_.Painted(face.color);
        fill_ = face.end ? Blended(rgbBlack, color, endShade) : color;
    }

    /// Draws the lines that have gathered, all in one tint of their faces' mean colour: changing
    /// pens is slow, and so are pens that let the faces shine through.
    void DrawRidges() {
        if (!ridges_.empty())
            canvas_.DrawRidges(ridges_, RidgeColor());
        ridges_.clear();
        ridged_ = {};
    }
    TRgb RidgeColor() const {
        const TRgb mean = ridged_.Mean();
        const TRgb background = canvas_.Background();
        const TRgb tint = Blended(ReadableOn(mean), mean, ridgeShare_);
        // Walls that hardly differ from the background are told by their lines, thin as they are.
        return Contrast(mean, background) < leastLineContrast ? Legible(tint, background) : tint;
    }

    IChartCanvas &canvas_;
    const TChartLayout &layout_;
    const TChartContents &contents_;
    const double ridgeShare_;
    std::optional<TColor> color_;
    bool end_ = false;
    TRgb fill_{};
    std::vector<TChartLine> ridges_; ///< of the faces drawn last
    TMeanColor ridged_;              ///< the colours of those faces
};
} // namespace

void DrawChart(const TChartContents &contents, const TChartLayout &layout, IChartCanvas &canvas) {
    TChartDrawing(canvas, layout, contents).Run();
}
