#include "discovery/FindPageTexts.h"

#include "discovery/FindTexts.h"
#include "filedisplay/ContentsTexts.h"
#include "model/Numbers.h"
#include "system/Texts.h"

namespace {
/// "64 KiB", or bytes where it is no whole number of them.
std::string SizeText(std::size_t size) {
    constexpr std::size_t kibibyte = 1024;
    return size % kibibyte == 0
               ? Filled(Translated("FindPageTexts", "%1 KiB"), {std::to_string(size / kibibyte)})
               : Filled(Translated("FindPageTexts", "%1 bytes"), {std::to_string(size)});
}

/// Of a search parameter.
std::string ParameterText(std::int32_t location) {
    return location < 0 ? Translated("TfrmKey", "(not specified)")
                        : Filled("%1 (%2)", {std::to_string(location),
                                             HexByte(static_cast<TCellValue>(location & 0xFF))});
}
} // namespace

std::string LikelyText(const TFoundMaps &found, std::size_t size) {
    const std::string text =
        found.likely == 0   ? Translated("FindPageTexts", "No likely map was found in %2")
        : found.likely == 1 ? Translated("FindPageTexts", "1 likely map in %2")
                            : Translated("FindPageTexts", "%1 likely maps in %2");
    return Filled(text, {std::to_string(found.likely), SizeText(size)});
}

std::string FoundText(const TFoundMaps &found, std::size_t size) {
    if (size == 0)
        return NoImageIsLoaded();
    const std::string likely = LikelyText(found, size);
    const std::size_t others = found.maps.size() - found.likely;
    if (others == 0)
        return likely;
    const std::string below = others == 1
                                  ? Translated("FindPageTexts", "1 less likely one below")
                                  : Translated("FindPageTexts", "%1 less likely ones below");
    return likely + "; " + Filled(below, {std::to_string(others)});
}

std::string LocationsText(const TFoundMaps &found) {
    if (found.likely == 0)
        return {};
    return RpmLocationText(found) + ". " + LoadLocationText(found);
}

std::vector<std::string> ReasonTexts(const TFoundMap &map) {
    std::vector<std::string> texts;
    for (const TReason &reason : Reasons(map))
        texts.push_back(Filled(reason.points > 0 ? Translated("FindPageTexts", "For it: %1")
                                                 : Translated("FindPageTexts", "Against it: %1"),
                               {reason.text}));
    return texts;
}

std::string DetailsText(const TFoundMap &map) {
    std::string text =
        Filled(Translated("FindPageTexts", "%1 at %2, %3: %4"),
               {KindText(map), FormatOffset(static_cast<std::int32_t>(map.place.offset)),
                ShapeText(map.place), ChanceText(map)});
    for (const std::string &reason : ReasonTexts(map))
        text += '\n' + reason;
    return text;
}

std::string GivenText(const std::vector<TNotebookMap> &missing) {
    if (missing.empty())
        return Translated("FindPageTexts", "All six maps of the notebook have their places now");
    std::string names;
    for (const TNotebookMap &map : missing)
        names += (names.empty() ? "" : ", ") + MapName(map.contents, map.kind);
    return Filled(Translated("FindPageTexts", "Maps given: %1; not found, and left alone: %2"),
                  {std::to_string(notebookMaps.size() - missing.size()), names});
}

std::string UsedText(const TSearchParameters &parameters) {
    return Filled(Translated("FindPageTexts",
                             "The searches look for the RAM locations %1 of RPM and %2 of load"),
                  {ParameterText(parameters.rpmLocation), ParameterText(parameters.loadLocation)});
}
