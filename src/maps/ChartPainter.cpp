#include "maps/ChartPainter.h"

#include "forms/AligridColors.h"
#include "maps/ChartWalls.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include <QPaintEngine>
#include <QPainter>
#include <QPalette>

namespace {
// Shares of the text's colour over the background.
constexpr double gridShare = 0.16;
constexpr double axisShare = 0.6;
/// Share of black or white in the lines over a face's colour.
constexpr double fullRidgeShare = 0.45;
constexpr double faintestRidges = 0.45; ///< of the full share
constexpr double fullRidgesApart = 0.8; ///< line heights
constexpr double endShade = 0.3;        ///< share of black over the ends of walls
constexpr double lineWidth = 1.0 / 16;  // line heights

/// The mean of many colours.
class TMeanColor {
public:
    void Add(const QColor &color) {
        red_ += color.red();
        green_ += color.green();
        blue_ += color.blue();
        ++count_;
    }
    /// Not for none.
    QColor Mean() const { return {red_ / count_, green_ / count_, blue_ / count_}; }

private:
    int red_ = 0;
    int green_ = 0;
    int blue_ = 0;
    int count_ = 0;
};

class TChartPainting {
public:
    TChartPainting(QPainter &painter, const TChartLayout &layout, const TChartContents &contents,
                   const QPalette &palette)
        : painter_(painter),
          layout_(layout),
          contents_(contents),
          palette_(palette),
          onPixels_(painter.paintEngine()->type() == QPaintEngine::Raster),
          ridgeShare_(RidgeShare()) {}

    void Run() {
        painter_.save();
        painter_.setClipRect(layout_.drawing, Qt::IntersectClip);
        PaintGrid();
        PaintWalls();
        PaintAxes();
        painter_.restore();
        PaintLabels();
    }

private:
    QColor Ink(double share) const {
        return Blended(palette_.color(QPalette::Text), palette_.color(QPalette::Base), share);
    }
    QPen LinePen(const QColor &color) const {
        QPen pen(color, layout_.lineHeight * lineWidth);
        pen.setCapStyle(Qt::FlatCap);
        return pen;
    }
    /// Ridges are tinted the less the nearer they are to each other, or a small chart would show
    /// nothing else.
    double RidgeShare() const {
        const double placeSteps = std::max(PlaceCount(contents_.walls) - 1, 1);
        const double slotCount = std::max<double>(static_cast<double>(contents_.walls.size()), 1);
        const double apart = std::min(QLineF(Map(0, 0, 0), Map(1 / placeSteps, 0, 0)).length(),
                                      QLineF(Map(0, 0, 0), Map(0, 0, 1 / slotCount)).length());
        return fullRidgeShare *
               std::clamp(apart / (fullRidgesApart * layout_.lineHeight), faintestRidges, 1.0);
    }
    QPointF Map(double x, double y, double z) const {
        return OnScreen(layout_.projection.Map({x, y, z}));
    }

    /// Lines at the value axis' ticks over the two far sides, and the floor's outline.
    void PaintGrid() {
        painter_.setRenderHint(QPainter::Antialiasing);
        painter_.setPen(LinePen(Ink(gridShare)));
        const TBoxPoint away = layout_.projection.Away();
        const double farX = away.x > 0 ? 1 : 0;
        const double farZ = away.z < 0 ? 0 : 1;
        for (int i = 0; i < layout_.scale.TickCount(); ++i) {
            const double y = layout_.scale.Height(layout_.scale.Tick(i));
            painter_.drawLine(Map(0, y, farZ), Map(1, y, farZ));
            painter_.drawLine(Map(farX, y, 0), Map(farX, y, 1));
        }
        for (const double x : {0.0, 1.0})
            painter_.drawLine(Map(x, 0, farZ), Map(x, 1, farZ));
        painter_.drawLine(Map(farX, 0, 1 - farZ), Map(farX, 1, 1 - farZ));
        painter_.drawLine(Map(1 - farX, 0, 0), Map(1 - farX, 0, 1));
        painter_.drawLine(Map(0, 0, 1 - farZ), Map(1, 0, 1 - farZ));
    }

    void PaintWalls() {
        painter_.setRenderHint(QPainter::Antialiasing, false);
        painter_.setPen(Qt::NoPen);
        const TWallLayout walls{layout_.scale, contents_.firstAtRight};
        for (const TChartFace &face : FacesOf(contents_.walls, walls, layout_.projection)) {
            if (face.covers)
                PaintRidges();
            PaintFace(face);
        }
        PaintRidges();
    }

