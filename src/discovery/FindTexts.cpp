#include "discovery/FindTexts.h"

#include "filedisplay/ContentsTexts.h"
#include "system/Texts.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

struct TFeatureTexts {
    const char *speaksFor;
    const char *speaksAgainst;
};

/// In the order of TFeature.
constexpr std::array<TFeatureTexts, featureCount> features{{
    {Translatable("FindTexts", "the RPM steps fit into full scale, which is rare by chance"),
     Translatable("FindTexts", "RPM steps like these are common among the bytes around")},
    {Translatable("FindTexts", "as many RPM points as usual"),
     Translatable("FindTexts", "an unusual number of RPM points")},
    {Translatable("FindTexts", "the RPM points rise"),
     Translatable("FindTexts", "RPM points do not rise, or all by the same step")},
    {Translatable("FindTexts", "the RPM axis covers most of the scale"),
     Translatable("FindTexts", "the RPM axis covers an unusual part of the scale")},
    {Translatable("FindTexts", "the RPM axis ends where engines do"),
     Translatable("FindTexts", "the RPM axis ends at an unusual speed")},
    {Translatable("FindTexts", "the load steps fit into full scale, which is rare by chance"),
     Translatable("FindTexts", "load steps like these are common among the bytes around")},
    {Translatable("FindTexts", "as many load points as usual"),
     Translatable("FindTexts", "an unusual number of load points")},
    {Translatable("FindTexts", "the load points rise"),
     Translatable("FindTexts", "load points do not rise, or all by the same step")},
    {Translatable("FindTexts", "the load axis covers most of the scale"),
     Translatable("FindTexts", "the load axis covers an unusual part of the scale")},
    {Translatable("FindTexts", "the load axis ends near full load"),
     Translatable("FindTexts", "the load axis ends at an unusual load")},
    {Translatable("FindTexts", "smooth from one RPM point to the next"),
     Translatable("FindTexts", "rough from one RPM point to the next")},
    {Translatable("FindTexts", "smooth from one load point to the next"),
     Translatable("FindTexts", "rough from one load point to the next")},
    {Translatable("FindTexts", "values as in fuel or timing maps"),
     Translatable("FindTexts", "values unlike those of fuel and timing maps")},
    {Translatable("FindTexts", "values that part as those of maps do"),
     Translatable("FindTexts", "values that are all alike, or part too far")},
    {Translatable("FindTexts", "the image is small: few places look like maps by chance"),
     Translatable("FindTexts", "the image is large: many places look like maps by chance")},
    {Translatable("FindTexts", "other likely maps have the same byte in front of the RPM axis"),
     Translatable("FindTexts", "likely maps have another byte in front of the RPM axis")},
    {Translatable("FindTexts", "other likely maps have the same byte in front of the load axis"),
     Translatable("FindTexts", "likely maps have another byte in front of the load axis")},
    {Translatable("FindTexts", "another likely map has the same RPM axis, or nearly"),
     Translatable("FindTexts", "no likely map has an RPM axis like this one")},
    {Translatable("FindTexts", "another likely map has values like these"),
     Translatable("FindTexts", "no likely map has values like these")},
    {Translatable("FindTexts", "a pointer to it stands beside pointers to others"),
     Translatable("FindTexts", "no row of pointers points to it")},
    {Translatable("FindTexts", "another likely map lies beside it"),
     Translatable("FindTexts", "no likely map lies near it")},
}};

std::string LocationText(const char *told, const char *unknown,
                         const std::optional<TSharedHeader> &header) {
    if (!header)
        return Translated("FindTexts", unknown);
    return Filled(
        Translated("FindTexts", told),
        {HexByte(header->location), std::to_string(header->maps), std::to_string(header->ofMaps)});
}

} // namespace

std::string KindText(const TFoundMap &map) {
    const bool fuel = map.contents == TMapContents::Fuel;
    switch (map.kind) {
    case TMapKind::PT:
        return fuel ? Translated("FindTexts", "Fuel, part throttle")
                    : Translated("FindTexts", "Timing, part throttle");
    case TMapKind::Idle:
        return fuel ? Translated("FindTexts", "Fuel, idle")
                    : Translated("FindTexts", "Timing, idle");
    case TMapKind::WOT:
        break;
    }
    return fuel ? Translated("FindTexts", "Fuel, full throttle")
                : Translated("FindTexts", "Timing, full throttle");
}

std::string ChanceText(const TFoundMap &map) {
    const auto percent = std::lround(map.Chance() * 100);
    return std::to_string(std::clamp(percent, 1L, 99L)) + " %";
}

std::string ShapeText(const TMapPlace &place) {
    const std::string points = std::to_string(place.rpmPoints);
    return place.Is2D() ? points + " x " + std::to_string(place.loadPoints) : points;
}

std::vector<TReason> Reasons(const TFoundMap &map) {
    constexpr float little = 0.4F;
    std::vector<TReason> reasons;
    for (std::size_t i = 0; i < featureCount; ++i) {
        const float points = map.evidence[i];
        if (std::abs(points) >= little)
            reasons.push_back({Translated("FindTexts", points > 0 ? features[i].speaksFor
                                                                  : features[i].speaksAgainst),
                               points});
    }
    std::ranges::stable_sort(reasons, [](const TReason &one, const TReason &other) {
        return std::abs(one.points) > std::abs(other.points);
    });
    return reasons;
}

std::string RpmLocationText(const TFoundMaps &found) {
    return LocationText(Translatable("FindTexts", "RPM in RAM cell %1: %2 of %3 likely maps"),
                        Translatable("FindTexts", "RAM cell of RPM: cannot tell"),
                        found.rpmLocation);
}

std::string LoadLocationText(const TFoundMaps &found) {
    return LocationText(Translatable("FindTexts", "Load in RAM cell %1: %2 of %3 likely maps"),
                        Translatable("FindTexts", "RAM cell of load: cannot tell"),
                        found.loadLocation);
}
