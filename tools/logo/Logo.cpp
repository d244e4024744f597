#include "logo/Logo.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <QRadialGradient>

namespace {
constexpr QSizeF drawnSize(490, 150); ///< all coordinates below are in this space

// --- the map ---

constexpr int columns = 22; ///< engine speed, drawn to the lower right
constexpr int rows = 16;    ///< load, drawn to the lower left

/// Height 0..1 of the surface at u (speed) and v (load), each 0..1: a ridge of advance that rises
/// with speed, falls with load and dips at idle.
double Height(double u, double v) {
    const auto bump = [](double x, double centre, double width) {
        return std::exp(-(x - centre) * (x - centre) / (2 * width * width));
    };
    const double slope = 0.10 + 0.30 * u * (1 - 0.7 * v);
    const double ridge = 0.62 * bump(u, 0.62, 0.20) * bump(v, 0.30, 0.24);
    const double shoulder = 0.26 * bump(u, 0.90, 0.13) * bump(v, 0.80, 0.20);
    const double idleDip = 0.10 * bump(u, 0.06, 0.10) * bump(v, 0.45, 0.30);
    return slope + ridge + shoulder - idleDip;
}

/// Oblique parallel projection of a point of the surface.
QPointF Project(double u, double v, double height) {
    constexpr QPointF back(352, 64);
    constexpr QPointF alongU(118, 33);
    constexpr QPointF alongV(-92, 40);
    return back + u * alongU + v * alongV - QPointF(0, 80 * height);
}

/// The colour of iron at heat 0..1, from dark to yellow-white.
QColor IronColour(double heat) {
    static constexpr std::array<QRgb, 7> colours = {0xff3a1210, 0xff6d1a12, 0xffa52a10, 0xffd64c10,
                                                    0xfff07f1c, 0xfffcb945, 0xfffff0c2};
    const double place = std::clamp(heat, 0.0, 1.0) * (colours.size() - 1);
    const auto index = std::min(static_cast<std::size_t>(place), colours.size() - 2);
    const double share = place - static_cast<double>(index);
    const QColor low(colours[index]);
    const QColor high(colours[index + 1]);
    const auto mix = [share](int a, int b) {
        return static_cast<int>(std::lround(a + share * (b - a)));
    };
    return QColor(mix(low.red(), high.red()), mix(low.green(), high.green()),
                  mix(low.blue(), high.blue()));
}

/// Light from the left: 1 on a level cell, more on slopes that face it.
double Light(double u, double v) {
    constexpr double step = 0.02;
    const double fall = (Height(u + step, v) - Height(u, v)) / step;
    return std::clamp(1.0 + 0.16 * fall, 0.84, 1.2);
}

QColor Lit(const QColor &colour, double light) {
    return light >= 1 ? colour.lighter(static_cast<int>(light * 100))
                      : colour.darker(static_cast<int>(100 / light));
}

/// One cell of the surface; cells are drawn from the back to the front.
void DrawCell(QPainter &painter, int column, int row) {
    const auto corner = [](int c, int r) {
        const double u = double(c) / columns;
        const double v = double(r) / rows;
        return Project(u, v, Height(u, v));
    };
    const QPolygonF cell({corner(column, row), corner(column + 1, row), corner(column + 1, row + 1),
                          corner(column, row + 1)});
    const double u = (column + 0.5) / columns;
    const double v = (row + 0.5) / rows;
    const QColor colour = Lit(IronColour(0.04 + 1.12 * Height(u, v)), Light(u, v));
    painter.setBrush(colour);
    painter.setPen(QPen(colour.darker(135), 0.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolygon(cell);
}

/// The cut faces at the front, from the surface down to the floor.
void DrawWall(QPainter &painter, bool alongU) {
    const int steps = alongU ? columns : rows;
    QPolygonF wall;
    for (int i = 0; i <= steps; ++i) {
        const double u = alongU ? double(i) / steps : 1.0;
        const double v = alongU ? 1.0 : double(i) / steps;
        wall << Project(u, v, Height(u, v));
    }
    wall << Project(1, 1, 0);
    wall << (alongU ? Project(0, 1, 0) : Project(1, 0, 0));
    QLinearGradient depth(0, wall.boundingRect().top(), 0, wall.boundingRect().bottom());
    depth.setColorAt(0, alongU ? QColor(0x7a, 0x22, 0x12) : QColor(0x5a, 0x18, 0x10));
    depth.setColorAt(1, QColor(0x1c, 0x0d, 0x0c));
    painter.setPen(Qt::NoPen);
    painter.setBrush(depth);
    painter.drawPolygon(wall);
}

void DrawMap(QPainter &painter) {
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column)
            DrawCell(painter, column, row);
    }
    DrawWall(painter, true);
    DrawWall(painter, false);
}

/// The two walls behind the map with their level lines, as a chart has them.
void DrawBackWalls(QPainter &painter) {
    for (int level = 0; level <= 4; ++level) {
        const double height = 0.18 * level;
        QPen pen(QColor(255, 190, 130, level == 0 ? 70 : 34), 0.8);
        painter.setPen(pen);
        painter.drawPolyline(
            QPolygonF({Project(0, 1, height), Project(0, 0, height), Project(1, 0, height)}));
    }
    for (int i = 0; i <= 4; ++i) {
        painter.drawLine(Project(i / 4.0, 0, 0), Project(i / 4.0, 0, 0.72));
        painter.drawLine(Project(0, i / 4.0, 0), Project(0, i / 4.0, 0.72));
    }
}

// --- the name ---

constexpr double xHeight = 22;
constexpr double capHeight = 32;
constexpr double letterGap = 10.5;

/// Adds the letters' centre lines one after the other, from `pen` on to the right.
class TLettering {
public:
    explicit TLettering(QPointF pen) : pen_(pen) {}
    QPainterPath Word() {
        F(), E(), R(), R(), O(), L(), Y(), N();
        return path_;
    }

private:
    void Line(std::initializer_list<QPointF> points) {
        path_.moveTo(pen_ + *points.begin());
        std::for_each(points.begin() + 1, points.end(),
                      [this](QPointF point) { path_.lineTo(pen_ + point); });
    }
    /// An arc in a box of this width standing on the base line; angles counter-clockwise from the
    /// right.
    void Arc(double width, double start, double sweep) {
        const QRectF box(pen_ + QPointF(0, -xHeight), QSizeF(width, xHeight));
        path_.arcMoveTo(box, start);
        path_.arcTo(box, start, sweep);
    }
    void Advance(double width) { pen_.rx() += width + letterGap; }

