#include "discovery/MapLikeness.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

namespace {
// Evidence in bits. What each is worth was tried on revisions of made families: docs/discovery.md.
constexpr std::array stepBits{2.0, 1.0, 0.25, -0.5}; ///< of two steps that differ by so much
constexpr double otherStepBits = -1.5;               ///< by more
constexpr double equalHeaderBits = 4;
constexpr double otherHeaderBits = -1;
constexpr double bodyBits = 20;   ///< for each bit that a value costs less than ...
constexpr double neutralCost = 3; ///< ... values that are neither alike nor unlike
constexpr int tellingCells = 24;  ///< with fewer changes from cell to cell a body tells less
constexpr double shiftCost = 0.75;
constexpr double scaleCost = 1.25;
constexpr double leastScale = 0.7;
constexpr double mostScale = 1.4;
constexpr double mostShift = 24;   ///< of the mean: more makes another map of it
constexpr int bytesAround = 16;    ///< looked at on either side
constexpr double sameByteBits = 3; ///< for each byte around that is the same, of ...
constexpr int mostAround = 16;     ///< ... at most so many

/// The steps of both axes, one behind the other.
struct TSteps {
    TRomBytes rpm;
    TRomBytes load;
};

TSteps StepsOf(TRomBytes image, const TMapPlace &map) {
    return {image.subspan(map.RpmSteps(), map.rpmPoints),
            map.Is2D() ? image.subspan(map.LoadSteps(), map.loadPoints) : TRomBytes()};
}

double BitsOfSteps(TRomBytes one, TRomBytes other) {
    double bits = 0;
    for (std::size_t i = 0; i < one.size(); ++i) {
        const auto difference = static_cast<std::size_t>(std::abs(one[i] - other[i]));
        bits += difference < stepBits.size() ? stepBits[difference] : otherStepBits;
    }
    return bits;
}

int EqualBytes(TRomBytes one, TRomBytes other) {
    int equal = 0;
    for (std::size_t i = 0; i < one.size(); ++i)
        equal += one[i] == other[i] ? 1 : 0;
    return equal;
}

/// Bits by difference.
double CostOf(int difference) {
    static const std::array<double, 256> costs = [] {
        std::array<double, 256> table{};
        for (std::size_t i = 0; i < table.size(); ++i)
            table[i] = std::log2(1.0 + static_cast<double>(i));
        return table;
    }();
    return costs[static_cast<std::size_t>(std::min(std::abs(difference), 255))];
}

/// The straight line by which values become others.
struct TLine {
    double scale = 1;
    double shift = 0;
};

double MeanCost(TRomBytes one, TRomBytes other, const TLine &line) {
    double cost = 0;
    for (std::size_t i = 0; i < one.size(); ++i)
        cost += CostOf(static_cast<int>(std::lround(line.scale * one[i] + line.shift)) - other[i]);
    return cost / static_cast<double>(one.size());
}

double Mean(TRomBytes bytes) {
    double sum = 0;
    for (const std::uint8_t byte : bytes)
        sum += byte;
    return sum / static_cast<double>(bytes.size());
}

/// The line of the least squares.
TLine FittedLine(TRomBytes one, TRomBytes other) {
    const double mean = Mean(one);
    const double otherMean = Mean(other);
    double together = 0;
    double alone = 0;
    for (std::size_t i = 0; i < one.size(); ++i) {
        together += (one[i] - mean) * (other[i] - otherMean);
        alone += (one[i] - mean) * (one[i] - mean);
    }
    const double scale = alone > 0 ? std::clamp(together / alone, leastScale, mostScale) : 1;
    return {scale, otherMean - scale * mean};
}

void LookAtBodies(TRomBytes one, TRomBytes other, TMapLikeness &likeness) {
    likeness.cells = static_cast<int>(one.size());
    likeness.equalCells = EqualBytes(one, other);
    likeness.bodyCost = MeanCost(one, other, {});
    const auto attempt = [&](TBodyFit fit, double cost) {
        if (cost < likeness.bodyCost) {
            likeness.fit = fit;
            likeness.bodyCost = cost;
        }
    };
    const double shift = std::round(Mean(other) - Mean(one));
    if (std::abs(shift) > mostShift)
        return;
    attempt(TBodyFit::Shifted, shiftCost + MeanCost(one, other, {1, shift}));
    attempt(TBodyFit::Scaled, scaleCost + MeanCost(one, other, FittedLine(one, other)));
}

/// How much a body can tell, 0 to 1: one of equal values nothing.
double Telling(TRomBytes body) {
    int changes = 0;
    for (std::size_t i = 1; i < body.size(); ++i)
        changes += body[i] != body[i - 1] ? 1 : 0;
    return std::min(changes, tellingCells) / static_cast<double>(tellingCells);
}

/// Bytes that are the same from these offsets on, in steps of 1 or -1. One that repeats the byte
/// before it, as in fillings, tells nothing.
int SameBytes(TRomBytes one, std::int64_t offset, TRomBytes other, std::int64_t otherOffset,
              int step) {
    int same = 0;
    for (int i = 0; i < bytesAround; ++i, offset += step, otherOffset += step) {
        if (std::min(offset, otherOffset) < 0 || offset >= std::ssize(one) ||
            otherOffset >= std::ssize(other))
            break;
        const auto at = static_cast<std::size_t>(offset);
        const bool tells = i == 0 || one[at] != one[static_cast<std::size_t>(offset - step)];
        same += tells && one[at] == other[static_cast<std::size_t>(otherOffset)] ? 1 : 0;
    }
    return same;
}
} // namespace

