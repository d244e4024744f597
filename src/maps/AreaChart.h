// The chart of one map: its series, points, titles and view, drawn as walls in depth. Dragging with
// the left button turns and tilts it, the wheel zooms while it has the focus, a double click brings
// the first view back. How it is drawn is ChartLayout.h, ChartDrawing.h and
// ChartPainter.h; how maps fill it, MapChart.h.
#pragma once

#include "maps/ChartLayout.h"
#include "maps/ChartProjection.h"
#include "model/MapViews.h"

#include <optional>
#include <vector>

#include <QString>
#include <QVariantList>
#include <QWidget>

struct TChartPoint {
    double x; ///< RPM; the points are drawn at equal steps in their order, as their grid's columns
    double value;  ///< height
    QString label; ///< text on the RPM axis
    TColor color;  ///< exact 32-bit colour
};

struct TChartSeries {
    QString title; ///< drawn nowhere
    QString load;  ///< text on the load axis
    std::vector<TChartPoint> points;
    TColor color = clRed; ///< of the legend and of nothing else: points have colours of their own
    bool stairs = false;  ///< drawn in steps instead of slopes
};

class TAreaChart : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString title READ Title)
    Q_PROPERTY(QString leftAxisTitle READ LeftAxisTitle)
    Q_PROPERTY(QString depthTitle READ DepthTitle)
    Q_PROPERTY(bool bottomInverted READ BottomInverted)
    Q_PROPERTY(int rotation READ Rotation)
    Q_PROPERTY(int elevation READ Elevation)
    Q_PROPERTY(int zoom READ Zoom)
    Q_PROPERTY(QVariantList series READ SeriesProperty)
public:
    TAreaChart(QWidget *parent, const QString &name);

    /// The view: degrees about the vertical axis, degrees about the horizontal axis, percent. Plain
    /// numbers without bounds, which wrap round at the ends of 32 bits; the drawing reduces the
    /// angles and takes at least 1 percent.
    int Rotation() const { return view_.rotation; }
    int Elevation() const { return view_.elevation; }
    int Zoom() const { return view_.zoom; }
    void TurnBy(int degrees);
    void TiltBy(int degrees);
    void ZoomBy(int percent);
    /// Turns, tilts and zooms to where a new chart begins.
    void ShowFirstView();

    /// Title of the load axis, which runs away from the viewer.
    void SetDepthTitle(const QString &title);
    const QString &DepthTitle() const { return depthTitle_; }
    /// Whether the first RPM stands at the right.
    void SetBottomInverted(bool inverted);
    bool BottomInverted() const { return bottomInverted_; }

    /// Gives the chart the `count` (1 to 12) series that it has before any map is shown: without
    /// points, in the colours red, green, yellow, blue, white, grey, fuchsia, teal, navy, maroon,
    /// lime, olive; of twelve the first is titled "10%" and the last drawn as stairs.
    void StartWithSeries(int count);

    /// Whether Tab stops at the chart and the arrow keys turn and tilt it, "+" and "-" zoom and
    /// Home brings the first view back; false until set. A click gives it the focus all the same,
    /// for the wheel.
    void TakeKeys(bool take);

    /// Title above the drawing and title of the left axis.
    void SetTitles(const QString &title, const QString &leftAxisTitle);
    const QString &Title() const { return title_; }
    const QString &LeftAxisTitle() const { return leftAxisTitle_; }

    /// Series as they stand, the first one farthest from the viewer.
    const std::vector<TChartSeries> &Series() const { return series_; }

    /// For tools: per series a map of "title" and "points", each point a map of "value", "label"
    /// and "color".
    QVariantList SeriesProperty() const;

    /// Paints the chart into `rect` as lines, polygons and texts: on paper it stays sharp. Sizes
    /// follow the widget's font on the painter's device; colours are those of the widget's palette.
    void Paint(QPainter &painter, const QRectF &rect) const;

    /// What is drawn.
    TChartContents Contents() const;

    int SeriesCount() const { return static_cast<int>(series_.size()); }
    /// Removes all series and creates `count` empty ones.
    void RecreateSeries(int count);
    // A call for a series that does not exist is ignored.
    /// Removes its points.
    void ClearSeries(int series);
    void SetSeriesTitle(int series, const QString &title);
    void SetSeriesLoad(int series, const QString &load);
    void AddPoint(int series, const TChartPoint &point);

    /// Room for the controls in its corner, too.
    QSize minimumSizeHint() const override;
    QSize sizeHint() const override { return {320, 160}; }

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    TChartSeries *SeriesAt(int series);
    void SeriesChanged();
    void Describe();
    /// What the controls in its corner leave to the drawing.
    QRect FreeRect() const;

    QString title_;
    QString leftAxisTitle_;
    QString depthTitle_;
    bool bottomInverted_ = false;
    TChartView view_;
    std::optional<QPoint> dragged_; ///< where the mouse was last while the chart is being dragged
    int wheelRest_ = 0;             ///< eighths of a degree that made no step yet
    bool takesKeys_ = false;
    bool describeSoon_ = false; ///< the accessible description is out of date
    std::vector<TChartSeries> series_;
};
