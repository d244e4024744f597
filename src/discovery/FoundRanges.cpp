#include "discovery/FoundRanges.h"

#include "model/Axes.h"
#include "model/Numbers.h"

namespace {
TAxisRange RangeOf(TAxisData &axis, std::size_t header) {
    axis.LoadAxis(static_cast<std::int32_t>(header));
    const auto point = [&axis](std::int32_t index) {
        const TVal *value = axis.values->GetItem(index, 0);
        return value ? value->GetConverted() : 0;
    };
    return {point(0), point(axis.rows - 1)};
}
} // namespace

std::string TAxisRange::Text() const {
    constexpr const char *format = "####0";
    return FormatReal(format, first) + "-" + FormatReal(format, last);
}

TAxisRange RpmRange(const TMapPlace &place) {
    TRPMAxisData axis;
    return RangeOf(axis, place.offset);
}

std::optional<TAxisRange> LoadRange(const TMapPlace &place) {
    if (!place.Is2D())
        return std::nullopt;
    TThrAxisData axis;
    return RangeOf(axis, place.LoadHeader());
}
