#include "maps/ChartLayout.h"

#include "maps/ChartEdges.h"
#include "maps/ChartWalls.h"

#include <algorithm>
#include <cmath>

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
    std::string text;
    double width; ///< of the text
};
using TMarks = std::vector<TMark>;

/// Of a text.
struct TSize {
    double width;
    double height;
};

TChartRect Between(double left, double top, double right, double bottom) {
    return {left, top, right - left, bottom - top};
}

TChartRect Around(const TScreenPoint &centre, const TSize &size) {
    return {centre.x - size.width / 2, centre.y - size.height / 2, size.width, size.height};
}

TScreenPoint Moved(const TScreenPoint &point, const TScreenPoint &direction, double by) {
    return {point.x + direction.x * by, point.y + direction.y * by};
}

std::string LabelAt(const std::vector<std::string> &labels, int index) {
    const auto place = static_cast<std::size_t>(index);
    return place < labels.size() ? labels[place] : std::string();
}

class TLayouter {
public:
    TLayouter(const TChartContents &contents, const TChartRect &place, const ITextSizes &sizes)
        : contents_(contents),
          place_(place),
          sizes_(sizes),
          line_(std::max(sizes.LineHeight(), 1.0)),
          room_(Between(place.left + margin * line_, place.top + margin * line_,
                        place.Right() - margin * line_, place.Bottom() - margin * line_)) {}

    TChartLayout Run() {
        const bool axisTitles = place_.width >= widthForAxisTitles * line_ &&
                                place_.height >= heightForAxisTitles * line_;
        PlaceTitle();
        const TChartRect drawing = BelowTitle();
        const double top = labels_.empty() ? room_.top : drawing.top + margin * line_;
        const double beside = (tickLength + tickGap) * line_;
        const double titleSpace = axisTitles ? (1 + titleGap) * line_ : 0;
        TChartRect box =
            Between(room_.left, top, room_.Right(), room_.Bottom() - beside - line_ - titleSpace);
        const TChartScale scale = FittingScale(box);
        const TMarks values = ValueMarks(scale);
        const TMarks seriesTitles = SlotMarks();
        box = Between(box.left + beside + Limited(Widest(values)) + titleSpace, box.top,
                      box.Right() - beside - Limited(Widest(seriesTitles)), box.Bottom());
        const TChartProjection projection = Projection(WithRoomForOffsets(box));
        projection_ = &projection;

        PlaceAxis(TLabelKind::Left, LeftEdge(projection), values, contents_.leftTitle, axisTitles);
        PlaceAxis(TLabelKind::Bottom, BottomEdge(projection), PlaceMarks(), contents_.bottomTitle,
                  axisTitles);
        PlaceAxis(TLabelKind::Depth, DepthEdge(projection), seriesTitles, contents_.depthTitle,
                  axisTitles);
        return {projection, scale, drawing, line_, std::move(labels_), std::move(axes_)};
    }

private:
    TChartRect BelowTitle() const {
        const double top = labels_.empty() ? place_.top : labels_.front().rect.Bottom();
        return Between(place_.left, top, place_.Right(), place_.Bottom());
    }
    double Limited(double width) const { return std::min(width, largestSide * place_.width); }
    static double Widest(const TMarks &marks) {
        double widest = 0;
        for (const TMark &mark : marks)
            widest = std::max(widest, mark.width);
        return widest;
    }

    TChartProjection Projection(const TChartRect &box) const {
        return {contents_.view,
                DepthOf(contents_.walls.size()),
                {box.left, box.top, box.width, box.height}};
    }

    /// The offsets come after the fitting; the labels shall stay inside all the same.
    TChartRect WithRoomForOffsets(const TChartRect &box) const {
        const double right = contents_.view.horizontalOffset * box.width / 1000;
        const double down = contents_.view.verticalOffset * box.height / 1000;
        return Between(box.left + std::max(-right, 0.0), box.top + std::max(-down, 0.0),
                       box.Right() - std::max(right, 0.0), box.Bottom() - std::max(down, 0.0));
    }

    /// As many steps as labels have room for along the value axis.
    TChartScale FittingScale(const TChartRect &box) const {
        const double steps = LeftEdge(Projection(box)).length / (1.5 * line_);
        return ScaleOf(contents_.walls,
                       static_cast<int>(std::clamp(steps, 1.0, double(mostValueSteps))));
    }

    TMark Mark(double part, const std::string &text) const {
        return {part, text, sizes_.Width(text)};
    }
    TMarks ValueMarks(const TChartScale &scale) const {
        TMarks marks;
        for (int i = 0; i < scale.TickCount(); ++i)
            marks.push_back(Mark(scale.Height(scale.Tick(i)), scale.TickText(i)));
        return marks;
    }
    TMarks PlaceMarks() const {
        const int count = PlaceCount(contents_.walls);
        TMarks marks;
        for (int i = 0; i < count; ++i)
            marks.push_back(Mark(PlaceOf(i, count, contents_.firstAtRight),
                                 LabelAt(contents_.bottomLabels, i)));
        return marks;
    }
    TMarks SlotMarks() const {
        const int count = static_cast<int>(contents_.walls.size());
        TMarks marks;
        for (int i = 0; i < count; ++i)
            marks.push_back(Mark(SlotOf(i, count), LabelAt(contents_.depthLabels, i)));
        return marks;
    }

    void PlaceTitle() {
        if (contents_.title.empty() || place_.height < heightForTitle * line_)
            return;
        const std::string text = sizes_.ShortenedTitle(contents_.title, room_.width);
        const TSize size{sizes_.TitleWidth(text), sizes_.TitleHeight()};
        const TChartRect rect{room_.Centre().x - size.width / 2, room_.top, size.width,
                              size.height};
        if (!text.empty() && place_.Contains(rect))
            labels_.push_back({TLabelKind::Title, text, rect});
    }

