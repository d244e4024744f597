#include "maps/ChartLayout.h"

#include "maps/ChartEdges.h"
#include "maps/ChartWalls.h"

#include <algorithm>
#include <cmath>

#include <QFontMetricsF>

namespace {
// Distances in line heights.
constexpr double margin = 0.4;
constexpr double tickLength = 0.3;
constexpr double tickGap = 0.25;
constexpr double titleGap = 0.4;
constexpr double besideGap = 0.35; ///< between labels in one line, whatever they belong to
// Less room than this, in line heights, and the titles are left out.
constexpr double widthForAxisTitles = 20;
constexpr double heightForAxisTitles = 11;
constexpr double heightForTitle = 5;
/// Of the width, the most that the labels at one side may take.
constexpr double largestSide = 0.25;

constexpr int fullDepthWalls = 6; ///< fewer walls make a less deep box
constexpr int mostValueSteps = 10;

/// Depth of the box over its width: one wall is not as deep as twelve.
double DepthOf(std::size_t walls) {
    return std::clamp(static_cast<double>(walls) / fullDepthWalls, 0.3, 1.0);
}

struct TMark {
    double part; ///< along the edge
    QString text;
    double width; ///< of the text
};
using TMarks = std::vector<TMark>;

class TLayouter {
public:
    TLayouter(const TChartContents &contents, const TChartPlace &place)
        : contents_(contents),
          place_(place),
          font_(place.font),
          titleFont_(Bold(place.font)),
          metrics_(Metrics(font_)),
          titleMetrics_(Metrics(titleFont_)),
          line_(std::max(metrics_.height(), 1.0)),
          room_(place.rect.adjusted(margin * line_, margin * line_, -margin * line_,
                                    -margin * line_)) {}

    TChartLayout Run() {
        const bool axisTitles = place_.rect.width() >= widthForAxisTitles * line_ &&
                                place_.rect.height() >= heightForAxisTitles * line_;
        PlaceTitle();
        QRectF box = room_;
        const double beside = (tickLength + tickGap) * line_;
        const double titleSpace = axisTitles ? (1 + titleGap) * line_ : 0;
        QRectF drawing = place_.rect;
        if (!labels_.empty()) {
            drawing.setTop(labels_.front().rect.bottom());
            box.setTop(drawing.top() + margin * line_);
        }
        box.setBottom(box.bottom() - beside - line_ - titleSpace);
        const TChartScale scale = FittingScale(box);
        const TMarks values = ValueMarks(scale);
        const TMarks seriesTitles = SlotMarks();
        box.setLeft(box.left() + beside + Limited(Widest(values)) + titleSpace);
        box.setRight(box.right() - beside - Limited(Widest(seriesTitles)));
        LeaveRoomForOffsets(box);
        const TChartProjection projection = Projection(box);
        projection_ = &projection;

        PlaceAxis(TLabelKind::Left, LeftEdge(projection), values, contents_.leftTitle, axisTitles);
        PlaceAxis(TLabelKind::Bottom, BottomEdge(projection), PlaceMarks(), contents_.bottomTitle,
                  axisTitles);
        PlaceAxis(TLabelKind::Depth, DepthEdge(projection), seriesTitles, contents_.depthTitle,
                  axisTitles);
        return {projection,         scale,           font_, titleFont_, drawing, line_,
                std::move(labels_), std::move(axes_)};
    }

private:
    static QFont Bold(QFont font) {
        font.setBold(true);
        return font;
    }
    QFontMetricsF Metrics(const QFont &font) const {
        return place_.device ? QFontMetricsF(font, place_.device) : QFontMetricsF(font);
    }
    double Limited(double width) const {
        return std::min(width, largestSide * place_.rect.width());
    }
    static double Widest(const TMarks &marks) {
        double widest = 0;
        for (const TMark &mark : marks)
            widest = std::max(widest, mark.width);
        return widest;
    }

