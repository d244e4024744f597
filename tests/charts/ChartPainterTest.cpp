// The painted picture: exact colours, hidden lines, themes, whatever is asked of it without a
// complaint of the toolkit, vectors on paper.
#include "maps/ChartPainter.h"

#include "charts/BruteForce.h"
#include "charts/ChartContents.h"
#include "charts/RandomWalls.h"

#include <cfloat>
#include <climits>
#include <cmath>
#include <limits>
#include <set>

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QPdfWriter>
#include <gtest/gtest.h>

namespace {
QImage Painted(const TChartContents &contents, QSize size, const QPalette &palette = QPalette(),
               double pixelRatio = 1) {
    QImage image(size * pixelRatio, QImage::Format_RGB32);
    image.setDevicePixelRatio(pixelRatio);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    PaintChart(painter, contents, {QRectF({0, 0}, QSizeF(size)), QFont(), &image}, palette);
    return image;
}

QRgb PixelOf(TColor color) {
    return qRgb(int(color & 0xFF), int(color >> 8 & 0xFF), int(color >> 16 & 0xFF));
}

TChartContents Plain(std::vector<TWall> walls) {
    TChartContents contents;
    contents.walls = std::move(walls);
    contents.view.rotation = contents.view.elevation = 360;
    return contents;
}

/// The picture's colour at a place of the box.
QRgb ColorAt(const TChartContents &contents, const QImage &image, const TBoxPoint &place) {
    TChartPlace where;
    where.rect = QRectF(image.rect());
    const TScreenPoint at = LayOut(contents, where).projection.Map(place);
    return image.pixel(int(at.x), int(at.y));
}

TEST(ChartPainter, PointsHaveTheirExactColours) {
    const TChartContents contents = Plain({{{{2, 0x123456}, {8, 0x880064}, {4, clRed}}}});
    const QImage image = Painted(contents, {400, 300});
    EXPECT_EQ(ColorAt(contents, image, {0.1, 0.1, 0}), qRgb(0x56, 0x34, 0x12));
    EXPECT_EQ(ColorAt(contents, image, {0.4, 0.4, 0}), qRgb(0x64, 0x00, 0x88));
    EXPECT_EQ(ColorAt(contents, image, {0.6, 0.4, 0}), qRgb(0x64, 0x00, 0x88));
    EXPECT_EQ(ColorAt(contents, image, {0.9, 0.2, 0}), qRgb(0xFF, 0x00, 0x00));
}

TEST(ChartPainter, TopBytesMeanWhatTheyDoInTheGrids) {
    QPalette palette;
    palette.setColor(QPalette::Text, QColor(1, 2, 3));
    palette.setColor(QPalette::Button, QColor(4, 5, 6));
    const TChartContents contents = Plain({{{{2, clWindowText}, {8, clBtnFace}, {4, 0xFF445566}}}});
    const QImage image = Painted(contents, {400, 300}, palette);
    EXPECT_EQ(ColorAt(contents, image, {0.1, 0.1, 0}), qRgb(1, 2, 3));
    EXPECT_EQ(ColorAt(contents, image, {0.4, 0.4, 0}), qRgb(4, 5, 6));
    EXPECT_EQ(ColorAt(contents, image, {0.9, 0.2, 0}), qRgb(0x66, 0x55, 0x44));
}

TEST(ChartPainter, EveryColourOfAMapIsSeenFromAbove) {
    TChartContents contents = SampleContents(12, 16);
    TColor color = 0x880000;
    std::set<QRgb> wanted;
    for (TWall &wall : contents.walls)
        for (TChartValue &point : wall.points) {
            point.color = color += 0x000103;
            wanted.insert(PixelOf(color));
        }
    contents.view.elevation = 270;
    const QImage image = Painted(contents, {600, 500});
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            wanted.erase(image.pixel(x, y));
    EXPECT_TRUE(wanted.empty()) << wanted.size() << " colours are not seen";
}

/// What the ends of walls are painted in: seven tenths of the colour.
bool IsShadeOf(QRgb pixel, QRgb color) {
    const auto near = [](int a, int b) { return std::abs(a - b * 0.7) <= 1; };
    return near(qRed(pixel), qRed(color)) && near(qGreen(pixel), qGreen(color)) &&
           near(qBlue(pixel), qBlue(color));
}

TEST(ChartPainter, InsideOfEveryFaceIsItsColourAndNoHiddenLine) {
    TRandomCharts random(6);
    int compared = 0;
    for (int i = 0; i < 150; ++i) {
        TChartContents contents;
        contents.walls = random.Walls(4, 5);
        contents.view = random.View();
        contents.firstAtRight = i % 2 == 0;
        const QImage image = Painted(contents, {260, 200});
        TChartPlace place;
        place.rect = QRectF(image.rect());
        const TChartLayout layout = LayOut(contents, place);
        // As deep as wide from six walls on.
        const double depth = std::max(0.3, static_cast<double>(contents.walls.size()) / 6);
        TDepthBuffer buffer(image.width(), image.height());
        buffer.AddWalls(contents.walls, layout.scale, contents.firstAtRight, contents.view, depth,
                        layout.projection);
        int wrong = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) {
                if (!buffer.IsInside(x, y))
                    continue;
                ++compared;
                const QRgb expected = PixelOf(buffer.At(x, y).color);
                wrong += buffer.At(x, y).end ? !IsShadeOf(image.pixel(x, y), expected)
                                             : image.pixel(x, y) != expected;
            }
        EXPECT_EQ(wrong, 0) << "chart " << i << ", rotation " << contents.view.rotation
                            << ", elevation " << contents.view.elevation;
    }
    EXPECT_GT(compared, 300'000);
}

struct TOddCase {
    const char *name;
    TChartContents contents;
};

TChartContents Seen(TChartContents contents, int rotation, int elevation, int zoom) {
    contents.view = {rotation, elevation, zoom, -12, 7};
    return contents;
}

constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

std::vector<TOddCase> OddCharts() {
    const TChartContents sample = SampleContents(12, 16);
    TChartContents uneven = SampleContents(5, 7);
    uneven.walls[1].points.clear();
    uneven.walls[2].points.resize(1);
    uneven.walls[3].points.resize(2);
    uneven.walls[4].stairs = true;
    return {
        {"no series", SampleContents(0, 0)},
        {"series without points", SampleContents(12, 0)},
        {"one series", SampleContents(1, 16)},
        {"one point", SampleContents(1, 1)},
        {"one point each", SampleContents(12, 1)},
        {"two points", SampleContents(1, 2)},
        {"uneven", uneven},
        {"flat", Plain({{{{5, 1}, {5, 1}, {5, 1}}}, {{{5, 1}, {5, 1}}}})},
        {"flat at zero", Plain({{{{0, 1}, {0, 1}}}})},
        {"all unreadable", Plain({{{{-255, clRed}, {-255, clRed}}}})},
        {"huge", Plain({{{{DBL_MAX, 1}, {-DBL_MAX, 2}, {1e15, 3}}}})},
        {"tiny", Plain({{{{DBL_MIN, 1}, {DBL_MIN / 4, 2}}}})},
        {"no numbers", Plain({{{{noNumber, 1}, {infinity, 2}, {-infinity, 3}}}})},
        {"zoom 0", Seen(sample, 340, 351, 0)},
        {"zoom far below", Seen(sample, 340, 351, INT_MIN)},
        {"zoom far above", Seen(sample, 340, 351, INT_MAX)},
        {"large turns", Seen(sample, INT_MAX, INT_MIN, 56)},
        {"from above", Seen(sample, 360, 270, 56)},
        {"from the side", Seen(sample, 270, 360, 56)},
    };
}

TEST(ChartPainter, PaintsWhateverThereIsInAnySize) {
    // A warning of the toolkit fails the test.
    for (const TOddCase &odd : OddCharts())
        for (const QSize size : {QSize(1, 1), QSize(2, 90), QSize(220, 120), QSize(400, 300)}) {
            const QImage image = Painted(odd.contents, size);
            EXPECT_NE(image.pixel(0, 0), QColor(Qt::magenta).rgb())
                << odd.name << ": the background is painted";
        }
}

TEST(ChartPainter, RedOfAnUnreadablePointIsSeen) {
    const TChartContents contents = Plain({{{{80, 0x880050}, {-255, clRed}, {90, 0x88005A}}}});
    const QImage image = Painted(contents, {400, 300});
    EXPECT_EQ(ColorAt(contents, image, {0.6, 0.05, 0}), qRgb(255, 0, 0));
    EXPECT_GT(LayOut(contents, {QRectF(0, 0, 400, 300), QFont(), nullptr}).scale.lowest, 70);
}

TEST(ChartPainter, TakesTheThemesColours) {
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(20, 21, 22));
    dark.setColor(QPalette::Text, QColor(240, 241, 242));
    const QImage image = Painted(SampleContents(12, 16), {400, 300}, dark);
    EXPECT_EQ(image.pixel(1, 1), qRgb(20, 21, 22));
    int light = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            light += qGray(image.pixel(x, y)) > 200;
    EXPECT_GT(light, 200) << "the texts";
}

