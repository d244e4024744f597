// Logistic regression over features that are each in one of some bins: what a scorecard is fitted
// by. Newton's method, with a small penalty that keeps the points of rare bins near 0.
#pragma once

#include <cstdint>
#include <vector>

/// One case: a number for each of some parameters (those not named are 0), and the outcome.
struct TExample {
    struct TPart {
        std::uint16_t parameter;
        float value;
    };
    std::vector<TPart> parts;
    bool outcome;
};

/// The parameters that explain the outcomes best. Parameter 0 is not penalised: give it to every
/// example as the base.
std::vector<double> FitLogistic(const std::vector<TExample> &examples, std::size_t parameters,
                                double penalty);
