#include "cli/Images.h"

#include "cli/MapNames.h"
#include "cli/WrongUse.h"
#include "maps/WhyNoMap.h"
#include "model/Numbers.h"
#include "spec/IniFile.h"
#include "system/PathText.h"
#include "system/ReadFile.h"

namespace {
/// Whether axes and body lie in the file.
bool LiesInFile(const TMap &map) {
    const std::int64_t end = std::int64_t{map.data->offset} + map.data->length;
    return map.axes->offset >= 0 && end <= ROMImage()->size;
}
/// Constants have a point, or the comma of the language in which somebody wrote the file.
bool PlaceInAnyLanguage(TMappedImage &image, const std::filesystem::path &spec) {
    try {
        return image.PlaceBySpec(spec);
    } catch (const EConvertError &) {
        const TSeparatorInForce comma(",");
        return image.PlaceBySpec(spec);
    }
}
} // namespace

std::vector<std::uint8_t> ReadImage(const std::filesystem::path &image) {
    std::vector<std::uint8_t> bytes = ReadWholeFile(image, TROMImage::capacity);
    if (bytes.empty())
        throw EWrongUse(PathText(image) + ": an image of 0 bytes has nothing in it");
    return bytes;
}

void PlaceMaps(TMappedImage &image, const std::filesystem::path &spec) {
    ReadFirstLine(spec, maxIniFileSize); // throws; one that is not there would read as empty
    bool placed = false;
    try {
        placed = PlaceInAnyLanguage(image, spec);
    } catch (const EConvertError &error) {
        throw EWrongUse(PathText(spec) + ": " + error.what());
    }
    if (!placed)
        throw EWrongUse(PathText(spec) + ": a map offset, pointer offset or mask is no integer");
}
TMappedImage ReadMappedImage(const std::filesystem::path &image, const std::filesystem::path &spec,
                             TShown shown) {
    TMappedImage mapped(ReadImage(image));
    PlaceMaps(mapped, spec);
    mapped.ShowUnits(shown == TShown::Units);
    return mapped;
}

std::string WhyUnusable(const TMap &map) {
    if (std::string reason = WhyNotShown(map); !reason.empty())
        return reason;
    if (!LiesInFile(map))
        return "it does not lie in the file: it is at " + FormatOffset(map.GetLocation());
    return {};
}

void NeedMap(const TMap &map, TMapId id, const std::string &name) {
    if (const std::string reason = WhyUnusable(map); !reason.empty())
        throw EWrongUse(name + ": " + NameOf(id) + ": " + reason);
}
