#include "maps/AreaChart.h"

#include "forms/Access.h"
#include "forms/Hint.h"
#include "maps/ChartPainter.h"
#include "maps/ChartWalls.h"
#include "model/Numbers.h"

#include <algorithm>
#include <array>
#include <utility>

#include <QKeyEvent>
#include <QLayout>
#include <QMouseEvent>
#include <QPainter>
#include <QVariantMap>
#include <QWheelEvent>

namespace {
constexpr std::array<TColor, 12> seriesColors{
    0x0000FF, 0x008000, 0x00FFFF, 0xFF0000, 0xFFFFFF, 0x808080, // red to grey
    0xFF00FF, 0x808000, 0x800000, 0x000080, 0x00FF00, 0x008080, // fuchsia to olive
};

constexpr int pixelsPerDegree = 2;
constexpr int wheelStep = 120; // eighths of a degree, one notch of a plain wheel
constexpr int focusFrame = 3;  // pixels, half of them inside the widget
constexpr QSize smallest(110, 80);
} // namespace

TAreaChart::TAreaChart(QWidget *parent, const QString &name) : QWidget(parent) {
    SetHint(this, tr("Drag it to turn it; a double-click brings the first view back"));
    setObjectName(name);
    TakeKeys(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setLayoutDirection(Qt::LeftToRight); // numbers rise to the right in every language
    SetRole(*this, QAccessible::Chart);
    SeriesChanged();
}

void TAreaChart::SetTitles(const QString &title, const QString &leftAxisTitle) {
    title_ = title;
    leftAxisTitle_ = leftAxisTitle;
    setAccessibleName(title);
    update();
}

void TAreaChart::TurnBy(int degrees) {
    view_.rotation = WrappingSum(view_.rotation, degrees);
    update();
}

void TAreaChart::TiltBy(int degrees) {
    view_.elevation = WrappingSum(view_.elevation, degrees);
    update();
}

void TAreaChart::ZoomBy(int percent) {
    view_.zoom = WrappingSum(view_.zoom, percent);
    update();
}

void TAreaChart::ShowFirstView() {
    view_ = {};
    update();
}

void TAreaChart::SetDepthTitle(const QString &title) {
    depthTitle_ = title;
    update();
}

void TAreaChart::SetBottomInverted(bool inverted) {
    bottomInverted_ = inverted;
    update();
}

void TAreaChart::StartWithSeries(int count) {
    RecreateSeries(std::clamp(count, 1, static_cast<int>(seriesColors.size())));
    for (std::size_t i = 0; i < series_.size(); ++i)
        series_[i].color = seriesColors[i];
    if (series_.size() == seriesColors.size()) {
        series_.front().title = "10%";
        series_.back().stairs = true;
    }
}

void TAreaChart::TakeKeys(bool take) {
    takesKeys_ = take;
    setFocusPolicy(take ? Qt::StrongFocus : Qt::ClickFocus);
}

QVariantList TAreaChart::SeriesProperty() const {
    QVariantList result;
    for (const TChartSeries &series : series_) {
        QVariantList points;
        for (const TChartPoint &point : series.points)
            points << QVariantMap{
                {"value", point.value}, {"label", point.label}, {"color", point.color}};
        result << QVariantMap{{"title", series.title}, {"points", points}};
    }
    return result;
}

void TAreaChart::RecreateSeries(int count) {
    series_.assign(static_cast<std::size_t>(std::max(count, 0)), {});
    SeriesChanged();
}

void TAreaChart::ClearSeries(int series) {
    if (TChartSeries *found = SeriesAt(series))
        found->points.clear();
    SeriesChanged();
}

void TAreaChart::SetSeriesTitle(int series, const QString &title) {
    if (TChartSeries *found = SeriesAt(series))
        found->title = title;
}

void TAreaChart::SetSeriesLoad(int series, const QString &load) {
    if (TChartSeries *found = SeriesAt(series))
        found->load = load;
    update();
}

void TAreaChart::AddPoint(int series, const TChartPoint &point) {
    if (TChartSeries *found = SeriesAt(series))
        found->points.push_back(point);
    SeriesChanged();
}

void TAreaChart::SeriesChanged() {
    update();
    // Series come point by point: they are described once, when all of them are there.
    if (!std::exchange(describeSoon_, true))
        QMetaObject::invokeMethod(this, &TAreaChart::Describe, Qt::QueuedConnection);
}

TChartSeries *TAreaChart::SeriesAt(int series) {
    if (series < 0 || series >= SeriesCount())
        return nullptr;
    return &series_[static_cast<std::size_t>(series)];
}

TChartContents TAreaChart::Contents() const {
    TChartContents contents{{},
                            title_.toStdString(),
                            tr("RPM").toStdString(),
                            depthTitle_.toStdString(),
                            leftAxisTitle_.toStdString(),
                            {},
                            {},
                            bottomInverted_,
                            view_};
    for (const TChartSeries &series : series_) {
        TWall wall{{}, series.stairs};
        for (const TChartPoint &point : series.points)
            wall.points.push_back({point.value, point.color});
        contents.walls.push_back(std::move(wall));
        contents.depthLabels.push_back(series.load.toStdString());
        // The longest series labels the axis.
        for (std::size_t i = contents.bottomLabels.size(); i < series.points.size(); ++i)
            contents.bottomLabels.push_back(series.points[i].label.toStdString());
    }
    return contents;
}

void TAreaChart::Describe() {
    describeSoon_ = false;
    const std::vector<TWall> walls = Contents().walls;
    const QString shape =
        tr("%1 series of up to %2 points").arg(SeriesCount()).arg(PlaceCount(walls));
    const std::optional<TRange> range = RangeOf(walls);
    setAccessibleDescription(
        range ? tr("%1, values from %2 to %3").arg(shape).arg(range->lowest).arg(range->highest)
              : shape);
}

void TAreaChart::Paint(QPainter &painter, const QRectF &rect) const {
    PaintChart(painter, Contents(), {rect, font(), painter.device()}, palette());
}

QSize TAreaChart::minimumSizeHint() const {
    return layout() ? smallest.expandedTo(layout()->minimumSize()) : smallest;
}

QRect TAreaChart::FreeRect() const {
    QRect taken;
    for (const auto *control : findChildren<QWidget *>(Qt::FindDirectChildrenOnly))
        if (control->isVisibleTo(this))
            taken |= control->geometry();
    if (taken.isEmpty())
        return rect();
    const QRect beside = rect().adjusted(0, 0, taken.left() - width(), 0);
    const QRect above = rect().adjusted(0, 0, 0, taken.top() - height());
    const auto area = [](const QRect &part) { return part.width() * part.height(); };
    return area(beside) > area(above) ? beside : above;
}

void TAreaChart::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base)); // behind the controls too
    PaintChart(painter, Contents(), {FreeRect(), font(), this}, palette());
    painter.setPen(hasFocus() ? QPen(palette().color(QPalette::Highlight), focusFrame)
                              : QPen(palette().color(QPalette::Mid)));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void TAreaChart::keyPressEvent(QKeyEvent *event) {
    if (!takesKeys_)
        return QWidget::keyPressEvent(event);
    switch (event->key()) {
    case Qt::Key_Left:
        return TurnBy(turnStep);
    case Qt::Key_Right:
        return TurnBy(-turnStep);
    case Qt::Key_Up:
        return TiltBy(-turnStep);
    case Qt::Key_Down:
        return TiltBy(turnStep);
    case Qt::Key_Plus:
        return ZoomBy(zoomStep);
    case Qt::Key_Minus:
        return ZoomBy(-zoomStep);
    case Qt::Key_Home:
        return ShowFirstView();
    default:
        QWidget::keyPressEvent(event);
    }
}

