#include "maps/ChartPainter.h"

#include "forms/AligridColors.h"
#include "maps/ChartDrawing.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include <QFontMetricsF>
#include <QPaintEngine>
#include <QPainter>
#include <QPalette>

namespace {
constexpr std::size_t mostCorners = 5;

QFont TitleFont(QFont font) {
    font.setBold(true);
    return font;
}

class TFontSizes : public ITextSizes {
public:
    explicit TFontSizes(const TChartPlace &place)
        : labels_(Metrics(place.font, place.device)),
          titles_(Metrics(TitleFont(place.font), place.device)) {}

    double LineHeight() const override { return labels_.height(); }
    double Width(const std::string &text) const override {
        return labels_.horizontalAdvance(QString::fromStdString(text));
    }
    double TitleHeight() const override { return titles_.height(); }
    double TitleWidth(const std::string &text) const override {
        return titles_.horizontalAdvance(QString::fromStdString(text));
    }
    std::string ShortenedTitle(const std::string &text, double width) const override {
        return titles_.elidedText(QString::fromStdString(text), Qt::ElideRight, width)
            .toStdString();
    }

private:
    static QFontMetricsF Metrics(const QFont &font, QPaintDevice *device) {
        return device ? QFontMetricsF(font, device) : QFontMetricsF(font);
    }

    QFontMetricsF labels_;
    QFontMetricsF titles_;
};

class TPainterCanvas : public IChartCanvas {
public:
    TPainterCanvas(QPainter &painter, const QPalette &palette, double lineWidth)
        : painter_(painter),
          palette_(palette),
          lineWidth_(lineWidth),
          onPixels_(painter.paintEngine()->type() == QPaintEngine::Raster) {}

    TRgb Background() const override { return RgbOf(palette_.color(QPalette::Base)); }
    TRgb Text() const override { return RgbOf(palette_.color(QPalette::Text)); }
    TRgb Painted(TColor color) const override { return RgbOf(PaintedColor(color, palette_)); }

    void DrawLines(std::span<const TChartLine> lines, const TRgb &color) override {
        Stroke(lines, LinePen(color));
    }

    void DrawFace(std::span<const TScreenPoint> corners, const TRgb &color) override {
        UseFill(color);
        std::array<QPointF, mostCorners> points;
        std::transform(corners.begin(), corners.end(), points.begin(),
                       [](const TScreenPoint &corner) { return OnScreen(corner); });
        painter_.drawConvexPolygon(points.data(), static_cast<int>(corners.size()));
    }

    void DrawRidges(std::span<const TChartLine> lines, const TRgb &color) override {
        QPen pen = LinePen(color);
        if (onPixels_) { // wider ones than a pixel of the device are slower by far
            pen.setCosmetic(true);
            pen.setWidth(1);
        }
        Stroke(lines, pen);
    }

private:
    QPen LinePen(const TRgb &color) const {
        QPen pen(ColorOf(color), lineWidth_);
        pen.setCapStyle(Qt::FlatCap);
        return pen;
    }

    void Stroke(std::span<const TChartLine> lines, const QPen &pen) {
        lines_.clear();
        for (const TChartLine &line : lines)
            lines_.emplace_back(OnScreen(line.from), OnScreen(line.to));
        painter_.setRenderHint(QPainter::Antialiasing);
        painter_.setPen(pen);
        painter_.drawLines(lines_.data(), static_cast<int>(lines_.size()));
        fill_.reset();
    }

    void UseFill(const TRgb &color) {
        if (fill_ == color)
            return;
        fill_ = color;
        painter_.setRenderHint(QPainter::Antialiasing, false);
        painter_.setBrush(ColorOf(color));
        // Where a device draws its own pixels later, neighbours would leave hair lines between
        // them.
        painter_.setPen(onPixels_ ? QPen(Qt::NoPen) : QPen(ColorOf(color), 0));
    }

    QPainter &painter_;
    const QPalette &palette_;
    const double lineWidth_;
    const bool onPixels_;
    std::optional<TRgb> fill_; ///< the painter is set up for faces in it
    std::vector<QLineF> lines_;
};

void PaintText(QPainter &painter, const QRectF &rect, const QString &text) {
    // By the text alone: "% Load" reads so in a right-to-left program too.
    const int direction =
        text.isRightToLeft() ? Qt::TextForceRightToLeft : Qt::TextForceLeftToRight;
    painter.drawText(rect, Qt::AlignCenter | Qt::TextDontClip | Qt::TextSingleLine | direction,
                     text);
}

void PaintUpright(QPainter &painter, const QRectF &place, const QString &text) {
    painter.save();
    painter.translate(place.center());
    painter.rotate(-90);
    QRectF rect({0, 0}, place.size().transposed());
    rect.moveCenter({0, 0});
    PaintText(painter, rect, text);
    painter.restore();
}

void PaintLabel(QPainter &painter, const TChartLabel &label) {
    const QString text = QString::fromStdString(label.text);
    if (label.upright)
        PaintUpright(painter, OnScreen(label.rect), text);
    else
        PaintText(painter, OnScreen(label.rect), text);
}

void PaintDrawing(QPainter &painter, const TChartContents &contents, const TChartLayout &layout,
                  const QPalette &palette) {
    painter.save();
    painter.setClipRect(OnScreen(layout.drawing), Qt::IntersectClip);
    TPainterCanvas canvas(painter, palette, layout.lineHeight * chartLineWidth);
    DrawChart(contents, layout, canvas);
    painter.restore();
}
} // namespace

TChartLayout LayOut(const TChartContents &contents, const TChartPlace &place) {
    const QRectF &rect = place.rect;
    return LayOut(contents, {rect.x(), rect.y(), rect.width(), rect.height()}, TFontSizes(place));
}

void PaintChart(QPainter &painter, const TChartContents &contents, const TChartPlace &place,
                const QPalette &palette) {
    const TChartLayout layout = LayOut(contents, place);
    painter.save();
    painter.setClipRect(place.rect, Qt::IntersectClip);
    painter.fillRect(place.rect, palette.color(QPalette::Base));
    PaintDrawing(painter, contents, layout, palette);
    painter.setPen(palette.color(QPalette::Text));
    for (const TChartLabel &label : layout.labels) {
        painter.setFont(label.kind == TLabelKind::Title ? TitleFont(place.font) : place.font);
        PaintLabel(painter, label);
    }
    painter.restore();
}

QPointF OnScreen(const TScreenPoint &point) {
    return {point.x, point.y};
}

QRectF OnScreen(const TChartRect &rect) {
    return {rect.left, rect.top, rect.width, rect.height};
}
