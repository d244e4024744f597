#include "truth/Tally.h"

#include <algorithm>
#include <cstdio>

namespace {

constexpr std::size_t firstPlaces = 12;
constexpr double unit = 0x10000; // false finds are counted by 64 KiB

std::string Decimals(double value, int digits) {
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%.*f", digits, value);
    return text.data();
}

/// "95.2", or "-" of nothing.
std::string Percent(int part, int whole) {
    return whole == 0 ? "-" : Decimals(100.0 * part / whole, 1);
}

bool IsRight(const std::optional<TSharedHeader> &told, const std::optional<std::uint8_t> &truth) {
    return told && truth && told->location == *truth;
}

} // namespace

const TTrueMap *TruthAt(const TTruthImage &image, const TMapPlace &place) {
    const auto at = std::ranges::find(image.maps, place, &TTrueMap::place);
    return at == image.maps.end() ? nullptr : &*at;
}

void TListTally::Count(const TTruthImage &image, const TFoundMaps &found) {
    ++images;
    bytes += double(image.bytes.size());
    maps += static_cast<int>(image.maps.size());
    int falseOnes = 0;
    int falseBeforeLast = 0;
    int right = 0;
    for (std::size_t i = 0; i < found.maps.size(); ++i) {
        const TTrueMap *truth = TruthAt(image, found.maps[i].place);
        const bool likely = i < found.likely;
        if (!truth) {
            ++falseOnes;
            likelyFalse += likely ? 1 : 0;
            continue;
        }
        ++right;
        falseBeforeLast = falseOnes;
        amongFirst += i < firstPlaces ? 1 : 0;
        likelyTrue += likely ? 1 : 0;
        rightKind +=
            truth->contents == found.maps[i].contents && truth->kind == found.maps[i].kind ? 1 : 0;
    }
    falseBefore += falseBeforeLast;
    const bool any = !image.maps.empty();
    withMaps += any ? 1 : 0;
    inFront += any && falseBeforeLast == 0 && right == std::ssize(image.maps) ? 1 : 0;
    CountLocations(image, found);
}

void TListTally::CountLocations(const TTruthImage &image, const TFoundMaps &found) {
    const bool rpm = IsRight(found.rpmLocation, image.rpmLocation);
    const bool load = IsRight(found.loadLocation, image.loadLocation);
    wrong += (found.rpmLocation && !rpm ? 1 : 0) + (found.loadLocation && !load ? 1 : 0);
    if (image.maps.size() < 5)
        return;
    if (image.rpmLocation) {
        ++withRpm;
        rpmRight += rpm ? 1 : 0;
    }
    if (image.loadLocation) {
        ++withLoad;
        loadRight += load ? 1 : 0;
    }
}

void TListTally::WriteHead(std::ostream &out, const std::string &what) {
    out << "| " << what
        << " | images | maps | in the first 12, % | likely, % | false likely | false in front | "
           "kind right, % | RPM cell, % | load cell, % | wrong cells |\n"
           "|---|---|---|---|---|---|---|---|---|---|---|\n";
}

void TListTally::WriteRow(std::ostream &out, const std::string &what) const {
    const double units = std::max(Units(), 1e-9);
    out << "| " << what << " | " << images << " | " << maps << " | " << Percent(amongFirst, maps)
        << " | " << Percent(likelyTrue, maps) << " | " << Decimals(likelyFalse / units, 2) << " | "
        << Decimals(falseBefore / units, 2) << " | " << Percent(rightKind, maps) << " | "
        << Percent(rpmRight, withRpm) << " | " << Percent(loadRight, withLoad) << " | " << wrong
        << " |\n";
}

TKindTally::TCount &TKindTally::Of(TMapShape shape, TMapContents contents) {
    return counts_[(shape == TMapShape::TwoD ? 0U : 2U) +
                   (contents == TMapContents::Fuel ? 0U : 1U)];
}

void TKindTally::Truth(const TTruthImage &image) {
    bytes_ += double(image.bytes.size());
    for (const TTrueMap &map : image.maps)
        ++Of(map.place.shape, map.contents).maps;
}

void TKindTally::Find(const TTruthImage &image, const TMapPlace &place, TMapContents contents) {
    const TTrueMap *truth = TruthAt(image, place);
    TCount &count = Of(place.shape, contents);
    ++(truth && truth->contents == contents ? count.found : count.wrong);
}

void TKindTally::WriteHead(std::ostream &out) {
    out << "| found by | fuel 2-D, % | false | timing 2-D, % | false | fuel linear, % | false | "
           "timing linear, % | false |\n|---|---|---|---|---|---|---|---|---|\n";
}

void TKindTally::WriteRow(std::ostream &out, const std::string &what) const {
    out << "| " << what << " |";
    for (const TCount &count : counts_)
        out << " " << Percent(count.found, count.maps) << " | "
            << Decimals(count.wrong / (bytes_ / unit), 2) << " |";
    out << "\n";
}
