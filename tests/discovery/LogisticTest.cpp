// The fit of the scores.
#include "truth/Logistic.h"

#include <cmath>

#include <gtest/gtest.h>

namespace {

/// Of a hundred: so many with the outcome, with parameter 1 at 1 or not.
void AddExamples(std::vector<TExample> &examples, bool with, int ofHundred) {
    for (int i = 0; i < 100; ++i) {
        TExample example{{{0, 1}}, i < ofHundred};
        if (with)
            example.parts.push_back({1, 1});
        examples.push_back(example);
    }
}

TEST(Logistic, FindsTheOddsOfABin) {
    std::vector<TExample> examples;
    AddExamples(examples, false, 20);
    AddExamples(examples, true, 80);
    const std::vector<double> fitted = FitLogistic(examples, 2, 1e-6);
    EXPECT_NEAR(fitted[0], std::log(0.2 / 0.8), 1e-4);
    EXPECT_NEAR(fitted[1], std::log(0.8 / 0.2) - std::log(0.2 / 0.8), 1e-4);
}

TEST(Logistic, StaysFiniteWhereABinDecidesAlone) {
    std::vector<TExample> examples;
    AddExamples(examples, false, 0);
    AddExamples(examples, true, 100);
    const std::vector<double> fitted = FitLogistic(examples, 2, 1);
    EXPECT_GT(fitted[1], 2);
    EXPECT_LT(fitted[1], 20);
}

TEST(Logistic, LeavesWhatNeverStandsAtZero) {
    std::vector<TExample> examples;
    AddExamples(examples, true, 50);
    EXPECT_EQ(FitLogistic(examples, 3, 1)[2], 0);
}

} // namespace