void TAreaChart::mousePressEvent(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    dragged_ = event->position().toPoint();
    setCursor(Qt::ClosedHandCursor);
}

void TAreaChart::mouseMoveEvent(QMouseEvent *event) {
    if (!dragged_ || !(event->buttons() & Qt::LeftButton))
        return;
    // What makes no whole degree yet counts with the next move.
    const QPoint moved = event->position().toPoint() - *dragged_;
    const QPoint degrees(moved.x() / pixelsPerDegree, moved.y() / pixelsPerDegree);
    if (degrees.isNull())
        return;
    *dragged_ += degrees * pixelsPerDegree;
    TurnBy(degrees.x());
    TiltBy(-degrees.y());
}

void TAreaChart::mouseReleaseEvent(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    dragged_.reset();
    unsetCursor();
}

void TAreaChart::mouseDoubleClickEvent(QMouseEvent *event) {
    if (event->button() == Qt::LeftButton)
        ShowFirstView();
    else
        event->ignore();
}

void TAreaChart::wheelEvent(QWheelEvent *event) {
    if (!hasFocus()) { // whoever scrolls past the chart does not mean it
        event->ignore();
        return;
    }
    wheelRest_ += event->angleDelta().y();
    const int steps = wheelRest_ / wheelStep;
    wheelRest_ -= steps * wheelStep;
    if (steps != 0) {
        // Never further than the drawing goes: the way back would seem dead.
        view_.zoom = DrawnZoom(DrawnZoom(view_.zoom) + steps * zoomStep);
        update();
    }
    event->accept();
}
