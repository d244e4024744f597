#include "discovery/MovedTexts.h"

#include "model/Numbers.h"
#include "system/Texts.h"

#include <cstdlib>

namespace {
constexpr auto movedContext = "MovedTexts";

/// With "%1" and "%2" for the numbers of a fact.
const char *Sentence(TMovedFact fact) {
    switch (fact) {
    case TMovedFact::NotPlaced:
        return Translatable("MovedTexts", "The known image has no place for it.");
    case TMovedFact::NoForm:
        return Translatable("MovedTexts", "What the known image has at its place is no map.");
    case TMovedFact::NoneOfForm:
        return Translatable("MovedTexts", "No place here has its form: %1 x %2 points.");
    case TMovedFact::NoneAlike:
        return Translatable("MovedTexts", "Of the places with its form none resembles it: %1.");
    case TMovedFact::TooManyAlike:
        return Translatable("MovedTexts", "Too many places resemble it.");
    case TMovedFact::GivenAway:
        return Translatable("MovedTexts", "The place most like it is another map's: %1.");
    case TMovedFact::Steps:
        return Translatable("MovedTexts", "Axis steps that are equal: %1 of %2.");
    case TMovedFact::Headers:
        return Translatable("MovedTexts", "RAM locations that are equal: %1 of %2.");
    case TMovedFact::Values:
        return Translatable("MovedTexts", "Values that are equal: %1 of %2.");
    case TMovedFact::Shifted:
        return Translatable("MovedTexts", "All values differ by about the same amount.");
    case TMovedFact::Scaled:
        return Translatable("MovedTexts", "All values differ by about the same share.");
    case TMovedFact::Around:
        return Translatable("MovedTexts", "Bytes around it that are equal: %1.");
    case TMovedFact::Pointers:
        return Translatable("MovedTexts", "Pointers lead to it as in the known image.");
    case TMovedFact::Together:
        return Translatable("MovedTexts", "Other maps that moved by its distance (%2): %1.");
    case TMovedFact::Alone:
        return Translatable("MovedTexts", "No other map moved by its distance (%1).");
    case TMovedFact::OtherAxes:
        return Translatable("MovedTexts", "The axes differ much.");
    case TMovedFact::OtherValues:
        return Translatable("MovedTexts", "The values differ much.");
    case TMovedFact::LittleToTell:
        return Translatable("MovedTexts", "Too little of it, or of what is around it, is equal.");
    case TMovedFact::Rival:
        return Translatable("MovedTexts", "Another place resembles it too: %1.");
    case TMovedFact::KnownRival:
        return Translatable("MovedTexts", "The known image has a map that is as like: %1.");
    case TMovedFact::ByteAround:
        return Translatable("MovedTexts", "Bytes around it that are equal: %1 of %2.");
    case TMovedFact::ByteInFilling:
        return Translatable("MovedTexts", "The bytes around it are a filling.");
    case TMovedFact::ByteNotAlone:
        return Translatable("MovedTexts", "The bytes around it stand in several places.");
    default:
        return Translatable("MovedTexts", "The bytes around it stand nowhere here.");
    }
}

std::string OffsetText(std::int64_t offset) {
    return FormatOffset(static_cast<std::int32_t>(offset));
}

/// "+$0120"
std::string DistanceText(std::int64_t distance) {
    return (distance < 0 ? "-" : "+") + OffsetText(std::abs(distance));
}
} // namespace

std::string SurenessText(TSureness sureness) {
    switch (sureness) {
    case TSureness::Sure:
        return Translated("MovedTexts", "sure");
    case TSureness::Unsure:
        return Translated("MovedTexts", "unsure");
    default:
        return Translated("MovedTexts", "not found");
    }
}

std::string ReasonText(const TMovedReason &reason) {
    std::string first = std::to_string(reason.first);
    std::string second = std::to_string(reason.second);
    switch (reason.fact) {
    case TMovedFact::GivenAway:
    case TMovedFact::Rival:
    case TMovedFact::KnownRival:
        first = OffsetText(reason.first);
        break;
    case TMovedFact::Alone:
        first = DistanceText(reason.first);
        break;
    case TMovedFact::Together:
        second = DistanceText(reason.second);
        break;
    default:
        break;
    }
    return Filled(Translated(movedContext, Sentence(reason.fact)), {first, second});
}

std::string ReasonsText(const std::vector<TMovedReason> &reasons) {
    std::string text;
    for (const TMovedReason &reason : reasons)
        text += (text.empty() ? "" : "\n") + ReasonText(reason);
    return text;
}
