#include "discovery/FindTexts.h"

#include "system/Texts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace {

constexpr const char *findTexts = "FindTexts";

struct TFeatureTexts {
    const char *speaksFor;
    const char *speaksAgainst;
};

/// In the order of TFeature.
constexpr std::array<TFeatureTexts, featureCount> features{{
    {Translatable(findTexts, "the RPM steps fit into full scale, which is rare by chance"),
     Translatable(findTexts, "RPM steps like these are common among the bytes around")},
    {Translatable(findTexts, "as many RPM points as usual"),
     Translatable(findTexts, "an unusual number of RPM points")},
    {Translatable(findTexts, "the RPM points rise"),
     Translatable(findTexts, "RPM points do not rise, or all by the same step")},
    {Translatable(findTexts, "the RPM axis covers most of the scale"),
     Translatable(findTexts, "the RPM axis covers an unusual part of the scale")},
    {Translatable(findTexts, "the RPM axis ends where engines do"),
     Translatable(findTexts, "the RPM axis ends at an unusual speed")},
    {Translatable(findTexts, "the load steps fit into full scale, which is rare by chance"),
     Translatable(findTexts, "load steps like these are common among the bytes around")},
    {Translatable(findTexts, "as many load points as usual"),
     Translatable(findTexts, "an unusual number of load points")},
    {Translatable(findTexts, "the load points rise"),
     Translatable(findTexts, "load points do not rise, or all by the same step")},
    {Translatable(findTexts, "the load axis covers most of the scale"),
     Translatable(findTexts, "the load axis covers an unusual part of the scale")},
    {Translatable(findTexts, "the load axis ends near full load"),
     Translatable(findTexts, "the load axis ends at an unusual load")},
    {Translatable(findTexts, "smooth from one RPM point to the next"),
     Translatable(findTexts, "rough from one RPM point to the next")},
    {Translatable(findTexts, "smooth from one load point to the next"),
     Translatable(findTexts, "rough from one load point to the next")},
    {Translatable(findTexts, "values as in fuel or timing maps"),
     Translatable(findTexts, "values unlike those of fuel and timing maps")},
    {Translatable(findTexts, "values that part as those of maps do"),
     Translatable(findTexts, "values that are all alike, or part too far")},
    {Translatable(findTexts, "the image is small: few places look like maps by chance"),
     Translatable(findTexts, "the image is large: many places look like maps by chance")},
    {Translatable(findTexts, "other likely maps have the same byte in front of the RPM axis"),
     Translatable(findTexts, "likely maps have another byte in front of the RPM axis")},
    {Translatable(findTexts, "other likely maps have the same byte in front of the load axis"),
     Translatable(findTexts, "likely maps have another byte in front of the load axis")},
    {Translatable(findTexts, "another likely map has the same RPM axis, or nearly"),
     Translatable(findTexts, "no likely map has an RPM axis like this one")},
    {Translatable(findTexts, "another likely map has values like these"),
     Translatable(findTexts, "no likely map has values like these")},
    {Translatable(findTexts, "a pointer to it stands beside pointers to others"),
     Translatable(findTexts, "no row of pointers points to it")},
    {Translatable(findTexts, "another likely map lies beside it"),
     Translatable(findTexts, "no likely map lies near it")},
}};

std::string LocationText(const char *told, const char *unknown,
                         const std::optional<TSharedHeader> &header) {
    if (!header)
        return Translated(findTexts, unknown);
    std::array<char, 4> digits{};
    std::snprintf(digits.data(), digits.size(), "%02X", unsigned{header->location});
    return Filled(Translated(findTexts, told),
                  {digits.data(), std::to_string(header->maps), std::to_string(header->ofMaps)});
}

} // namespace

std::string KindText(const TFoundMap &map) {
    const bool fuel = map.contents == TMapContents::Fuel;
    switch (map.kind) {
    case TMapKind::PT:
        return fuel ? Translated(findTexts, "Fuel, part throttle")
                    : Translated(findTexts, "Timing, part throttle");
    case TMapKind::Idle:
        return fuel ? Translated(findTexts, "Fuel, idle") : Translated(findTexts, "Timing, idle");
    case TMapKind::WOT:
        break;
    }
    return fuel ? Translated(findTexts, "Fuel, full throttle")
                : Translated(findTexts, "Timing, full throttle");
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
            reasons.push_back({Translated(findTexts, points > 0 ? features[i].speaksFor
                                                                : features[i].speaksAgainst),
                               points});
    }
    std::ranges::stable_sort(reasons, [](const TReason &one, const TReason &other) {
        return std::abs(one.points) > std::abs(other.points);
    });
    return reasons;
}

std::string RpmLocationText(const TFoundMaps &found) {
    return LocationText(Translatable(findTexts, "RPM in RAM cell $%1: %2 of %3 likely maps"),
                        Translatable(findTexts, "RAM cell of RPM: cannot tell"), found.rpmLocation);
}

std::string LoadLocationText(const TFoundMaps &found) {
    return LocationText(Translatable(findTexts, "Load in RAM cell $%1: %2 of %3 likely maps"),
                        Translatable(findTexts, "RAM cell of load: cannot tell"),
                        found.loadLocation);
}
