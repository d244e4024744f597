#include "truth/Report.h"

#include "discovery/FoundMaps.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <iomanip>

namespace {

constexpr std::size_t firstPlaces = 12;
constexpr double unit = 0x10000; // false finds are counted by 64 KiB

const TTrueMap *TruthAt(const TTruthImage &image, const TMapPlace &place) {
    const auto at = std::ranges::find(image.maps, place, &TTrueMap::place);
    return at == image.maps.end() ? nullptr : &*at;
}

/// The six that are named rightly, of those that the image has.
struct TTally {
    int images = 0;
    double bytes = 0;
    int trueMaps = 0;
    int amongFirst = 0;  ///< true ones among the first twelve places
    int likelyTrue = 0;  ///< true ones above the line
    int likelyFalse = 0; ///< false ones above the line
    int falseBefore = 0; ///< false ones in front of the last true one
    int rightKind = 0;   ///< true ones listed with their contents and kind
    int withFive = 0;    ///< images of five maps or more that share headers
    int rpmRight = 0;    ///< of those
    int loadRight = 0;
    int rpmWrong = 0; ///< of all images
    int loadWrong = 0;

    void Count(const TTruthImage &image, const TFoundMaps &found);
};

void TTally::Count(const TTruthImage &image, const TFoundMaps &found) {
    ++images;
    bytes += double(image.bytes.size());
    trueMaps += static_cast<int>(image.maps.size());
    int falseOnes = 0;
    int falseBeforeLast = 0;
    for (std::size_t i = 0; i < found.maps.size(); ++i) {
        const TTrueMap *truth = TruthAt(image, found.maps[i].place);
        if (!truth) {
            ++falseOnes;
            likelyFalse += i < found.likely ? 1 : 0;
            continue;
        }
        falseBeforeLast = falseOnes;
        amongFirst += i < firstPlaces ? 1 : 0;
        likelyTrue += i < found.likely ? 1 : 0;
        rightKind +=
            truth->contents == found.maps[i].contents && truth->kind == found.maps[i].kind ? 1 : 0;
    }
    falseBefore += falseBeforeLast;
    const auto right = [](const std::optional<TSharedHeader> &one,
                          const std::optional<std::uint8_t> &truth) {
        return one && truth && one->location == *truth;
    };
    rpmWrong += found.rpmLocation && !right(found.rpmLocation, image.rpmLocation) ? 1 : 0;
    loadWrong += found.loadLocation && !right(found.loadLocation, image.loadLocation) ? 1 : 0;
    if (image.maps.size() < 5 || !image.rpmLocation)
        return;
    ++withFive;
    rpmRight += right(found.rpmLocation, image.rpmLocation) ? 1 : 0;
    loadRight += right(found.loadLocation, image.loadLocation) ? 1 : 0;
}

double Percent(int part, int whole) {
    return whole == 0 ? 0 : 100.0 * part / whole;
}

void WriteTally(std::ostream &out, const std::string &name, const TTally &tally) {
    const double units = tally.bytes / unit;
    out << std::left << std::setw(14) << name << std::right << std::fixed << std::setprecision(1)
        << std::setw(7) << tally.images << std::setw(7) << tally.trueMaps << std::setw(9)
        << Percent(tally.amongFirst, tally.trueMaps) << std::setw(9)
        << Percent(tally.likelyTrue, tally.trueMaps) << std::setprecision(2) << std::setw(9)
        << tally.likelyFalse / units << std::setw(9) << tally.falseBefore / units
        << std::setprecision(1) << std::setw(9) << Percent(tally.rightKind, tally.trueMaps)
        << std::setw(8) << Percent(tally.rpmRight, tally.withFive) << std::setw(8)
        << Percent(tally.loadRight, tally.withFive) << std::setw(6) << tally.rpmWrong
        << std::setw(6) << tally.loadWrong << "\n";
}

} // namespace

void WriteReport(std::ostream &out, TCorpusHalf half, std::uint32_t images) {
    std::array<TTally, static_cast<std::size_t>(TFlavour::Count)> byFlavour;
    TTally all;
    TTally others;
    std::chrono::duration<double, std::milli> time{};
    const auto find = [&](const TTruthImage &image) {
        const auto start = std::chrono::steady_clock::now();
        TFoundMaps found = FindMaps(image.bytes);
        time += std::chrono::steady_clock::now() - start;
        return found;
    };
    for (std::uint32_t i = 0; i < images; ++i) {
        const TTruthImage image = MakeTruthImage(half, i);
        const TFoundMaps found = find(image);
        byFlavour[static_cast<std::size_t>(image.flavour)].Count(image, found);
        all.Count(image, found);
        const TTruthImage other = MakeOtherFile(half, i);
        others.Count(other, find(other));
    }
    out << "flavour        images   maps in 12 % likely % false/64 before/64 kind %  rpm %  load % "
           "wrong rpm, load\n";
    for (std::size_t i = 0; i < byFlavour.size(); ++i)
        WriteTally(out, FlavourName(static_cast<TFlavour>(i)), byFlavour[i]);
    WriteTally(out, "all images", all);
    WriteTally(out, "other files", others);
    out << "ms per MiB: " << time.count() / (all.bytes + others.bytes) * 0x100000 << "\n";
}

void WriteFinds(std::ostream &out, const TTruthImage &image) {
    const TFoundMaps found = FindMaps(image.bytes);
    out << image.name << ": " << FlavourName(image.flavour) << ", " << image.filler << ", "
        << image.bytes.size() << " bytes, " << image.maps.size() << " maps, likely " << found.likely
        << "\n"
        << std::fixed << std::setprecision(1);
    for (std::size_t i = 0; i < std::min<std::size_t>(found.maps.size(), 24); ++i) {
        const TFoundMap &map = found.maps[i];
        out << (TruthAt(image, map.place) ? "+ " : "- ") << std::hex << map.place.offset << std::dec
            << " " << int(map.place.rpmPoints) << "x" << int(map.place.loadPoints) << " "
            << map.score << ":";
        for (const float points : map.evidence)
            out << " " << points;
        out << "\n";
    }
    for (const TTrueMap &map : image.maps)
        if (std::ranges::none_of(found.maps,
                                 [&](const TFoundMap &one) { return one.place == map.place; }))
            out << "! " << std::hex << map.place.offset << std::dec << " "
                << int(map.place.rpmPoints) << "x" << int(map.place.loadPoints) << "\n";
}
