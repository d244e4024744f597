// The chart of one map: its series, points, titles and view. Only data and layout are kept here as
// yet; the widget paints its title and axis titles on an empty wall.
#pragma once

#include "model/MapViews.h"

#include <vector>

#include <QString>
#include <QVariantList>
#include <QWidget>

struct TChartPoint {
    double x;      ///< place along the RPM axis
    double value;  ///< height
    QString label; ///< text on the RPM axis
    TColor color;  ///< exact 32-bit colour
};

struct TChartSeries {
    QString title;
    std::vector<TChartPoint> points;
};

class TAreaChart : public QWidget, public IMapChart {
    Q_OBJECT
    Q_PROPERTY(QString title READ Title)
    Q_PROPERTY(QString leftAxisTitle READ LeftAxisTitle)
    Q_PROPERTY(int rotation MEMBER rotation)
    Q_PROPERTY(int elevation MEMBER elevation)
    Q_PROPERTY(int zoom MEMBER zoom)
    Q_PROPERTY(QVariantList series READ SeriesProperty)
public:
    TAreaChart(QWidget *parent, const QString &name);

    int rotation = 340;  ///< degrees about the vertical axis
    int elevation = 351; ///< degrees about the horizontal axis
    int zoom = 56;       ///< percent

    /// Title above the drawing and title of the left axis.
    void SetTitles(const QString &title, const QString &leftAxisTitle);
    const QString &Title() const { return title_; }
    const QString &LeftAxisTitle() const { return leftAxisTitle_; }

    /// Series as they stand, the first one farthest from the viewer.
    const std::vector<TChartSeries> &Series() const { return series_; }

    /// For tools: per series a map of "title" and "points", each point a map of "value", "label"
    /// and "color".
    QVariantList SeriesProperty() const;

    // A call for a series that does not exist is ignored.
    bool Visible() const override { return visible_; }
    void SetVisible(bool visible) override;
    int SeriesCount() const override;
    void RecreateSeries(int count) override;
    void ClearSeries(int series) override;
    void SetSeriesTitle(int series, const std::string &title) override;
    void AddPoint(int series, double x, double value, const std::string &label,
                  TColor color) override;

    QSize minimumSizeHint() const override { return {110, 80}; }
    QSize sizeHint() const override { return {320, 160}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    TChartSeries *SeriesAt(int series);

    QString title_;
    QString leftAxisTitle_;
    bool visible_ = true;
    std::vector<TChartSeries> series_;
};
