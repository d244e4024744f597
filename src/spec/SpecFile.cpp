#include "spec/SpecFile.h"

#include "system/Files.h"
#include "system/PlainText.h"
#include "system/ReadFile.h"
#include "system/SafeFile.h"

#include <algorithm>
#include <exception>
#include <system_error>

namespace fs = std::filesystem;

namespace {

constexpr std::string_view mainSection = "Main";
constexpr std::string_view fuelSection = "Fuel Maps";
constexpr std::string_view timingSection = "Timing Maps";
constexpr std::string_view otherSection = "Other Maps";
constexpr std::string_view revLimitKey = "revlimit_offset";

bool IsSpecFile(const fs::path &path) {
    constexpr std::string_view ending = ".spc";
    const std::string name = LastPart(path);
    return name.size() >= ending.size() &&
           SameName(std::string_view(name).substr(name.size() - ending.size()), ending) &&
           IsFile(path);
}

// Nothing for a file that is not to be listed.
std::optional<std::string> Label(const fs::path &path) {
    std::string text;
    try {
        text = ToUtf8(ReadFirstLine(path, maxIniFileSize));
    } catch (const EFileError &) {
        return std::nullopt;
    }
    std::string_view label = Trim(text);
    if (label.empty())
        return std::nullopt;
    if (label.starts_with('[')) {
        text = ToUtf8(LastPart(path));
        label = text;
    }
    if (label.starts_with(';'))
        label.remove_prefix(1);
    return std::string(FirstCharacters(Trim(label), maxSpecLabelLength));
}

std::int32_t ReadStrict(const TIniFile &ini, std::string_view section, std::string_view key,
                        std::string_view fallback) {
    return ParseInteger(ini.ReadString(section, key, fallback));
}

// The rev limiter's offset is absolute in both forms: no primary offset is added.
void PlaceRevLimiter(const TIniFile &ini, TFuelMapSet &fuelMaps) {
    fuelMaps.revLimiter.SetOffset(ReadStrict(ini, otherSection, revLimitKey, "0"));
}

// A map that cannot be placed is left empty; it is no error of the spec file.
template <class Placing>
void Quietly(Placing place) {
    try {
        place();
    } catch (const std::exception &) {
    }
}

void SetPointers(TMapSet &maps, const TMapPointers &at) {
    maps.SetPointers(at.pt, at.bitmask, at.idle, at.bitmask, at.wot, at.bitmask);
}

bool PlaceThroughPointers(const TIniFile &ini, std::int32_t primary, TFuelMapSet &fuelMaps,
                          TTimingMapSet &timingMaps) {
    const auto fuel =
        ReadMapPointers(ini, mainSection, "fuelmap_pt_pointer_offset", "fuelmap_id_pointer_offset",
                        "fuelmap_wot_pointer_offset", primary);
    const auto timing =
        ReadMapPointers(ini, mainSection, "timingmap_pt_pointer_offset",
                        "timingmap_id_pointer_offset", "timingmap_wot_pointer_offset", primary);
    if (!fuel || !timing)
        return false;
    PlaceRevLimiter(ini, fuelMaps);
    fuelMaps.ZeroMaps();
    timingMaps.ZeroMaps();
    Quietly([&] {
        SetPointers(fuelMaps, *fuel);
        SetPointers(timingMaps, *timing);
    });
    return true;
}

void WriteSection(std::string &ini, std::string_view name) {
    ini.append("[").append(name).append("]\n");
}

void WriteOffset(std::string &ini, std::string_view key, std::int32_t offset) {
    ini.append(key).append("=").append(FormatOffset(offset)).append("\n");
}

} // namespace

TSpecScan ScanSpecFiles(const fs::path &folder) {
    TSpecScan scan;
    std::error_code error;
    LookThrough(folder, error, [&](const fs::path &file) {
        if (!IsSpecFile(file))
            return true;
        scan.moreRemain = scan.entries.size() == maxSpecFiles;
        if (scan.moreRemain)
            return false;
        if (auto label = Label(file))
            scan.entries.push_back({std::move(*label), file});
        return true;
    });
    return scan;
}

