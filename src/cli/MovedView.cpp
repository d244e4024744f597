#include "cli/MovedView.h"

#include "cli/MapNames.h"
#include "discovery/MovedTexts.h"
#include "model/Numbers.h"

namespace {
/// What is said of a map, and of the rev limiter.
struct TMovedThing {
    std::string name;
    std::optional<std::uint32_t> known;
    std::optional<std::uint32_t> offset;
    TSureness sureness;
    const std::vector<TMovedReason> &reasons;
};

std::vector<TMovedThing> Things(const TMovedMaps &moved, const TKnownImage &known) {
    std::vector<TMovedThing> things;
    for (std::size_t i = 0; i < moved.maps.size(); ++i) {
        const TMovedMap &map = moved.maps[i];
        things.push_back({NameOf(allMaps[i]), known.maps[i],
                          map.place ? std::optional(map.place->offset) : std::nullopt, map.sureness,
                          map.reasons});
    }
    const TMovedByte &limiter = moved.revLimiter;
    things.push_back({"rev-limiter", known.revLimiter, limiter.offset,
                      limiter.offset ? TSureness::Sure : TSureness::NotFound, limiter.reasons});
    return things;
}

std::string PlaceText(const std::optional<std::uint32_t> &offset) {
    return offset ? FormatOffset(static_cast<std::int32_t>(*offset)) : "no place";
}

TJson PlaceJson(const std::optional<std::uint32_t> &offset) {
    return offset ? TJson(*offset) : TJson(nullptr);
}

const char *SurenessName(TSureness sureness) {
    if (sureness == TSureness::NotFound)
        return "not_found";
    return sureness == TSureness::Sure ? "sure" : "unsure";
}

TJson ThingJson(const TMovedThing &thing) {
    TJson reasons = TJson::array();
    for (const TMovedReason &reason : thing.reasons)
        reasons.push_back(ReasonText(reason));
    return {{"name", thing.name},
            {"known_offset", PlaceJson(thing.known)},
            {"offset", PlaceJson(thing.offset)},
            {"sureness", SurenessName(thing.sureness)},
            {"reasons", std::move(reasons)}};
}
} // namespace

std::string MovedText(const TMovedMaps &moved, const TKnownImage &known) {
    std::string text;
    for (const TMovedThing &thing : Things(moved, known)) {
        text += thing.name + ": " + SurenessText(thing.sureness) + ": " + PlaceText(thing.known) +
                " -> " + PlaceText(thing.offset) + '\n';
        for (const TMovedReason &reason : thing.reasons)
            text += "  " + ReasonText(reason) + '\n';
    }
    return text;
}

void AddMoved(TJson &json, const TMovedMaps &moved, const TKnownImage &known) {
    const std::vector<TMovedThing> things = Things(moved, known);
    json["maps"] = TJson::array();
    for (std::size_t i = 0; i < moved.maps.size(); ++i)
        json["maps"].push_back(ThingJson(things[i]));
    json["rev_limiter"] = ThingJson(things.back());
}