    bool IsFree(const TChartRect &rect) const {
        return place_.Contains(rect) &&
               std::none_of(labels_.begin(), labels_.end(), [&](const TChartLabel &label) {
                   return label.rect.Widened(besideGap * line_).Intersects(rect);
               });
    }

    /// A rectangle just outside of the line through `at` along an edge, `gap` away from it.
    static TChartRect Beside(const TChartEdge &edge, const TScreenPoint &at, const TSize &size,
                             double gap) {
        const double half =
            std::abs(edge.outward.x) * size.width / 2 + std::abs(edge.outward.y) * size.height / 2;
        return Around(Moved(at, edge.outward, gap + half), size);
    }

    TScreenPoint At(const TChartEdge &edge, double part) const {
        return projection_->Map(edge.At(part));
    }

    TChartRect MarkRect(const TChartEdge &edge, const TMark &mark) const {
        return Beside(edge, At(edge, mark.part), {mark.width, line_},
                      (tickLength + tickGap) * line_);
    }

    /// The smallest step that keeps the labels of an axis apart.
    std::size_t Stride(const TChartEdge &edge, const TMarks &marks) const {
        const double gap = besideGap * line_;
        std::size_t stride = 1;
        for (std::size_t i = stride; i < marks.size(); i += stride) {
            const TChartRect before = MarkRect(edge, marks[i - stride]).Widened(gap);
            if (before.Intersects(MarkRect(edge, marks[i]))) {
                ++stride;
                i = 0;
            }
        }
        return stride;
    }

    void PlaceAxis(TLabelKind kind, const TChartEdge &edge, const TMarks &marks,
                   const std::string &title, bool withTitle) {
        if (edge.length < line_)
            return;
        axes_.push_back({At(edge, 0), At(edge, 1)});
        const std::size_t stride = Stride(edge, marks);
        double reach = 0;
        for (std::size_t i = 0; i < marks.size(); i += stride) {
            const TChartRect rect = MarkRect(edge, marks[i]);
            const TScreenPoint at = At(edge, marks[i].part);
            axes_.push_back({at, Moved(at, edge.outward, tickLength * line_)});
            reach = std::max(reach, std::abs(edge.outward.x) * rect.width +
                                        std::abs(edge.outward.y) * rect.height);
            if (!marks[i].text.empty() && IsFree(rect))
                labels_.push_back({kind, marks[i].text, rect});
        }
        if (withTitle && !title.empty())
            PlaceAxisTitle(kind, edge, title, (tickLength + tickGap + titleGap) * line_ + reach);
    }

    /// In the middle of the axis, or else where it is free.
    void PlaceAxisTitle(TLabelKind labels, const TChartEdge &edge, const std::string &title,
                        double gap) {
        const bool upright = labels == TLabelKind::Left;
        const double along = sizes_.Width(title);
        const TSize size = upright ? TSize{line_, along} : TSize{along, line_};
        std::vector<TChartRect> choices;
        for (const double part : {0.5, 0.4, 0.6, 0.3, 0.7, 0.2, 0.8, 0.0, 1.0})
            choices.push_back(Beside(edge, At(edge, part), size, gap));
        if (labels == TLabelKind::Depth)
            choices.push_back(BesideBox(edge, size));
        const auto free = std::find_if(choices.begin(), choices.end(),
                                       [this](const TChartRect &rect) { return IsFree(rect); });
        if (free == choices.end())
            return;
        const TLabelKind kind = upright                        ? TLabelKind::LeftTitle
                                : labels == TLabelKind::Bottom ? TLabelKind::BottomTitle
                                                               : TLabelKind::DepthTitle;
        labels_.push_back({kind, title, *free, upright});
    }

    /// A rectangle to the right of the whole box, or to its left, above the outer end of an edge.
    TChartRect BesideBox(const TChartEdge &edge, const TSize &size) const {
        const bool right = edge.outward.x > 0;
        double side = At(edge, 0).x;
        for (int corner = 0; corner < 8; ++corner) {
            const double x =
                projection_
                    ->Map({static_cast<double>(corner & 1), static_cast<double>(corner >> 1 & 1),
                           static_cast<double>(corner >> 2)})
                    .x;
            side = right ? std::max(side, x) : std::min(side, x);
        }
        const TScreenPoint ends[2] = {At(edge, 0), At(edge, 1)};
        const TScreenPoint outer = (ends[0].x < ends[1].x) == right ? ends[1] : ends[0];
        const double gap = besideGap * line_;
        return {right ? side + gap : side - gap - size.width, outer.y - size.height, size.width,
                size.height};
    }

    const TChartContents &contents_;
    const TChartRect &place_;
    const ITextSizes &sizes_;
    const double line_;
    const TChartRect room_;
    const TChartProjection *projection_ = nullptr;
    std::vector<TChartLabel> labels_;
    std::vector<TChartLine> axes_;
};
} // namespace

bool TChartRect::Contains(const TChartRect &other) const {
    return other.width > 0 && other.height > 0 && other.left >= left && other.top >= top &&
           other.Right() <= Right() && other.Bottom() <= Bottom();
}

bool TChartRect::Intersects(const TChartRect &other) const {
    return width > 0 && height > 0 && other.width > 0 && other.height > 0 && left < other.Right() &&
           other.left < Right() && top < other.Bottom() && other.top < Bottom();
}

TChartLayout LayOut(const TChartContents &contents, const TChartRect &place,
                    const ITextSizes &sizes) {
    return TLayouter(contents, place, sizes).Run();
}
