#include "maps/AreaChart.h"

#include <algorithm>
#include <array>

#include <QPainter>
#include <QVariantMap>

namespace {
constexpr std::array<TColor, 12> seriesColors{
    0x0000FF, 0x008000, 0x00FFFF, 0xFF0000, 0xFFFFFF, 0x808080, // red to grey
    0xFF00FF, 0x808000, 0x800000, 0x000080, 0x00FF00, 0x008080, // fuchsia to olive
};
} // namespace

TAreaChart::TAreaChart(QWidget *parent, const QString &name) : QWidget(parent) {
    setObjectName(name);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void TAreaChart::SetTitles(const QString &title, const QString &leftAxisTitle) {
    title_ = title;
    leftAxisTitle_ = leftAxisTitle;
    setAccessibleName(title);
    update();
}

void TAreaChart::TurnBy(int degrees) {
    rotation_ += degrees;
    update();
}

void TAreaChart::TiltBy(int degrees) {
    elevation_ += degrees;
    update();
}

void TAreaChart::ZoomBy(int percent) {
    zoom_ += percent;
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

void TAreaChart::HideForGood() {
    hiddenForGood_ = true;
    SetVisible(false);
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

void TAreaChart::SetVisible(bool visible) {
    visible_ = visible && !hiddenForGood_;
    setVisible(visible_);
}

int TAreaChart::SeriesCount() const {
    return static_cast<int>(series_.size());
}

void TAreaChart::RecreateSeries(int count) {
    series_.assign(static_cast<std::size_t>(std::max(count, 0)), {});
    update();
}

void TAreaChart::ClearSeries(int series) {
    if (TChartSeries *found = SeriesAt(series))
        found->points.clear();
    update();
}

void TAreaChart::SetSeriesTitle(int series, const std::string &title) {
    if (TChartSeries *found = SeriesAt(series))
        found->title = QString::fromStdString(title);
}

void TAreaChart::AddPoint(int series, double x, double value, const std::string &label,
                          TColor color) {
    if (TChartSeries *found = SeriesAt(series))
        found->points.push_back({x, value, QString::fromStdString(label), color});
    update();
}

TChartSeries *TAreaChart::SeriesAt(int series) {
    if (series < 0 || series >= SeriesCount())
        return nullptr;
    return &series_[static_cast<std::size_t>(series)];
}

void TAreaChart::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    const QRect inside = rect().adjusted(8, 6, -8, -6);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(inside, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, title_);
    painter.drawText(inside, Qt::AlignLeft | Qt::AlignBottom, tr("RPM"));
    painter.drawText(inside, Qt::AlignLeft | Qt::AlignVCenter, leftAxisTitle_);
}
