#include "maps/PasteBuffer.h"

#include "system/Texts.h"

namespace {
std::string KindName(TMapKind kind) {
    if (kind == TMapKind::PT)
        return Translated("PasteBuffer", "PT");
    return kind == TMapKind::Idle ? Translated("PasteBuffer", "Idle")
                                  : Translated("PasteBuffer", "WOT");
}
} // namespace

std::string WhyNoPaste(const TMap *buffered, const TMap &target, const std::string &setName,
                       TMapKind kind) {
    const auto problem = [&](const std::string &text) {
        return Filled(text, {setName, KindName(kind)});
    };
    if (!buffered)
        return problem(Translated("PasteBuffer", "No %1 %2 Map currently in paste buffer"));
    if (buffered->RPMCount() != target.RPMCount())
        return problem(
            Translated("PasteBuffer", "%1 %2 Map in paste buffer has different RPM axis count"));
    if (buffered->LoadCount() != target.LoadCount())
        return problem(
            Translated("PasteBuffer", "%1 %2 Map in paste buffer has different Load axis count"));
    return {};
}
