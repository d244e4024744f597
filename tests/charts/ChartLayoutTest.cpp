// Where a chart's texts stand: apart from each other, inside, beside the axes; what gives way first
// when there is little room.
#include "maps/ChartLayout.h"

#include "charts/ChartContents.h"
#include "charts/RandomWalls.h"
#include "maps/ChartEdges.h"
#include "maps/ChartPainter.h"

#include <algorithm>

#include <QImage>
#include <gtest/gtest.h>

namespace {
using TTexts = std::vector<std::string>;

const TChartLabel *Find(const TChartLayout &layout, TLabelKind kind) {
    const auto found = std::find_if(layout.labels.begin(), layout.labels.end(),
                                    [&](const TChartLabel &label) { return label.kind == kind; });
    return found == layout.labels.end() ? nullptr : &*found;
}

TTexts Texts(const TChartLayout &layout, TLabelKind kind) {
    TTexts texts;
    for (const TChartLabel &label : layout.labels)
        if (label.kind == kind)
            texts.push_back(label.text);
    return texts;
}

std::vector<QPointF> Corners(const TChartProjection &projection) {
    std::vector<QPointF> corners;
    for (int i = 0; i < 8; ++i)
        corners.push_back(
            OnScreen(projection.Map({double(i & 1), double(i >> 1 & 1), double(i >> 2 & 1)})));
    return corners;
}

constexpr double leastGap = 0.3; ///< of a line's height, between labels in one line

/// No label touches another, of whatever axis, or leaves the rectangle.
void ExpectTidy(const TChartLayout &layout, const TChartPlace &place) {
    const std::vector<TChartLabel> &labels = layout.labels;
    const double gap = leastGap * layout.lineHeight;
    for (std::size_t i = 0; i < labels.size(); ++i) {
        EXPECT_TRUE(place.rect.contains(OnScreen(labels[i].rect))) << labels[i].text;
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_FALSE(OnScreen(labels[i].rect)
                             .adjusted(-gap, 0, gap, 0)
                             .intersects(OnScreen(labels[j].rect)))
                << labels[i].text << " and " << labels[j].text;
    }
}

/// Labels beside an axis lie outside of it, as seen from the box: on the other side of its line.
void ExpectOutside(const TChartLayout &layout) {
    const std::pair<TLabelKind, TChartEdge> axes[] = {
        {TLabelKind::Left, LeftEdge(layout.projection)},
        {TLabelKind::Bottom, BottomEdge(layout.projection)},
        {TLabelKind::Depth, DepthEdge(layout.projection)}};
    for (const auto &[kind, edge] : axes) {
        const QPointF from = OnScreen(layout.projection.Map(edge.from));
        const QPointF out = OnScreen(edge.outward);
        if (edge.length < 1)
            continue;
        for (const QPointF &corner : Corners(layout.projection))
            EXPECT_LE(QPointF::dotProduct(corner - from, out), 1e-6);
        for (const TChartLabel &label : layout.labels) {
            const QRectF rect = OnScreen(label.rect);
            const std::vector<QPointF> corners{rect.topLeft(), rect.topRight(), rect.bottomLeft(),
                                               rect.bottomRight()};
            for (const QPointF &corner : corners)
                EXPECT_TRUE(label.kind != kind || QPointF::dotProduct(corner - from, out) > 0)
                    << label.text;
        }
    }
}

TEST(ChartLayout, NothingOverlapsInRandomSizesAndViews) {
    TRandomCharts random(5);
    for (int i = 0; i < 600; ++i) {
        TChartContents contents = SampleContents(random.Number(0, 20), random.Number(0, 31));
        contents.view = random.View();
        contents.firstAtRight = i % 2 == 0;
        TChartPlace place;
        place.rect = QRectF(random.Number(-50, 50), random.Number(-50, 50), random.Number(1, 1200),
                            random.Number(1, 900));
        const TChartLayout layout = LayOut(contents, place);
        ExpectTidy(layout, place);
        ExpectOutside(layout);
    }
}

TEST(ChartLayout, LabelsOfDifferentAxesStayApartInEveryViewRoundTheFirst) {
    TChartContents contents = SampleContents(16, 16);
    contents.firstAtRight = true;
    for (const QSizeF size : {QSizeF(260, 160), QSizeF(420, 260), QSizeF(900, 520)})
        for (int rotation = 270; rotation <= 450; rotation += 3)
            for (int elevation = 318; elevation <= 372; elevation += 3) {
                contents.view.rotation = rotation;
                contents.view.elevation = elevation;
                TChartPlace place;
                place.rect = {{0, 0}, size};
                ExpectTidy(LayOut(contents, place), place);
            }
}

TEST(ChartLayout, ShowsAllKindsOfTextInTheInitialView) {
    for (const QSizeF size : {QSizeF(1000, 700), QSizeF(500, 350), QSizeF(400, 250)}) {
        TChartPlace place;
        place.rect = {{0, 0}, size};
        const TChartLayout layout = LayOut(SampleContents(12, 16), place);
        for (const TLabelKind kind :
             {TLabelKind::Title, TLabelKind::LeftTitle, TLabelKind::BottomTitle,
              TLabelKind::DepthTitle, TLabelKind::Left, TLabelKind::Bottom, TLabelKind::Depth})
            EXPECT_TRUE(Find(layout, kind)) << int(kind) << " at " << size.width();
        EXPECT_EQ(Find(layout, TLabelKind::BottomTitle)->text, "RPM");
        EXPECT_EQ(Find(layout, TLabelKind::DepthTitle)->text, "% Load");
        EXPECT_EQ(Find(layout, TLabelKind::LeftTitle)->text, "/\\ Trim");
        EXPECT_TRUE(Find(layout, TLabelKind::LeftTitle)->upright);
    }
}

TEST(ChartLayout, AllLabelsWhereThereIsRoom) {
    TChartPlace place;
    place.rect = QRectF(0, 0, 1600, 1000);
    const TChartContents contents = SampleContents(6, 8);
    const TChartLayout layout = LayOut(contents, place);
    EXPECT_EQ(Texts(layout, TLabelKind::Bottom), contents.bottomLabels);
    EXPECT_EQ(Texts(layout, TLabelKind::Depth), contents.depthLabels);
}

TEST(ChartLayout, ASmallCornerHasFewerLabelsAndNoAxisTitles) {
    TChartPlace place;
    place.rect = QRectF(0, 0, 220, 120);
    const TChartLayout layout = LayOut(SampleContents(12, 16), place);
    EXPECT_TRUE(Find(layout, TLabelKind::Title));
    EXPECT_FALSE(Find(layout, TLabelKind::LeftTitle));
    EXPECT_FALSE(Find(layout, TLabelKind::BottomTitle));
    EXPECT_FALSE(Find(layout, TLabelKind::DepthTitle));
    EXPECT_GE(Texts(layout, TLabelKind::Left).size(), 2U);
    EXPECT_GE(Texts(layout, TLabelKind::Bottom).size(), 2U);
    EXPECT_LT(Texts(layout, TLabelKind::Bottom).size(), 8U);
    EXPECT_LT(Texts(layout, TLabelKind::Depth).size(), 6U);
}

TEST(ChartLayout, TheBoxFillsTheRoomInTheInitialView) {
    TChartPlace place;
    place.rect = QRectF(0, 0, 1000, 700);
    const TChartLayout layout = LayOut(SampleContents(12, 16), place);
    QRectF box;
    for (const QPointF &corner : Corners(layout.projection))
        box |= QRectF(corner, QSizeF(0.001, 0.001));
    EXPECT_GT(box.width(), 800);
    EXPECT_GT(box.height(), 550);
    EXPECT_TRUE(place.rect.contains(box));
}

TEST(ChartLayout, EveryNthLabelOfACrowdedAxis) {
    TChartPlace place;
    place.rect = QRectF(0, 0, 500, 300);
    TChartContents contents = SampleContents(1, 31);
    contents.view.rotation = contents.view.elevation = 360;
    const TTexts texts = Texts(LayOut(contents, place), TLabelKind::Bottom);
    ASSERT_GE(texts.size(), 3U);
    const TTexts &all = contents.bottomLabels;
    const auto step =
        static_cast<std::size_t>(std::find(all.begin(), all.end(), texts[1]) - all.begin());
    EXPECT_GT(step, 1U);
    for (std::size_t i = 0; i < texts.size(); ++i)
        EXPECT_EQ(texts[i], all[i * step]);
}

TEST(ChartLayout, LabelsTurnWithTheView) {
    TChartPlace place;
    place.rect = QRectF(0, 0, 1000, 700);
    TChartContents contents = SampleContents(12, 16);
    const auto middle = [&](TLabelKind kind) {
        const TChartLayout layout = LayOut(contents, place);
        const TChartLabel *label = Find(layout, kind);
        return label ? OnScreen(label->rect).center() : QPointF(-1, -1);
    };
    EXPECT_GT(middle(TLabelKind::DepthTitle).x(), 500) << "from the right";
    contents.view.rotation = 20;
    EXPECT_LT(middle(TLabelKind::DepthTitle).x(), 500) << "from the left";
    contents.view.rotation = contents.view.elevation = 360;
    EXPECT_EQ(middle(TLabelKind::DepthTitle), QPointF(-1, -1)) << "no depth is seen";
    EXPECT_EQ(middle(TLabelKind::Depth), QPointF(-1, -1));
    contents.view.elevation = 270;
    EXPECT_EQ(middle(TLabelKind::Left), QPointF(-1, -1)) << "from above no height";
}

TEST(ChartLayout, TheFirstPointStandsAtTheRightWhenInverted) {
    TChartPlace place;
    place.rect = QRectF(0, 0, 1000, 700);
    TChartContents contents = SampleContents(12, 16);
    const auto first = [&] {
        const TChartLayout layout = LayOut(contents, place);
        for (const TChartLabel &label : layout.labels)
            if (label.text == contents.bottomLabels[0])
                return label.rect.Centre().x;
        return -1.0;
    };
    EXPECT_LT(first(), 300);
    EXPECT_GT(first(), 0);
    contents.firstAtRight = true;
    EXPECT_GT(first(), 600);
}

TEST(ChartLayout, ALongTitleIsShortened) {
    TChartPlace place;
    place.rect = QRectF(0, 0, 200, 150);
    TChartContents contents = SampleContents(3, 3);
    contents.title = std::string(100, 'W');
    const TChartLayout layout = LayOut(contents, place);
    ASSERT_TRUE(Find(layout, TLabelKind::Title));
    EXPECT_LT(Find(layout, TLabelKind::Title)->text.size(), 30U);
    ExpectTidy(layout, place);
}

TEST(ChartLayout, TextsAreMeasuredOnTheirDevice) {
    QImage fine(10, 10, QImage::Format_RGB32);
    fine.setDotsPerMeterX(12000);
    fine.setDotsPerMeterY(12000);
    TChartPlace place;
    place.rect = QRectF(0, 0, 3000, 2000);
    place.font.setPointSizeF(10);
    const double coarse = LayOut(SampleContents(3, 3), place).lineHeight;
    place.device = &fine;
    EXPECT_GT(LayOut(SampleContents(3, 3), place).lineHeight, 2 * coarse);
}
} // namespace