TEST(ChartPainter, LeavesThePainterAsItWas) {
    QImage image(300, 200, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setPen(QPen(Qt::green, 3));
    painter.setBrush(Qt::yellow);
    PaintChart(painter, SampleContents(3, 3), {QRectF(50, 50, 100, 80), QFont(), &image},
               QPalette());
    EXPECT_EQ(painter.pen(), QPen(Qt::green, 3));
    EXPECT_EQ(painter.brush(), QBrush(Qt::yellow));
    EXPECT_FALSE(painter.hasClipping());
    EXPECT_FALSE(painter.testRenderHint(QPainter::Antialiasing));
}

TEST(ChartPainter, StaysInsideOfItsRectangle) {
    QImage image(300, 200, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    const QRect rect(60, 50, 180, 100);
    PaintChart(painter, Seen(SampleContents(12, 16), 340, 351, 300), {rect, QFont(), &image},
               QPalette());
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (!rect.contains(x, y)) {
                ASSERT_EQ(image.pixel(x, y), QColor(Qt::magenta).rgb()) << x << ", " << y;
            }
}

TEST(ChartPainter, SharperOnAFineScreen) {
    const QImage image = Painted(SampleContents(12, 16), {220, 120}, QPalette(), 2);
    EXPECT_EQ(image.size(), QSize(440, 240));
    EXPECT_NE(image.pixel(439, 239), QColor(Qt::magenta).rgb());
}

TEST(ChartPainter, PrintsVectors) {
    QByteArray file;
    QBuffer buffer(&file);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setResolution(300);
        QPainter painter(&writer);
        const QRectF page(0, 0, writer.width(), writer.height());
        PaintChart(painter, SampleContents(12, 16), {page, QFont(), &writer}, QPalette());
    }
    EXPECT_GT(file.size(), 1000);
    EXPECT_TRUE(file.startsWith("%PDF"));
    EXPECT_FALSE(file.contains("/Image\n") || file.contains("/Subtype /Image"));
    EXPECT_TRUE(file.contains("/Font"));
}
} // namespace