bool AxesAreAlike(TRomBytes image, const TMapPlace &map, TRomBytes otherImage,
                  const TMapPlace &other) {
    const auto alike = [](TRomBytes one, TRomBytes another) {
        const std::size_t most = one.size() / 3; // so many steps may be quite other ones
        std::size_t others = 0;
        for (std::size_t i = 0; i < one.size() && others <= most; ++i)
            others += std::abs(one[i] - another[i]) >= std::ssize(stepBits) ? 1U : 0U;
        return others <= most;
    };
    const TSteps one = StepsOf(image, map);
    const TSteps another = StepsOf(otherImage, other);
    return alike(one.rpm, another.rpm) && alike(one.load, another.load);
}

TMapLikeness MapLikeness(TRomBytes image, const TMapPlace &map, TRomBytes otherImage,
                         const TMapPlace &other) {
    TMapLikeness likeness;
    const TSteps steps = StepsOf(image, map);
    const TSteps otherSteps = StepsOf(otherImage, other);
    likeness.steps = static_cast<int>(steps.rpm.size() + steps.load.size());
    likeness.equalSteps =
        EqualBytes(steps.rpm, otherSteps.rpm) + EqualBytes(steps.load, otherSteps.load);
    likeness.axisBits =
        BitsOfSteps(steps.rpm, otherSteps.rpm) + BitsOfSteps(steps.load, otherSteps.load);
    likeness.headers = map.Is2D() ? 2 : 1;
    likeness.equalHeaders = image[map.offset] == otherImage[other.offset] ? 1 : 0;
    if (map.Is2D() && image[map.LoadHeader()] == otherImage[other.LoadHeader()])
        ++likeness.equalHeaders;
    const TRomBytes body = image.subspan(map.Body(), map.BodySize());
    LookAtBodies(body, otherImage.subspan(other.Body(), other.BodySize()), likeness);
    likeness.around = SameBytes(image, std::int64_t{map.offset} - 1, otherImage,
                                std::int64_t{other.offset} - 1, -1) +
                      SameBytes(image, static_cast<std::int64_t>(map.End()), otherImage,
                                static_cast<std::int64_t>(other.End()), 1);
    likeness.aroundBits = std::min(likeness.around, mostAround) * sameByteBits;
    likeness.bits = likeness.axisBits + likeness.equalHeaders * equalHeaderBits +
                    (likeness.headers - likeness.equalHeaders) * otherHeaderBits +
                    Telling(body) * bodyBits * (neutralCost - likeness.bodyCost) +
                    likeness.aroundBits;
    return likeness;
}