    TChartProjection Projection(const QRectF &box) const {
        return {contents_.view,
                DepthOf(contents_.walls.size()),
                {box.left(), box.top(), box.width(), box.height()}};
    }

    /// The offsets come after the fitting; the labels shall stay inside all the same.
    void LeaveRoomForOffsets(QRectF &box) const {
        const double right = contents_.view.horizontalOffset * box.width() / 1000;
        const double down = contents_.view.verticalOffset * box.height() / 1000;
        box.adjust(std::max(-right, 0.0), std::max(-down, 0.0), -std::max(right, 0.0),
                   -std::max(down, 0.0));
    }

    /// As many steps as labels have room for along the value axis.
    TChartScale FittingScale(const QRectF &box) const {
        const double steps = LeftEdge(Projection(box)).length / (1.5 * line_);
        return ScaleOf(contents_.walls,
                       static_cast<int>(std::clamp(steps, 1.0, double(mostValueSteps))));
    }

    TMark Mark(double part, const QString &text) const {
        return {part, text, metrics_.horizontalAdvance(text)};
    }
    TMarks ValueMarks(const TChartScale &scale) const {
        TMarks marks;
        for (int i = 0; i < scale.TickCount(); ++i)
            marks.push_back(
                Mark(scale.Height(scale.Tick(i)), QString::fromStdString(scale.TickText(i))));
        return marks;
    }
    TMarks PlaceMarks() const {
        const int count = PlaceCount(contents_.walls);
        TMarks marks;
        for (int i = 0; i < count; ++i)
            marks.push_back(
                Mark(PlaceOf(i, count, contents_.firstAtRight), contents_.bottomLabels.value(i)));
        return marks;
    }
    TMarks SlotMarks() const {
        const int count = static_cast<int>(contents_.walls.size());
        TMarks marks;
        for (int i = 0; i < count; ++i)
            marks.push_back(Mark(SlotOf(i, count), contents_.depthLabels.value(i)));
        return marks;
    }

    void PlaceTitle() {
        if (contents_.title.isEmpty() || place_.rect.height() < heightForTitle * line_)
            return;
        const QString text =
            titleMetrics_.elidedText(contents_.title, Qt::ElideRight, room_.width());
        const QSizeF size(titleMetrics_.horizontalAdvance(text), titleMetrics_.height());
        const QRectF rect({room_.center().x() - size.width() / 2, room_.top()}, size);
        if (!text.isEmpty() && place_.rect.contains(rect))
            labels_.push_back({TLabelKind::Title, text, rect});
    }

    bool IsFree(const QRectF &rect) const {
        if (!place_.rect.contains(rect))
            return false;
        const double gap = besideGap * line_;
        for (const TChartLabel &label : labels_)
            if (label.rect.adjusted(-gap, 0, gap, 0).intersects(rect))
                return false;
        return true;
    }

    /// A rectangle just outside of the line through `at` along an edge, `gap` away from it.
    static QRectF Beside(const TChartEdge &edge, const QPointF &at, const QSizeF &size,
                         double gap) {
        const QPointF outward = OnScreen(edge.outward);
        const double half =
            std::abs(outward.x()) * size.width() / 2 + std::abs(outward.y()) * size.height() / 2;
        QRectF rect({0, 0}, size);
        rect.moveCenter(at + outward * (gap + half));
        return rect;
    }

    QPointF At(const TChartEdge &edge, double part) const {
        return OnScreen(projection_->Map(edge.At(part)));
    }

    QRectF MarkRect(const TChartEdge &edge, const TMark &mark) const {
        return Beside(edge, At(edge, mark.part), {mark.width, line_},
                      (tickLength + tickGap) * line_);
    }

    /// The smallest step that keeps the labels of an axis apart.
    std::size_t Stride(const TChartEdge &edge, const TMarks &marks) const {
        const double gap = besideGap * line_;
        std::size_t stride = 1;
        for (std::size_t i = stride; i < marks.size(); i += stride) {
            const QRectF before = MarkRect(edge, marks[i - stride]).adjusted(-gap, 0, gap, 0);
            if (before.intersects(MarkRect(edge, marks[i]))) {
                ++stride;
                i = 0;
            }
        }
        return stride;
    }

