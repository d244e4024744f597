// The value axis' scale: round limits and steps, unreadable points, texts.
#include "maps/ChartScale.h"

#include "maps/ChartData.h"
#include "model/Numbers.h"

#include <cfloat>
#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

namespace {
std::vector<TWall> WallsOf(const std::vector<double> &values) {
    std::vector<TWall> walls(1);
    for (const double value : values)
        walls[0].points.push_back({value, value == unreadableValue ? clRed : TColor{0x880000}});
    return walls;
}

struct TScaleCase {
    const char *name;
    std::vector<double> values;
    int steps;
    double lowest, highest, step;
};

class TScales : public testing::TestWithParam<TScaleCase> {};

TEST_P(TScales, AreRound) {
    const TScaleCase &c = GetParam();
    const TChartScale scale = ScaleOf(WallsOf(c.values), c.steps);
    EXPECT_NEAR(scale.lowest, c.lowest, c.step * 1e-9) << c.name;
    EXPECT_NEAR(scale.highest, c.highest, c.step * 1e-9) << c.name;
    EXPECT_NEAR(scale.step, c.step, c.step * 1e-9) << c.name;
}

INSTANTIATE_TEST_SUITE_P(
    Maps, TScales,
    testing::Values(TScaleCase{"nothing", {}, 10, 0, 1, 0.1},
                    TScaleCase{"all unreadable", {-255, -255}, 10, 0, 1, 0.1},
                    TScaleCase{"unreadable points have no say", {100, -255, 140}, 10, 95, 140, 5},
                    TScaleCase{"near zero begins there", {10, 100}, 10, 0, 100, 10},
                    TScaleCase{"a foot under the lowest", {100, 140}, 10, 95, 140, 5},
                    TScaleCase{"factors", {0.80, 1.20}, 5, 0.7, 1.2, 0.1},
                    TScaleCase{"negative values too", {-20, 30}, 10, -30, 30, 10},
                    TScaleCase{"one step alone", {1, 9}, 1, 0, 10, 10},
                    TScaleCase{"less than one step counts as one", {1, 9}, -3, 0, 10, 10},
                    TScaleCase{"flat above zero stands on zero", {7, 7, 7}, 10, 0, 7, 1},
                    TScaleCase{"flat below zero hangs from zero", {-7, -7}, 10, -7, 0, 1},
                    TScaleCase{"flat at zero", {0, 0}, 10, 0, 1, 0.1},
                    TScaleCase{"nearly flat is flat", {1e9, 1e9 + 1e-6}, 10, 0, 1e9, 1e8},
                    TScaleCase{"as small as numbers get", {DBL_MIN, DBL_MIN / 8}, 10, 0, 1, 0.1},
                    TScaleCase{"large", {0, 2e12}, 10, 0, 2e12, 2e11},
                    TScaleCase{"larger than is drawn", {0, DBL_MAX}, 10, 0, 1e200, 1e199}));

TEST(ChartScale, ALiteralMinus255OfAnotherColourIsAValue) {
    std::vector<TWall> walls = WallsOf({0});
    walls[0].points.push_back(ChartValueOf(-255));
    EXPECT_LE(ScaleOf(walls, 10).lowest, -255);
    EXPECT_TRUE(IsReadable(walls[0].points[1]));
    EXPECT_FALSE(IsReadable({-255, clRed}));
    EXPECT_TRUE(IsReadable({255, clRed}));
}

TEST(ChartScale, WhatIsNoNumberIsUnreadable) {
    const double infinite = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(IsReadable({std::nan(""), 0}));
    EXPECT_FALSE(IsReadable({infinite, 0}));
    const TChartScale scale = ScaleOf(WallsOf({1, infinite, std::nan(""), 5}), 10);
    EXPECT_EQ(scale.lowest, 0);
    EXPECT_EQ(scale.highest, 5);
    EXPECT_EQ(scale.Height(std::nan("")), 0);
}

TEST(ChartScale, CoversRandomMapsInRoundSteps) {
    std::mt19937 random(3);
    std::uniform_real_distribution<double> exponent(-9, 15);
    std::uniform_real_distribution<double> part(-1, 1);
    for (int i = 0; i < 5000; ++i) {
        const double size = std::pow(10, exponent(random));
        const double a = part(random) * size;
        const double b = a + part(random) * size;
        const int steps = 1 + i % 12;
        const TChartScale scale = ScaleOf(WallsOf({a, b}), steps);
        const double slack = scale.step * 1e-6;
        EXPECT_LE(scale.lowest, std::min(a, b) + slack);
        EXPECT_GE(scale.highest, std::max(a, b) - slack);
        EXPECT_LE(scale.TickCount() - 1, std::max(steps, 2));
        EXPECT_GE(scale.TickCount(), 2);
        const double mantissa =
            scale.step / std::pow(10, std::floor(std::log10(scale.step) + 1e-9));
        EXPECT_TRUE(std::abs(mantissa - 1) < 1e-6 || std::abs(mantissa - 2) < 1e-6 ||
                    std::abs(mantissa - 5) < 1e-6)
            << scale.step;
        EXPECT_NEAR(scale.Tick(0), scale.lowest, slack);
        EXPECT_NEAR(scale.Tick(scale.TickCount() - 1), scale.highest, slack);
    }
}

TEST(ChartScale, HeightsStopAtTheLimits) {
    const TChartScale scale{10, 20, 5};
    EXPECT_EQ(scale.Height(10), 0);
    EXPECT_EQ(scale.Height(15), 0.5);
    EXPECT_EQ(scale.Height(20), 1);
    EXPECT_EQ(scale.Height(-255), 0);
    EXPECT_EQ(scale.Height(1e300), 1);
}

TEST(ChartScale, TextsHaveTheStepsDecimals) {
    const auto texts = [](const TChartScale &scale) {
        std::string all;
        for (int i = 0; i < scale.TickCount(); ++i)
            all += scale.TickText(i) + " ";
        return all;
    };
    EXPECT_EQ(texts({0, 20, 5}), "0 5 10 15 20 ");
    EXPECT_EQ(texts({-0.2, 0.2, 0.1}), "-0.2 -0.1 0.0 0.1 0.2 ");
    EXPECT_EQ(texts({0.85, 0.95, 0.05}), "0.85 0.90 0.95 ");
    EXPECT_EQ(texts({0, 2e12, 1e12}), "0 1e+12 2e+12 ");
    EXPECT_EQ(texts({0, 2e-8, 1e-8}), "0 1e-08 2e-08 ");
    const std::string before = SetDecimalSeparator(",");
    EXPECT_EQ(texts({0, 1, 0.5}), "0,0 0,5 1,0 ");
    SetDecimalSeparator(before);
}
} // namespace
