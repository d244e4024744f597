#include "truth/Logistic.h"

#include <algorithm>
#include <cmath>

namespace {

using TMatrix = std::vector<std::vector<double>>;

double Sum(const TExample &example, const std::vector<double> &weights) {
    double sum = 0;
    for (const TExample::TPart &part : example.parts)
        sum += weights[part.parameter] * double(part.value);
    return sum;
}

/// Solves a x = b for a symmetric, positive a, which is lost, by Cholesky's method.
std::vector<double> Solve(TMatrix &a, std::vector<double> b) {
    const std::size_t n = b.size();
    for (std::size_t i = 0; i < n; ++i)
        for (std::size_t j = 0; j <= i; ++j) {
            double sum = a[i][j];
            for (std::size_t k = 0; k < j; ++k)
                sum -= a[i][k] * a[j][k];
            a[i][j] = i == j ? std::sqrt(sum) : sum / a[j][j];
        }
    for (std::size_t i = 0; i < n; ++i) {
        for (std::size_t k = 0; k < i; ++k)
            b[i] -= a[i][k] * b[k];
        b[i] /= a[i][i];
    }
    for (std::size_t i = n; i-- > 0;) {
        for (std::size_t k = i + 1; k < n; ++k)
            b[i] -= a[k][i] * b[k];
        b[i] /= a[i][i];
    }
    return b;
}

} // namespace

std::vector<double> FitLogistic(const std::vector<TExample> &examples, std::size_t parameters,
                                double penalty) {
    constexpr int rounds = 25;
    std::vector<double> weights(parameters);
    for (int round = 0; round < rounds; ++round) {
        std::vector<double> slope(parameters);
        TMatrix curvature(parameters, std::vector<double>(parameters));
        for (std::size_t i = 0; i < parameters; ++i) {
            curvature[i][i] = i == 0 ? 1e-6 : penalty;
            slope[i] = i == 0 ? 0 : -penalty * weights[i];
        }
        for (const TExample &example : examples) {
            const double chance = 1 / (1 + std::exp(-Sum(example, weights)));
            const double error = (example.outcome ? 1 : 0) - chance;
            const double spread = std::max(chance * (1 - chance), 1e-9);
            for (const TExample::TPart &one : example.parts) {
                slope[one.parameter] += error * double(one.value);
                for (const TExample::TPart &other : example.parts)
                    curvature[one.parameter][other.parameter] +=
                        spread * double(one.value) * double(other.value);
            }
        }
        const std::vector<double> step = Solve(curvature, slope);
        for (std::size_t i = 0; i < parameters; ++i)
            weights[i] += std::clamp(step[i], -2.0, 2.0);
    }
    return weights;
}