    void PlaceAxis(TLabelKind kind, const TChartEdge &edge, const TMarks &marks,
                   const QString &title, bool withTitle) {
        if (edge.length < line_)
            return;
        axes_.emplace_back(At(edge, 0), At(edge, 1));
        const QPointF tick = OnScreen(edge.outward) * tickLength * line_;
        const std::size_t stride = Stride(edge, marks);
        double reach = 0;
        for (std::size_t i = 0; i < marks.size(); i += stride) {
            const QRectF rect = MarkRect(edge, marks[i]);
            const QPointF at = At(edge, marks[i].part);
            axes_.emplace_back(at, at + tick);
            reach = std::max(reach, std::abs(edge.outward.x) * rect.width() +
                                        std::abs(edge.outward.y) * rect.height());
            if (!marks[i].text.isEmpty() && IsFree(rect))
                labels_.push_back({kind, marks[i].text, rect});
        }
        if (withTitle && !title.isEmpty())
            PlaceAxisTitle(kind, edge, title, (tickLength + tickGap + titleGap) * line_ + reach);
    }

    /// In the middle of the axis, or else where it is free.
    void PlaceAxisTitle(TLabelKind axis, const TChartEdge &edge, const QString &title, double gap) {
        const bool upright = axis == TLabelKind::Left;
        QSizeF size(metrics_.horizontalAdvance(title), line_);
        if (upright)
            size.transpose();
        std::vector<QRectF> choices;
        for (const double part : {0.5, 0.4, 0.6, 0.3, 0.7, 0.2, 0.8, 0.0, 1.0})
            choices.push_back(Beside(edge, At(edge, part), size, gap));
        if (axis == TLabelKind::Depth)
            choices.push_back(BesideBox(edge, size));
        const auto free = std::find_if(choices.begin(), choices.end(),
                                       [this](const QRectF &rect) { return IsFree(rect); });
        if (free == choices.end())
            return;
        const TLabelKind kind = upright                      ? TLabelKind::LeftTitle
                                : axis == TLabelKind::Bottom ? TLabelKind::BottomTitle
                                                             : TLabelKind::DepthTitle;
        labels_.push_back({kind, title, *free, upright});
    }

    /// A rectangle to the right of the whole box, or to its left, above the outer end of an edge.
    QRectF BesideBox(const TChartEdge &edge, const QSizeF &size) const {
        const bool right = edge.outward.x > 0;
        double side = At(edge, 0).x();
        for (int corner = 0; corner < 8; ++corner) {
            const QPointF at = OnScreen(projection_->Map(
                {double(corner & 1), double(corner >> 1 & 1), double(corner >> 2)}));
            side = right ? std::max(side, at.x()) : std::min(side, at.x());
        }
        const QPointF ends[2] = {At(edge, 0), At(edge, 1)};
        const QPointF outer = (ends[0].x() < ends[1].x()) == right ? ends[1] : ends[0];
        const double gap = besideGap * line_;
        return {{right ? side + gap : side - gap - size.width(), outer.y() - size.height()}, size};
    }

    const TChartContents &contents_;
    const TChartPlace &place_;
    const QFont font_;
    const QFont titleFont_;
    const QFontMetricsF metrics_;
    const QFontMetricsF titleMetrics_;
    const double line_;
    const QRectF room_;
    const TChartProjection *projection_ = nullptr;
    std::vector<TChartLabel> labels_;
    std::vector<QLineF> axes_;
};
} // namespace

TChartLayout LayOut(const TChartContents &contents, const TChartPlace &place) {
    return TLayouter(contents, place).Run();
}

QPointF OnScreen(const TScreenPoint &point) {
    return {point.x, point.y};
}
