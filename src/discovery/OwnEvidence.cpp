#include "discovery/OwnEvidence.h"

#include "filedisplay/SearchParameters.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr int rpmScale = 256; // counts
constexpr int loadScale = 250;

TRomBytes RpmSteps(TRomBytes image, const TMapPlace &place) {
    return image.subspan(place.RpmSteps(), place.rpmPoints);
}

TRomBytes LoadSteps(TRomBytes image, const TMapPlace &place) {
    return image.subspan(place.LoadSteps(), place.loadPoints);
}

TRomBytes Body(TRomBytes image, const TMapPlace &place) {
    return image.subspan(place.Body(), place.BodySize());
}

int Sum(TRomBytes bytes) {
    int sum = 0;
    for (const std::uint8_t byte : bytes)
        sum += byte;
    return sum;
}

/// Minus the logarithm of the chance that so many bytes like those around have no larger sum.
float Surprise(TRomBytes steps, int scale, const TSpread &around) {
    constexpr double least = 4; // of a spread: constant surroundings tell little
    constexpr double most = 40;
    const double n = double(steps.size());
    const double deviation = std::max(around.deviation, least) * std::sqrt(n);
    const double z = (scale + 0.5 - around.mean * n) / deviation;
    const double chance = std::erfc(-z / std::numbers::sqrt2) / 2;
    return static_cast<float>(chance > 0 ? std::min(-std::log(chance), most) : most);
}

/// 0: more than one step of 0; 1: one; 2: all steps but the last are alike; 3: most of them; 4:
/// they differ.
float StepKind(TRomBytes steps) {
    const TRomBytes inner = steps.first(steps.size() - 1);
    const auto zeros = std::count(inner.begin(), inner.end(), 0);
    if (zeros > 0)
        return zeros > 1 ? 0 : 1;
    std::ptrdiff_t alike = 0;
    for (const std::uint8_t step : inner)
        alike = std::max(alike, std::count(inner.begin(), inner.end(), step));
    if (alike == std::ssize(inner))
        return 2;
    return 2 * alike > std::ssize(inner) ? 3 : 4;
}

/// The features of one axis stand one behind the other, from `first` on.
void MeasureAxis(TMeasures &measures, TFeature first, TRomBytes steps, int scale,
                 const TSpread &around) {
    auto *measure = &At(measures, first);
    measure[0] = Surprise(steps, scale, around);
    measure[1] = static_cast<float>(steps.size());
    measure[2] = StepKind(steps);
    measure[3] = static_cast<float>(Sum(steps)) / static_cast<float>(scale);
    measure[4] = static_cast<float>(steps.back()) / static_cast<float>(scale);
}

double Deviation(TRomBytes bytes) {
    double sum = 0;
    double squares = 0;
    for (const std::uint8_t byte : bytes) {
        sum += byte;
        squares += double(byte) * byte;
    }
    const double mean = sum / double(bytes.size());
    return std::sqrt(std::max(squares / double(bytes.size()) - mean * mean, 0.0));
}

/// How much less values differ that lie `step` apart than any two of the body, in deviations of
/// what chance gives. Those of a run that ends before the next one begins are left out.
float Smoothness(TRomBytes body, std::size_t step, std::size_t runLength) {
    constexpr double meanDifference = 1.128; // of two values by chance, in standard deviations
    const double deviation = Deviation(body);
    if (deviation == 0)
        return 0;
    double differences = 0;
    double pairs = 0;
    for (std::size_t i = 0; i + step < body.size(); ++i)
        if ((i + step) % runLength >= step || step == runLength) {
            differences += std::abs(int(body[i]) - int(body[i + step]));
            ++pairs;
        }
    if (pairs == 0)
        return 0;
    return static_cast<float>((1 - differences / pairs / (meanDifference * deviation)) *
                              std::sqrt(pairs));
}

/// The greater share of values within the usual range of fuel or of timing.
float UsualShare(TRomBytes body) {
    const TSearchParameters usual;
    const auto within = [&](const TByteRange &range) {
        return std::count_if(body.begin(), body.end(),
                             [&](std::uint8_t byte) { return range.Has(byte); });
    };
    return static_cast<float>(std::max(within(usual.Fuel()), within(usual.Timing()))) /
           static_cast<float>(body.size());
}

} // namespace

bool AxesFit(TRomBytes image, const TMapPlace &place) {
    return Sum(RpmSteps(image, place)) <= rpmScale &&
           (!place.Is2D() || Sum(LoadSteps(image, place)) <= rpmScale);
}

TMeasures MeasureOwn(TRomBytes image, const TMapPlace &place, const TSurroundings &surroundings) {
    TMeasures measures{};
    const TSpread around = surroundings.Around(place.offset, place.End());
    MeasureAxis(measures, TFeature::RpmAxis, RpmSteps(image, place), rpmScale, around);
    const TRomBytes body = Body(image, place);
    if (place.Is2D()) {
        MeasureAxis(measures, TFeature::LoadAxis, LoadSteps(image, place), loadScale, around);
        At(measures, TFeature::SmoothByLoad) = Smoothness(body, 1, place.loadPoints);
    }
    At(measures, TFeature::SmoothByRpm) = Smoothness(body, place.loadPoints, place.loadPoints);
    At(measures, TFeature::Values) = UsualShare(body);
    const auto [least, most] = std::minmax_element(body.begin(), body.end());
    At(measures, TFeature::Variety) = static_cast<float>(*most - *least);
    At(measures, TFeature::ImageSize) = static_cast<float>(std::log2(double(image.size())));
    return measures;
}

TMapContents ContentsOf(TRomBytes image, const TMapPlace &place) {
    const TSearchParameters usual;
    const TRomBytes body = Body(image, place);
    const int mean = Sum(body) / static_cast<int>(body.size());
    return mean >= usual.timingMaximum ? TMapContents::Fuel : TMapContents::Timing;
}