    void PaintFace(const TChartFace &face) {
        UseColor(face);
        std::array<QPointF, 5> corners;
        std::transform(face.corners.begin(), face.corners.end(), corners.begin(), OnScreen);
        painter_.drawConvexPolygon(corners.data(), static_cast<int>(face.count));
        for (std::size_t i = 0; i < face.count; ++i)
            if (face.ridges >> i & 1U)
                ridges_.emplace_back(corners[i], corners[(i + 1) % face.count]);
        ridged_.Add(fill_);
    }

    void UseColor(const TChartFace &face) {
        if (face.color == color_ && face.end == end_)
            return;
        color_ = face.color;
        end_ = face.end;
        const QColor color = PaintedColor(face.color, palette_);
        fill_ = face.end ? Blended(Qt::black, color, endShade) : color;
        painter_.setBrush(fill_);
        // Where a device draws its own pixels later, neighbours would leave hair lines between
        // them.
        if (!onPixels_)
            painter_.setPen(QPen(fill_, 0));
    }

    /// Paints the lines that have gathered, all in one tint of their faces' mean colour: changing
    /// pens is slow, and so are pens that let the faces shine through.
    void PaintRidges() {
        if (!ridges_.empty()) {
            const QPen before = painter_.pen();
            painter_.setRenderHint(QPainter::Antialiasing);
            painter_.setPen(RidgePen());
            painter_.drawLines(ridges_.data(), static_cast<int>(ridges_.size()));
            painter_.setRenderHint(QPainter::Antialiasing, false);
            painter_.setPen(before);
        }
        ridges_.clear();
        ridged_ = {};
    }
    QPen RidgePen() const {
        const QColor mean = ridged_.Mean();
        const QColor background = palette_.color(QPalette::Base);
        QColor tint = Blended(ReadableOn(mean), mean, ridgeShare_);
        // Walls that hardly differ from the background are told by their lines.
        if (Contrast(mean, background) < leastLineContrast)
            tint = Legible(tint, background); // thin as they are
        QPen pen = LinePen(tint);
        if (onPixels_) { // wider ones than a pixel of the device are slower by far
            pen.setCosmetic(true);
            pen.setWidth(1);
        }
        return pen;
    }

    void PaintAxes() {
        painter_.setRenderHint(QPainter::Antialiasing);
        painter_.setPen(LinePen(Ink(axisShare)));
        painter_.drawLines(layout_.axes.data(), static_cast<int>(layout_.axes.size()));
    }

    void PaintLabels() {
        painter_.setPen(palette_.color(QPalette::Text));
        for (const TChartLabel &label : layout_.labels) {
            painter_.setFont(label.kind == TLabelKind::Title ? layout_.titleFont : layout_.font);
            if (label.upright)
                PaintUpright(label);
            else
                PaintText(label.rect, label.text);
        }
    }
    void PaintUpright(const TChartLabel &label) {
        painter_.save();
        painter_.translate(label.rect.center());
        painter_.rotate(-90);
        QRectF rect({0, 0}, label.rect.size().transposed());
        rect.moveCenter({0, 0});
        PaintText(rect, label.text);
        painter_.restore();
    }
    void PaintText(const QRectF &rect, const QString &text) {
        // By the text alone: "% Load" reads so in a right-to-left program too.
        const int direction =
            text.isRightToLeft() ? Qt::TextForceRightToLeft : Qt::TextForceLeftToRight;
        painter_.drawText(rect, Qt::AlignCenter | Qt::TextDontClip | Qt::TextSingleLine | direction,
                          text);
    }

    QPainter &painter_;
    const TChartLayout &layout_;
    const TChartContents &contents_;
    const QPalette &palette_;
    const bool onPixels_;
    const double ridgeShare_;
    std::optional<TColor> color_;
    bool end_ = false;
    QColor fill_;
    std::vector<QLineF> ridges_; ///< of the faces painted last
    TMeanColor ridged_;          ///< the colours of those faces
};
} // namespace

void PaintChart(QPainter &painter, const TChartContents &contents, const TChartPlace &place,
                const QPalette &palette) {
    const TChartLayout layout = LayOut(contents, place);
    painter.save();
    painter.setClipRect(place.rect, Qt::IntersectClip);
    painter.fillRect(place.rect, palette.color(QPalette::Base));
    TChartPainting(painter, layout, contents, palette).Run();
    painter.restore();
}
