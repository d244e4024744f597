// Fuzz target: spec files. Any text is listed under a label, read by TIniFile as by a plain reader
// here, placed on an image as it says or not at all, and what Save Spec would write of that
// placement leads back to the same places.
//
// The input: one byte of flags (1: comma as decimal separator, 2: an image of large bytes), one
// byte with the length of a label, the label, then the text of the spec file.
#include "spec/SpecFile.h"

#include "FuzzInput.h"
#include "support/TemporaryFolder.h"
#include "system/PlainText.h"

#include <array>
#include <cstring>
#include <memory>
#include <sstream>

namespace {

using TLocations = std::array<std::int32_t, 6>;
using TLines = std::vector<std::string>;

constexpr std::array<TMapKind, 3> kinds{TMapKind::PT, TMapKind::Idle, TMapKind::WOT};
constexpr TLocations oldPlaces{0x100, 0x200, 0x300, 0x400, 0x500, 0x600};
constexpr std::int32_t oldRevPlace = 0x50;
constexpr std::array directKeys{"pt_offset", "idle_offset", "wot_offset"};
constexpr std::array pointerKeys{"fuelmap_pt_pointer_offset",   "fuelmap_id_pointer_offset",
                                 "fuelmap_wot_pointer_offset",  "timingmap_pt_pointer_offset",
                                 "timingmap_id_pointer_offset", "timingmap_wot_pointer_offset"};

std::string Trimmed(const std::string &text) {
    std::size_t first = 0;
    std::size_t last = text.size();
    while (first < last && static_cast<unsigned char>(text[first]) <= ' ')
        ++first;
    while (last > first && static_cast<unsigned char>(text[last - 1]) <= ' ')
        --last;
    return text.substr(first, last - first);
}

TLines LinesOf(const std::string &text) {
    TLines lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

std::string Lower(std::string text) {
    for (char &c : text)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return text;
}

/// What the key of a section holds, read as plainly as can be.
std::string LiteralValue(const TLines &lines, const std::string &section, const std::string &key,
                         const std::string &fallback) {
    bool inside = false;
    bool seen = false;
    for (const std::string &raw : lines) {
        const std::string line = Trimmed(raw);
        const std::size_t bracket = line.find(']');
        const std::size_t equals = line.find('=');
        if (line.starts_with('[') && bracket != std::string::npos) {
            inside = !seen && Lower(Trimmed(line.substr(1, bracket - 1))) == Lower(section);
            seen = seen || inside;
        } else if (inside && equals != std::string::npos &&
                   Lower(Trimmed(line.substr(0, equals))) == key) {
            const std::string value = Trimmed(line.substr(equals + 1));
            const bool quoted = value.size() > 1 && value.front() == value.back() &&
                                (value.front() == '"' || value.front() == '\'');
            return quoted ? value.substr(1, value.size() - 2) : value;
        }
    }
    return fallback;
}

std::size_t Characters(const std::string &utf8) {
    std::size_t count = 0;
    for (const char c : utf8)
        count += (static_cast<unsigned char>(c) & 0xC0) != 0x80 ? 1U : 0U;
    return count;
}

/// The image that is read, with a copy of its bytes.
class TFuzzImage {
public:
    explicit TFuzzImage(bool largeBytes) : image_(std::make_unique<TROMImage>()) {
        std::uint32_t random = 1;
        for (std::uint8_t &byte : image_->data) {
            random = random * 1664525 + 1013904223;
            byte = static_cast<std::uint8_t>((random >> 24) % (largeBytes ? 256 : 24));
        }
        before_ = std::make_unique<TROMImage>(*image_);
    }
    /// Puts it into the process's place, or takes it back.
    void Exchange() { image_ = ExchangeROMImage(std::move(image_)); }
    bool Changed() const {
        const auto &data = ROMImage()->data;
        return std::memcmp(data.data(), before_->data.data(), data.size()) != 0;
    }

private:
    std::unique_ptr<TROMImage> image_;
    std::unique_ptr<TROMImage> before_;
};

/// Both map sets, placed somewhere before anything is read.
struct TSets {
    TSets() {
        fuel.SetOffsets(oldPlaces[0], oldPlaces[1], oldPlaces[2]);
        timing.SetOffsets(oldPlaces[3], oldPlaces[4], oldPlaces[5]);
        fuel.revLimiter.SetOffset(oldRevPlace);
    }
    TMap &Map(std::size_t index) {
        TMapSet &set = index < 3 ? static_cast<TMapSet &>(fuel) : timing;
        return set.Map(kinds[index % 3]);
    }

    TFuelMapSet fuel;
    TTimingMapSet timing;
};

/// What a text asks for, worked out by the plain reader.
struct TAsked {
    bool readable = true; ///< no map offset, pointer offset or mask is anything but an integer
    bool throughPointers = false;
    TLocations locations = oldPlaces;
    std::optional<std::int32_t> revLimiter; ///< nothing for a text that is no integer
};

std::int32_t Wrapped(std::int64_t value) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}

TAsked Ask(const TLines &lines) {
    TAsked asked;
    const auto integer = [&](const char *section, const char *key, const char *fallback) {
        const auto value = TryParseInteger(LiteralValue(lines, section, key, fallback));
        asked.readable = asked.readable && value;
        return value.value_or(0);
    };
    const std::int32_t primary =
        ParseIntegerOr(LiteralValue(lines, "Main", "primary_offset", ""), -1);
    asked.throughPointers = primary != -1;
    const std::int32_t mask = asked.throughPointers ? integer("Main", "bitmask", "15") : 0;
    for (std::size_t i = 0; i < 6; ++i) {
        if (!asked.throughPointers) {
            asked.locations[i] =
                integer(i < 3 ? "Fuel Maps" : "Timing Maps", directKeys[i % 3], "0");
            continue;
        }
        const std::int32_t place =
            Wrapped(std::int64_t{integer("Main", pointerKeys[i], "0")} + primary);
        // No place at all is what a directly placed map has: it stays one.
        if (place != -1)
            asked.locations[i] = (PeekROM(place) & mask) * 256 + PeekROM(std::int64_t{place} + 1);
    }
    asked.revLimiter = TryParseInteger(LiteralValue(lines, "Other Maps", "revlimit_offset", "0"));
    return asked;
}

void Place(const TIniFile &ini, const TAsked &asked, TSets &sets) {
    bool placed = false;
    bool failed = false;
    try {
        placed = PlaceFromSpec(ini, sets.fuel, sets.timing);
    } catch (const EConvertError &) {
        failed = true;
    }
    Demand(failed == (asked.readable && !asked.revLimiter), "another rev limiter error");
    Demand(placed == (asked.readable && asked.revLimiter.has_value()), "another answer of placing");
    Demand(sets.fuel.revLimiter.offset == (placed ? *asked.revLimiter : oldRevPlace),
           "another place of the rev limiter");
    for (std::size_t i = 0; i < 6; ++i) {
        const TMap &map = sets.Map(i);
        const std::int32_t location = placed ? asked.locations[i] : oldPlaces[i];
        Demand(map.GetLocation() == location, "another location of map " + std::to_string(i));
        const bool stays = placed && !asked.throughPointers && location == 0;
        Demand(map.axes->offset == (stays ? oldPlaces[i] : location),
               "another place of map " + std::to_string(i));
    }
}

void ReadConstants(const TIniFile &ini, const TLines &lines, bool comma) {
    const auto real = [&](const char *key, const char *point, const char *withComma) {
        return TryParseReal(LiteralValue(lines, "Main", key, comma ? withComma : point));
    };
    const auto divider = real("timing_divider", "0.65", "0,65");
    const auto subtractor = real("timing_subtractor", "12.7", "12,7");
    TimingConstants() = {1.5, 2.5};
    bool failed = false;
    try {
        ReadTimingConstants(ini);
    } catch (const EConvertError &) {
        failed = true;
    }
    Demand(failed == (!divider || !subtractor), "another error of the timing constants");
    Demand(TimingConstants().divider == divider.value_or(1.5), "another timing divider");
    Demand(TimingConstants().subtractor == (divider ? subtractor.value_or(2.5) : 2.5),
           "another timing subtractor");
}

void Scan(const std::filesystem::path &folder, const std::string &firstLine) {
    const std::string first = Trimmed(firstLine);
    const TSpecScan scan = ScanSpecFiles(folder);
    Demand(scan.entries.size() == (first.empty() ? 0U : 1U) && !scan.moreRemain,
           "another list of spec files");
    if (first.empty())
        return;
    const std::string whole =
        Trimmed(first.starts_with('[') ? "fuzz.SPC" : first.substr(first.starts_with(';') ? 1 : 0));
    const std::string &label = scan.entries.front().label;
    const std::size_t length = Characters(label);
    Demand(whole.starts_with(label) && (length == 40 || (length < 40 && label == whole)) &&
               ToUtf8(";" + label) == ";" + label,
           "another label: " + label);
}

std::string Hex(std::int32_t offset) {
    std::array<char, 12> text{};
    std::snprintf(text.data(), text.size(), "$%04X", static_cast<unsigned>(offset));
    return text.data();
}

/// What is written of a placement, read back on fresh sets.
void WriteAndReadBack(const std::string &label, TSets &sets) {
    std::string expected;
    for (std::size_t i = 0; i < 6; ++i) {
        if (i % 3 == 0)
            expected += i == 0 ? "[Fuel Maps]\n" : "[Timing Maps]\n";
        expected += directKeys[i % 3] + ("=" + Hex(sets.Map(i).GetLocation())) + "\n";
    }
    expected += "[Other Maps]\nrevlimit_offset=" + Hex(sets.fuel.revLimiter.offset) + "\n";
    const std::string text = NewSpecFile(label, sets.fuel, sets.timing);
    Demand(text.starts_with("; ") && text.substr(text.find('\n') + 1) == expected,
           "another text is written:\n" + text);

    TFuelMapSet fuel;
    TTimingMapSet timing;
    Demand(PlaceFromSpec(TIniFile(text), fuel, timing), "what is written does not read back");
    Demand(fuel.revLimiter.offset == sets.fuel.revLimiter.offset, "the rev limiter has moved");
    for (std::size_t i = 0; i < 6; ++i) {
        const TMap &now = (i < 3 ? static_cast<TMapSet &>(fuel) : timing).Map(kinds[i % 3]);
        const TMap &before = sets.Map(i);
        Demand(now.GetLocation() == before.GetLocation(), "a location has moved");
        Demand(now.GetLocation() == 0 || (now.axes->length == before.axes->length &&
                                          now.data->offset == before.data->offset &&
                                          now.data->rows == before.data->rows &&
                                          now.data->columns == before.data->columns),
               "a map has another shape");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const TTemporaryFolder folder;
    static TFuzzImage smallBytes(false);
    static TFuzzImage largeBytes(true);
    SetMessageHook({});
    TFuzzInput input(data, size);
    const std::uint8_t flags = input.Byte();
    const std::uint8_t length = input.Byte();
    const std::string label = input.Text(length & 15);
    const std::string bytes = input.Rest();
    const bool comma = (flags & 1) != 0;
    SetDecimalSeparator(comma ? "," : ".");
    TFuzzImage &image = (flags & 2) != 0 ? largeBytes : smallBytes;
    image.Exchange();

    const std::string text = ToUtf8(bytes);
    const TLines lines = LinesOf(text);
    PutFile(folder / "fuzz.SPC", {bytes.begin(), bytes.end()});
    Scan(folder.Path(), ToUtf8(bytes.substr(0, bytes.find('\n'))));
    const TIniFile ini = TIniFile::Load(folder / "fuzz.SPC");
    TSets sets;
    Place(ini, Ask(lines), sets);
    ReadConstants(ini, lines, comma);
    WriteAndReadBack(label, sets);
    Demand(!image.Changed(), "reading has changed the image");
    image.Exchange();
    return 0;
}