    void F() {
        Line({{0, 0}, {0, -capHeight}, {18, -capHeight}});
        Line({{0, -16.5}, {14, -16.5}});
        Advance(16);
    }
    void E() {
        Line({{0, -11}, {22, -11}});
        Arc(22, 0, 315);
        Advance(22);
    }
    void R() {
        Line({{0, 0}, {0, -xHeight}});
        Arc(20, 180, -112);
        Advance(12);
    }
    void O() {
        Arc(22, 0, 360);
        Advance(22);
    }
    void L() {
        Line({{0, 0}, {0, -capHeight - 1}});
        Advance(-1.5);
    }
    void Y() {
        Line({{0, -xHeight}, {10, 0}});
        Line({{20, -xHeight}, {6.2, 9}});
        Advance(20);
    }
    void N() {
        Line({{0, 0}, {0, -xHeight}});
        Arc(20, 180, -180);
        path_.lineTo(pen_ + QPointF(20, 0));
        Advance(20);
    }

    QPointF pen_;
    QPainterPath path_;
};

/// The outline of the word's strokes, as one area without seams.
QPainterPath Stroked(const QPainterPath &word, double width) {
    QPainterPathStroker stroker(QPen(Qt::black, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    stroker.setCurveThreshold(0.02);
    return stroker.createStroke(word).simplified();
}

void DrawName(QPainter &painter) {
    const QPainterPath word = TLettering(QPointF(26, 76)).Word();
    for (const double width : {18.0, 16.0, 14.0, 12.0, 10.0, 8.0}) // a glow out of thin layers
        painter.fillPath(Stroked(word, width), QColor(255, 110, 30, 8));
    QLinearGradient metal(0, 42, 0, 86);
    metal.setColorAt(0.0, QColor(0xff, 0xff, 0xff));
    metal.setColorAt(0.55, QColor(0xfd, 0xe9, 0xd2));
    metal.setColorAt(1.0, QColor(0xf5, 0xa3, 0x4e));
    painter.fillPath(Stroked(word, 4.4), metal);
}

/// An axis with ticks below the name, fading out towards the map.
void DrawAxis(QPainter &painter) {
    QLinearGradient fade(24, 0, 262, 0);
    fade.setColorAt(0, QColor(0xf0, 0x7f, 0x1c));
    fade.setColorAt(1, QColor(0xf0, 0x7f, 0x1c, 0));
    painter.setPen(QPen(fade, 1.4, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(QPointF(24, 101), QPointF(262, 101));
    for (int tick = 0; tick <= 24; ++tick) {
        const double x = 24.7 + 9.6 * tick;
        painter.drawLine(QPointF(x, 101), QPointF(x, tick % 4 == 0 ? 108 : 104.5));
    }
}

void DrawBackground(QPainter &painter) {
    const QRectF whole(QPointF(0, 0), drawnSize);
    QLinearGradient panel(whole.topLeft(), whole.bottomLeft());
    panel.setColorAt(0, QColor(0x2b, 0x27, 0x27));
    panel.setColorAt(1, QColor(0x12, 0x10, 0x11));
    painter.fillRect(whole, panel);
    QRadialGradient ember(QPointF(368, 96), 210);
    ember.setColorAt(0, QColor(0xc8, 0x48, 0x10, 120));
    ember.setColorAt(0.5, QColor(0x70, 0x22, 0x0c, 60));
    ember.setColorAt(1, QColor(0x40, 0x12, 0x08, 0));
    painter.fillRect(whole, ember);
}
} // namespace

QImage DrawLogo(int scale) {
    QImage picture(logoSize * scale, QImage::Format_RGB32);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(picture.width() / drawnSize.width(), picture.height() / drawnSize.height());
    DrawBackground(painter);
    DrawBackWalls(painter);
    DrawMap(painter);
    DrawName(painter);
    DrawAxis(painter);
    return picture;
}