std::optional<TMapOffsets> ReadMapOffsets(const TIniFile &ini, std::string_view section,
                                          std::string_view ptKey, std::string_view idleKey,
                                          std::string_view wotKey) {
    try {
        return TMapOffsets{ReadStrict(ini, section, ptKey, "0"),
                           ReadStrict(ini, section, idleKey, "0"),
                           ReadStrict(ini, section, wotKey, "0")};
    } catch (const EConvertError &) {
        return std::nullopt;
    }
}

std::optional<TMapPointers> ReadMapPointers(const TIniFile &ini, std::string_view section,
                                            std::string_view ptKey, std::string_view idleKey,
                                            std::string_view wotKey, std::int32_t primary) {
    const auto relative = ReadMapOffsets(ini, section, ptKey, idleKey, wotKey);
    const auto bitmask = TryParseInteger(ini.ReadString(section, "bitmask", "15"));
    if (!relative || !bitmask)
        return std::nullopt;
    // Users may enter any two numbers.
    return TMapPointers{WrappingSum(relative->pt, primary), WrappingSum(relative->idle, primary),
                        WrappingSum(relative->wot, primary), *bitmask};
}

bool PlaceDirectly(const TIniFile &ini, TFuelMapSet &fuelMaps, TTimingMapSet &timingMaps) {
    const auto fuel = ReadMapOffsets(ini, fuelSection, "pt_offset", "idle_offset", "wot_offset");
    const auto timing =
        ReadMapOffsets(ini, timingSection, "pt_offset", "idle_offset", "wot_offset");
    if (!fuel || !timing)
        return false;
    PlaceRevLimiter(ini, fuelMaps);
    // The sets are not zeroed first, for spec files that name only what differs from the one chosen
    // before (docs/peculiarities.md).
    Quietly([&] {
        fuelMaps.SetOffsets(fuel->pt, fuel->idle, fuel->wot);
        timingMaps.SetOffsets(timing->pt, timing->idle, timing->wot);
    });
    return true;
}

bool PlaceFromSpec(const TIniFile &ini, TFuelMapSet &fuelMaps, TTimingMapSet &timingMaps) {
    constexpr std::int32_t none = -1;
    const std::int32_t primary = ini.ReadInteger(mainSection, "primary_offset", none);
    return primary == none ? PlaceDirectly(ini, fuelMaps, timingMaps)
                           : PlaceThroughPointers(ini, primary, fuelMaps, timingMaps);
}

void ReadTimingConstants(const TIniFile &ini) {
    const auto read = [&](std::string_view key, const std::string &fallback) {
        return ParseReal(ini.ReadString(mainSection, key, fallback));
    };
    TimingConstants().divider = read("timing_divider", FormatReal("0.00", usualTiming.divider));
    TimingConstants().subtractor =
        read("timing_subtractor", FormatReal("0.0", usualTiming.subtractor));
}

void WriteMapOffsets(std::string &ini, const TMapSet &mapSet, std::string_view section,
                     std::string_view ptKey, std::string_view idleKey, std::string_view wotKey) {
    WriteSection(ini, section);
    WriteOffset(ini, ptKey, mapSet.PTMap->GetLocation());
    WriteOffset(ini, idleKey, mapSet.IdleMap->GetLocation());
    WriteOffset(ini, wotKey, mapSet.WOTMap->GetLocation());
}

std::string NewSpecFile(std::string label, const TFuelMapSet &fuelMaps,
                        const TTimingMapSet &timingMaps) {
    std::replace_if(
        label.begin(), label.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
    std::string ini = "; " + label + '\n';
    WriteMapOffsets(ini, fuelMaps, fuelSection, "pt_offset", "idle_offset", "wot_offset");
    WriteMapOffsets(ini, timingMaps, timingSection, "pt_offset", "idle_offset", "wot_offset");
    WriteSection(ini, otherSection);
    // An unplaced rev limiter is written as $FFFFFFFF, which reads back as not placed.
    WriteOffset(ini, revLimitKey, fuelMaps.revLimiter.offset);
    return ini;
}

void SaveNewSpecFile(const fs::path &path, const std::string &label, const TFuelMapSet &fuelMaps,
                     const TTimingMapSet &timingMaps) {
    const std::string ini = NewSpecFile(label, fuelMaps, timingMaps);
    WriteFileSafely(path, std::vector<std::uint8_t>(ini.begin(), ini.end()));
}
