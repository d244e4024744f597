#include "maps/NumberBlock.h"

#include "system/Texts.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>

namespace {
/// Every number becomes what `change` makes of it.
template <class TChange>
std::string ChangeEach(TNumberBlock &block, TChange change) {
    for (double &value : block.values)
        value = change(value);
    return {};
}

bool Rises(const std::vector<double> &points) {
    return std::adjacent_find(points.begin(), points.end(), std::greater_equal<>()) == points.end();
}

std::string RPMProblem(const TNumberBlock &block) {
    return Rises(block.rpm)
               ? std::string()
               : Translated("NumberBlock", "Nothing is changed: the engine speeds of the "
                                           "selection do not rise from cell to cell");
}

std::string LoadProblem(const TNumberBlock &block) {
    return Rises(block.load)
               ? std::string()
               : Translated("NumberBlock", "Nothing is changed: the loads of the selection do "
                                           "not rise from cell to cell");
}

/// Puts the numbers between the first and the last of a line on the straight through these two.
///
/// @param at  gives the number at each of the points
template <class TAt>
void Straighten(const std::vector<double> &points, TAt at) {
    const std::size_t last = points.size() - 1;
    const double change = at(last) - at(0);
    const double length = points[last] - points[0];
    for (std::size_t i = 1; i < last; ++i)
        at(i) = at(0) + change * ((points[i] - points[0]) / length);
}

void StraightenRows(TNumberBlock &block) {
    const std::size_t columns = block.rpm.size();
    for (std::size_t row = 0; row < block.load.size(); ++row)
        Straighten(block.rpm,
                   [&](std::size_t i) -> double & { return block.values[row * columns + i]; });
}

void StraightenColumns(TNumberBlock &block) {
    const std::size_t columns = block.rpm.size();
    for (std::size_t column = 0; column < columns; ++column)
        Straighten(block.load,
                   [&](std::size_t i) -> double & { return block.values[i * columns + column]; });
}

/// Of the nine numbers round a place that has eight neighbours.
double MeanAround(const std::vector<double> &values, std::size_t columns, std::size_t place) {
    double sum = 0;
    for (const std::size_t middle : {place - columns, place, place + columns})
        sum += values[middle - 1] + values[middle] + values[middle + 1];
    return sum / 9;
}
} // namespace

double UnitOf(const std::string &picture) {
    const std::size_t point = std::min(picture.find('.'), picture.size() - 1);
    return 1 / std::pow(10.0, static_cast<double>(picture.size() - 1 - point));
}

std::string AddUnits(TNumberBlock &block, int units) {
    return Add(block, units * block.unit);
}

std::string Add(TNumberBlock &block, double amount) {
    return ChangeEach(block, [=](double value) { return value + amount; });
}

std::string SetTo(TNumberBlock &block, double number) {
    return ChangeEach(block, [=](double) { return number; });
}

std::string MultiplyBy(TNumberBlock &block, double percent) {
    return ChangeEach(block, [=](double value) { return value * percent / 100; });
}

std::string InterpolateRows(TNumberBlock &block) {
    std::string problem = RPMProblem(block);
    if (problem.empty())
        StraightenRows(block);
    return problem;
}

std::string InterpolateColumns(TNumberBlock &block) {
    std::string problem = LoadProblem(block);
    if (problem.empty())
        StraightenColumns(block);
    return problem;
}

std::string InterpolateBoth(TNumberBlock &block) {
    std::string problem = RPMProblem(block);
    if (problem.empty())
        problem = LoadProblem(block);
    if (problem.empty()) {
        StraightenRows(block);
        StraightenColumns(block);
    }
    return problem;
}

std::string Smooth(TNumberBlock &block) {
    const std::vector<double> old = block.values;
    const std::size_t columns = block.rpm.size();
    for (std::size_t row = 1; row + 1 < block.load.size(); ++row)
        for (std::size_t column = 1; column + 1 < columns; ++column)
            block.values[row * columns + column] = MeanAround(old, columns, row * columns + column);
    return {};
}
