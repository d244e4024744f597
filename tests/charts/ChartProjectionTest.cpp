// The projection against corners worked out by hand: the cosines and sines of 20 degrees (0.939693,
// 0.342020) and 9 degrees (0.987688, 0.156434) and a box 1 wide, 0.7 high, 1 deep.
#include "maps/ChartProjection.h"

#include "charts/RandomWalls.h"

#include <climits>
#include <cmath>

#include <gtest/gtest.h>

namespace {
// In the initial view the box takes 0.939693 + 0.342020 = 1.281713 to the right, and upwards
// 0.7 * 0.987688 + 1.281713 * 0.156434 = 0.891886. This area has 1000 units for each 1.
constexpr TScreenArea area{0, 0, 1281.713, 891.886};

TChartView View(int rotation, int elevation, int zoom = 56) {
    TChartView view;
    view.rotation = rotation;
    view.elevation = elevation;
    view.zoom = zoom;
    view.horizontalOffset = 0;
    view.verticalOffset = 0;
    return view;
}

struct TCornerCase {
    const char *name;
    TChartView view;
    TBoxPoint corner;
    TScreenPoint expected; ///< from the middle of the area, upwards positive
};

class TCorners : public testing::TestWithParam<TCornerCase> {};

TEST_P(TCorners, FallWhereWorkedOut) {
    const TCornerCase &c = GetParam();
    const TScreenPoint found = TChartProjection(c.view, 1, area).Map(c.corner);
    EXPECT_NEAR(found.x - area.width / 2, c.expected.x, 0.01);
    EXPECT_NEAR(area.height / 2 - found.y, c.expected.y, 0.01);
}

INSTANTIATE_TEST_SUITE_P(
    Views, TCorners,
    testing::Values(
        TCornerCase{"front, near left floor", View(360, 360), {0, 0, 0}, {-500, -350}},
        TCornerCase{"front, far right top", View(0, 0), {1, 1, 1}, {500, 350}},
        // The far side goes right and up: 0.5 * (0.939693 + 0.342020), and away
        // 0.5 * (0.939693 - 0.342020) = 0.298836, up -0.35 * 0.987688 + 0.298836 * 0.156434.
        TCornerCase{"initial, far right floor", View(340, 351), {1, 0, 1}, {640.857, -298.943}},
        // Away -0.640857: up -0.345691 - 0.100252, the lowest corner.
        TCornerCase{"initial, near right floor", View(340, 351), {1, 0, 0}, {298.836, -445.943}},
        TCornerCase{"initial, far left top", View(340, 351), {0, 1, 1}, {-298.836, 445.943}},
        TCornerCase{"initial, whole turns more",
                    View(340 + 720, 351 - 360),
                    {0, 1, 1},
                    {-298.836, 445.943}},
        // A quarter turn: the far side at the right, the right side near.
        TCornerCase{"from the right, far right", View(270, 360), {1, 0, 1}, {500, -350}},
        TCornerCase{"from the right, far left", View(270, 360), {0, 0, 1}, {500, -350}},
        TCornerCase{"from the right, near right", View(-90, 360), {1, 1, 0}, {-500, 350}},
        TCornerCase{"from behind, near right", View(180, 360), {1, 1, 0}, {-500, 350}},
        // From above the depth of 1 is higher than the area: fitted to its height.
        TCornerCase{"from above, far right", View(360, 270), {1, 0, 1}, {500, 445.943}},
        TCornerCase{"from above, near right top", View(360, 270), {1, 1, 0}, {500, -445.943}},
        // From below the far side is the lower one.
        TCornerCase{"from below, far right", View(360, 90), {1, 0, 1}, {500, -445.943}},
        // The box is broadest across its corners: fitted to the area's width.
        TCornerCase{"across, far right", View(315, 360), {1, 0, 1}, {640.857, -350}},
        TCornerCase{"across, near right", View(315, 360), {1, 0, 0}, {0, -350}},
        TCornerCase{"upside down", View(360, 180), {0, 1, 0}, {-500, -350}},
        TCornerCase{"twice as large", View(360, 360, 112), {1, 1, 1}, {1000, 700}},
        TCornerCase{"half as large", View(360, 360, 28), {1, 1, 1}, {250, 175}},
        TCornerCase{"zoom 1", View(360, 360, 1), {1, 1, 1}, {500 / 56.0, 350 / 56.0}},
        TCornerCase{"zoom 0 is drawn as 1", View(360, 360, 0), {1, 1, 1}, {500 / 56.0, 350 / 56.0}},
        TCornerCase{"a negative zoom is drawn as 1",
                    View(360, 360, INT_MIN),
                    {1, 1, 1},
                    {500 / 56.0, 350 / 56.0}},
        TCornerCase{"a huge zoom is drawn as 5000",
                    View(360, 360, INT_MAX),
                    {1, 1, 1},
                    {500 * 5000 / 56.0, 350 * 5000 / 56.0}}),
    [](const auto &tested) {
        std::string name = tested.param.name;
        for (char &c : name)
            c = std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
        return name;
    });

TEST(ChartProjection, OffsetsComeLastInThousandthsOfTheArea) {
    const TChartView initial;
    EXPECT_EQ(initial.horizontalOffset, -12);
    EXPECT_EQ(initial.verticalOffset, 7);
    TChartView view = View(360, 360, 112);
    view.horizontalOffset = -12;
    view.verticalOffset = 7;
    const TScreenPoint centre =
        TChartProjection(view, 1, {100, 50, 1000, 2000}).Map({0.5, 0.5, 0.5});
    EXPECT_NEAR(centre.x, 100 + 500 - 12, 1e-9);
    EXPECT_NEAR(centre.y, 50 + 1000 + 14, 1e-9);
}

TEST(ChartProjection, DepthIsAShareOfTheWidth) {
    const auto width = [](double depth) {
        const TChartProjection projection(View(270, 360), depth, area);
        return projection.Map({0, 0, 1}).x - projection.Map({0, 0, 0}).x;
    };
    EXPECT_EQ(width(0), 0);
    EXPECT_GT(width(1), width(0.5));
}

TEST(ChartProjection, AnglesOfAnySize) {
    for (const int angle : {INT_MIN, INT_MAX, -1, 359, 3600000}) {
        const double expected = std::cos(angle % 360 * M_PI / 180);
        EXPECT_NEAR(DrawnTurn(angle).cosine, expected, 1e-12) << angle;
        EXPECT_NEAR(DrawnTurn(angle).sine, -std::sin(angle % 360 * M_PI / 180), 1e-12) << angle;
    }
    for (const int angle : {-90, 0, 90, 180, 270, 360, 36000}) {
        const TTurn turn = DrawnTurn(angle);
        EXPECT_EQ(std::abs(turn.cosine) + std::abs(turn.sine), 1) << angle;
    }
}

TEST(ChartProjection, KeepsTheBoxInsideTheAreaInEveryView) {
    TRandomCharts random(1);
    for (int i = 0; i < 1000; ++i) {
        TChartView view = View(random.Number(-999, 999), random.Number(-999, 999));
        const TChartProjection projection(view, random.Number(0, 30) / 10.0, area);
        for (int corner = 0; corner < 8; ++corner) {
            const TScreenPoint at = projection.Map(
                {double(corner & 1), double(corner >> 1 & 1), double(corner >> 2 & 1)});
            EXPECT_GE(at.x, -1e-6);
            EXPECT_LE(at.x, area.width + 1e-6);
            EXPECT_GE(at.y, -1e-6);
            EXPECT_LE(at.y, area.height + 1e-6);
        }
    }
}

TEST(ChartProjection, AnAreaWithoutSizeCountsAsOneUnit) {
    const TScreenPoint at = TChartProjection(View(360, 360), 1, {5, 6, 0, -3}).Map({0.5, 0.5, 0.5});
    EXPECT_NEAR(at.x, 5.5, 1e-9);
    EXPECT_NEAR(at.y, 6.5, 1e-9);
}

TEST(ChartProjection, SaysWhichSidesAreFar) {
    const auto away = [](int rotation, int elevation) {
        return TChartProjection(View(rotation, elevation), 1, area).Away();
    };
    EXPECT_EQ(away(360, 360).x, 0);
    EXPECT_EQ(away(360, 360).y, 0);
    EXPECT_EQ(away(360, 360).z, 1);
    EXPECT_LT(away(340, 351).x, 0) << "seen from the right";
    EXPECT_LT(away(340, 351).y, 0) << "seen from above";
    EXPECT_GT(away(340, 351).z, 0);
    EXPECT_EQ(away(360, 270).z, 0);
    EXPECT_LT(away(360, 270).y, 0);
    EXPECT_LT(away(180, 360).z, 0) << "seen from behind";
}
} // namespace
