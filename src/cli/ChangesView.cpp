#include "cli/ChangesView.h"

#include "changes/ChangesTexts.h"
#include "cli/CellNames.h"
#include "cli/MapNames.h"
#include "model/Numbers.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {
constexpr std::size_t mostBytes = 16; ///< of a run, in the text for people

std::string At(std::uint32_t offset) {
    return FormatOffset(static_cast<std::int32_t>(offset));
}

/// A value in units, as a map of this image has it.
double ValueIn(const TMappedImage &image, TMapId map, const TCellChange &cell, std::uint8_t byte) {
    double value = 0;
    image.InForce([&] { value = ShownValue(MapOf(image.Maps(), map), cell, byte, true); });
    return value;
}

struct TCellSides {
    TCellSide before;
    TCellSide after;
};

TCellSides SidesOf(const TExported &images, TMapId map, const TCellChange &cell) {
    return {{ValueIn(images.before, map, cell, cell.byte.before), cell.byte.before},
            {ValueIn(images.after, map, cell, cell.byte.after), cell.byte.after}};
}

std::string AxisByteText(const TByteDifference &byte) {
    return At(byte.offsetAfter) + ": " + std::to_string(byte.after) + " here, " +
           std::to_string(byte.before) + " there" +
           (byte.offsetAfter == byte.offsetBefore ? "" : " at " + At(byte.offsetBefore));
}

std::string MapLinesText(const TMapChanges &changes, const TExported &images) {
    const TMap &here = MapOf(images.after.Maps(), changes.map);
    const std::string whole = MapText(changes, here, MapOf(images.before.Maps(), changes.map));
    if (whole.empty())
        return {};
    std::string text = NameOf(changes.map) + ": " + whole + '\n';
    for (const TByteDifference &byte : changes.axes)
        text += "  " + AxisByteText(byte) + '\n';
    for (const TCellChange &cell : changes.cells) {
        const TCellSides sides = SidesOf(images, changes.map, cell);
        text += "  " + CellName(changes.map, here, cell.rpmPoint + 1, cell.loadPoint + 1) + ": " +
                CellText(sides.after, sides.before, here.convertedFormat) + '\n';
    }
    return text;
}

std::string ElsewhereLines(const std::vector<TByteRun> &runs, const TExported &images) {
    if (runs.empty())
        return {};
    std::string text = "elsewhere: " + ElsewhereText(runs) + '\n';
    for (const auto &[offset, length] : runs)
        text += "  " + At(offset) + ": " +
                HexText(images.after.Bytes().subspan(offset, length), mostBytes) + " here, " +
                HexText(images.before.Bytes().subspan(offset, length), mostBytes) + " there\n";
    return text;
}

const char *MatchName(TMatch match) {
    constexpr std::array<const char *, 6> names{"same",        "other_axes", "other_shape",
                                                "only_before", "only_after", "none"};
    return names[static_cast<std::size_t>(match)];
}

TJson ByteJson(const TByteDifference &byte) {
    return {{"offset_before", byte.offsetBefore},
            {"offset_after", byte.offsetAfter},
            {"raw_before", byte.before},
            {"raw_after", byte.after}};
}

/// As it is shown.
double Rounded(const std::string &picture, double value) {
    return TryParseReal(FormatReal(picture, value)).value_or(value);
}

TJson CellJson(TMapId map, const TCellChange &cell, const TExported &images) {
    const TMap &here = MapOf(images.after.Maps(), map);
    const TCellSides sides = SidesOf(images, map, cell);
    TJson json{{"cell", CellName(map, here, cell.rpmPoint + 1, cell.loadPoint + 1)},
               {"column", cell.rpmPoint + 1},
               {"row", cell.loadPoint + 1},
               {"before", Rounded(here.convertedFormat, sides.before.value)},
               {"after", Rounded(here.convertedFormat, sides.after.value)}};
    json.update(ByteJson(cell.byte));
    return json;
}

TJson MapChangesJson(const TMapChanges &changes, const TExported &images) {
    TJson json{{"name", NameOf(changes.map)},
               {"match", MatchName(changes.match)},
               {"cells", TJson::array()},
               {"axes", TJson::array()}};
    for (const TCellChange &cell : changes.cells)
        json["cells"].push_back(CellJson(changes.map, cell, images));
    for (const TByteDifference &byte : changes.axes)
        json["axes"].push_back(ByteJson(byte));
    return json;
}

TJson RunJson(const TByteRun &run, const TExported &images) {
    return {{"offset", run.offset},
            {"raw_before", images.before.Bytes().subspan(run.offset, run.length)},
            {"raw_after", images.after.Bytes().subspan(run.offset, run.length)}};
}
} // namespace

bool AnyDiffers(const TImageChanges &changes) {
    const auto differs = [](const TMapChanges &map) {
        return map.Any() || (map.match != TMatch::Same && map.match != TMatch::None);
    };
    return !changes.runs.empty() || changes.sizeBefore != changes.sizeAfter || changes.revLimiter ||
           std::ranges::any_of(changes.maps, differs);
}

std::string ChangesText(const TImageChanges &changes, const TExported &images) {
    std::string text;
    for (const TMapChanges &map : changes.maps)
        text += MapLinesText(map, images);
    if (changes.revLimiter)
        text += "rev-limiter: " + RevLimiterText(*changes.revLimiter) + '\n';
    text += ElsewhereLines(changes.elsewhere, images);
    if (!text.empty())
        text = "here: " + images.nameAfter + "\nthere: " + images.nameBefore + '\n' + text;
    return text + TotalText(changes, images.nameBefore) + '\n';
}

void AddChanges(TJson &json, const TImageChanges &changes, const TExported &images) {
    json["before"] = {{"image", images.nameBefore}, {"size", changes.sizeBefore}};
    json["after"] = {{"image", images.nameAfter}, {"size", changes.sizeAfter}};
    json["differ"] = AnyDiffers(changes);
    json["bytes"] = BytesOf(changes.runs);
    json["maps"] = TJson::array();
    for (const TMapChanges &map : changes.maps)
        json["maps"].push_back(MapChangesJson(map, images));
    json["rev_limiter"] = changes.revLimiter ? ByteJson(*changes.revLimiter) : TJson(nullptr);
    json["elsewhere"] = TJson::array();
    for (const TByteRun &run : changes.elsewhere)
        json["elsewhere"].push_back(RunJson(run, images));
}
