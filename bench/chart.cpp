// Measures a frame of the chart beside filling the same polygons directly, and how long a frame
// takes while the chart is being dragged. Prints a table with the limits, marks what is over and
// ends with 1 when something is.
//   ferrolyn_bench_chart
// Figures of a release build on a quiet machine are the ones to go by.

#include "Measure.h"
#include "forms/AligridColors.h"
#include "maps/AreaChart.h"
#include "maps/ChartData.h"
#include "maps/ChartPainter.h"
#include "maps/ChartWalls.h"

#include <cmath>
#include <string>
#include <vector>

#include <QApplication>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>

namespace {
constexpr int rounds = 101;
constexpr double ratioLimit = 2;
constexpr double dragLimit = 16; // milliseconds
constexpr QSize frameSize(1000, 700);

/// A hilly map whose points all have colours of their own.
double ValueOf(int load, int rpm) {
    return 100 + 40 * std::sin(rpm * 0.4) + 5 * load + 10 * std::cos(load * 1.1 + rpm * 0.7);
}

void Fill(TAreaChart &chart, int loads, int rpms) {
    chart.SetTitles("Partial Throttle /\\ Trim Map", "/\\ Trim");
    chart.SetDepthTitle("% Load");
    chart.SetBottomInverted(true);
    chart.RecreateSeries(loads);
    for (int load = 0; load < loads; ++load) {
        chart.SetSeriesLoad(load, QString::number(5 * load) + "%");
        for (int rpm = 0; rpm < rpms; ++rpm) {
            const double value = ValueOf(load, rpm);
            const int speed = 500 + 250 * rpm;
            chart.AddPoint(
                load, {double(speed), value, QString::number(speed), ChartValueOf(value).color});
        }
    }
}

struct TFilledPolygon {
    QPolygonF corners;
    QColor color;
};

/// The faces of such a chart in the initial view, ready to be filled.
std::vector<TFilledPolygon> PolygonsOf(int loads, int rpms) {
    std::vector<TWall> walls(static_cast<std::size_t>(loads));
    for (int load = 0; load < loads; ++load)
        for (int rpm = 0; rpm < rpms; ++rpm) {
            const double value = ValueOf(load, rpm);
            walls[static_cast<std::size_t>(load)].points.push_back(ChartValueOf(value));
        }
    const TChartProjection projection(TChartView(), 1, {50, 30, 900, 600});
    std::vector<TFilledPolygon> polygons;
    for (const TChartFace &face : FacesOf(walls, {ScaleOf(walls, 10), true}, projection)) {
        TFilledPolygon polygon{{}, PaintedColor(face.color, QPalette())};
        for (std::size_t i = 0; i < face.count; ++i)
            polygon.corners << OnScreen(face.corners[i]);
        polygons.push_back(polygon);
    }
    return polygons;
}

void FillDirectly(QImage &image, const std::vector<TFilledPolygon> &polygons) {
    QPainter painter(&image);
    painter.fillRect(image.rect(), Qt::white);
    painter.setPen(Qt::NoPen);
    for (const TFilledPolygon &polygon : polygons) {
        painter.setBrush(polygon.color);
        painter.drawConvexPolygon(polygon.corners);
    }
}

QImage Frame() {
    return {frameSize, QImage::Format_ARGB32_Premultiplied};
}

void MeasureFrame(TTable &table, int loads, int rpms) {
    TAreaChart chart(nullptr, "chart");
    Fill(chart, loads, rpms);
    const std::vector<TFilledPolygon> polygons = PolygonsOf(loads, rpms);
    QImage image = Frame();
    const auto ours = [&] {
        QPainter painter(&image);
        chart.Paint(painter, image.rect());
    };
    const auto plain = [&] { FillDirectly(image, polygons); };
    const std::string what = "chart of " + std::to_string(loads) + " x " + std::to_string(rpms) +
                             " / " + std::to_string(polygons.size()) + " polygons, ms";
    table.Ratio(what,
                Measure(
                    rounds, [&] { return Time(ours); }, [&] { return Time(plain); }),
                ratioLimit);
}

void Send(QWidget &widget, QEvent::Type type, const QPoint &at) {
    QMouseEvent event(type, at, widget.mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, {});
    QApplication::sendEvent(&widget, &event);
}

void MeasureDragging(TTable &table, int loads, int rpms) {
    TAreaChart chart(nullptr, "chart");
    Fill(chart, loads, rpms);
    chart.resize(frameSize);
    QImage image = Frame();
    std::vector<double> times;
    QPoint at(500, 350);
    Send(chart, QEvent::MouseButtonPress, at);
    for (int i = 0; i < rounds; ++i) {
        at += QPoint(6, i % 2 == 0 ? 4 : -4);
        times.push_back(Time([&] {
            Send(chart, QEvent::MouseMove, at);
            chart.render(&image);
        }));
    }
    Send(chart, QEvent::MouseButtonRelease, at);
    const std::string what =
        "frame of " + std::to_string(loads) + " x " + std::to_string(rpms) + " while dragged, ms";
    table.Difference(what, {Median(times), 0}, dragLimit);
}
} // namespace

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    TTable table;
    for (const auto &[loads, rpms] : {std::pair(12, 16), std::pair(20, 31)}) {
        MeasureFrame(table, loads, rpms);
        MeasureDragging(table, loads, rpms);
    }
    return table.AnyOver() ? 1 : 0;
}
