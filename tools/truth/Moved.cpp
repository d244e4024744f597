#include "truth/Moved.h"

#include "discovery/MovedMaps.h"
#include "discovery/MovedTexts.h"
#include "truth/TrueMaps.h"

#include <algorithm>
#include <chrono>
#include <ostream>

namespace {

constexpr std::uint32_t revisions = 2;

/// What was proposed for the maps that a spec file would name.
struct TMovedTally {
    int pairs = 0;
    int maps = 0;
    int sureRight = 0;
    int unsureRight = 0;
    int notFound = 0;
    int sureWrong = 0;
    int unsureWrong = 0;
    int gone = 0;       ///< maps that the other image has no more, and of which it was said
    double slowest = 0; ///< milliseconds
    double milliseconds = 0;
};

/// The first map of each kind, in the order of allMaps, by its number.
std::array<const TTrueMap *, 6> SpecMaps(const TTruthImage &image) {
    std::array<const TTrueMap *, 6> maps{};
    for (const TTrueMap &map : image.maps) {
        const std::size_t set = map.contents == TMapContents::Fuel ? 0 : 3;
        const TTrueMap *&first = maps[set + static_cast<std::size_t>(map.kind)];
        if (!first)
            first = &map;
    }
    return maps;
}

const TTrueMap *SameMap(const TTruthImage &image, std::size_t number) {
    const auto map = std::ranges::find(image.maps, number, &TTrueMap::number);
    return map == image.maps.end() ? nullptr : &*map;
}

/// A body with quite other values that is still the same map: a little of everything that tuning
/// does, on all of it.
void TuneHard(TMadeMap &map, TChance &chance) {
    const bool twoD = map.kind == TMapKind::PT;
    const TMapPlace place = *PlaceAt(map.bytes, 0, twoD ? TMapShape::TwoD : TMapShape::Linear);
    const int percent = chance.Percent(30) ? chance.Between(88, 112) : 100;
    const int shift = chance.Percent(30) ? chance.Between(-10, 10) : 0;
    const int noise = chance.Below(4);
    for (std::size_t i = place.Body(); i < place.End(); ++i)
        map.bytes[i] = static_cast<std::uint8_t>(
            std::clamp(map.bytes[i] * percent / 100 + shift + chance.Below(noise + 1), 0, 255));
}

/// The known maps, tuned hard, at any places of an image of another family; a tenth of them is left
/// out, and of some the old bytes stand there too.
TTruthImage Scattered(const TTruthImage &known, TTruthImage image, TChance &chance) {
    std::vector<TMapPlace> taken;
    image.maps.clear();
    const auto put = [&](const TBytes &bytes, TMapShape shape) -> std::optional<TMapPlace> {
        for (int attempt = 0; attempt < 50 && bytes.size() < image.bytes.size(); ++attempt) {
            const int places = static_cast<int>(image.bytes.size() - bytes.size());
            TMapPlace place = *PlaceAt(bytes, 0, shape);
            place.offset = static_cast<std::uint32_t>(1 + chance.Below(places));
            if (std::ranges::any_of(taken,
                                    [&](const TMapPlace &other) { return Overlap(place, other); }))
                continue;
            std::ranges::copy(bytes, image.bytes.begin() + place.offset);
            taken.push_back(place);
            return place;
        }
        return std::nullopt;
    };
    for (const TTrueMap *map : SpecMaps(known)) {
        if (!map || chance.Percent(10))
            continue;
        const auto start = known.bytes.begin() + map->place.offset;
        TMadeMap made{map->contents, map->kind,
                      TBytes(start, known.bytes.begin() + std::ptrdiff_t(map->place.End()))};
        const TBytes old = made.bytes;
        if (chance.Percent(70))
            made = Tuned(made, chance);
        if (chance.Percent(70))
            TuneHard(made, chance);
        const std::optional<TMapPlace> place = put(made.bytes, map->place.shape);
        if (place)
            image.maps.push_back({map->number, *place, map->contents, map->kind});
        if (place && chance.Percent(10))
            put(old, map->place.shape);
    }
    return image;
}

void WriteWrong(std::ostream &out, const TTruthImage &image, std::size_t map,
                const TMovedMap &moved, const TTrueMap *truth) {
    out << image.name << ", " << FlavourName(image.flavour) << ", " << MapName(allMaps[map])
        << std::hex << ": $" << moved.place->offset;
    if (truth)
        out << " in place of $" << truth->place.offset;
    else
        out << ", which is gone";
    out << std::dec << '\n' << ReasonsText(moved.reasons) << '\n';
}

void CountMap(std::ostream &out, TMovedTally &tally, const TTruthImage &image, std::size_t map,
              const TMovedMap &moved, const TTrueMap *truth) {
    ++tally.maps;
    const bool right = truth && moved.place == truth->place;
    const bool sure = moved.sureness == TSureness::Sure;
    if (!moved.place) {
        ++(truth ? tally.notFound : tally.gone);
        return;
    }
    if (right)
        ++(sure ? tally.sureRight : tally.unsureRight);
    else
        ++(sure ? tally.sureWrong : tally.unsureWrong);
    if (sure && !right)
        WriteWrong(out, image, map, moved, truth);
}

/// `image` is a revision of `known`, or not.
void CountPair(std::ostream &out, TMovedTally &tally, const TTruthImage &known,
               const TTruthImage &image, bool revision) {
    const std::array<const TTrueMap *, 6> maps = SpecMaps(known);
    TKnownImage from{known.bytes, {}, {}};
    for (std::size_t map = 0; map < maps.size(); ++map)
        if (maps[map])
            from.maps[map] = maps[map]->place.offset;
    const auto start = std::chrono::steady_clock::now();
    const TMovedMaps moved = FindMovedMaps(from, image.bytes);
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
    tally.milliseconds += time.count();
    tally.slowest = std::max(tally.slowest, time.count());
    ++tally.pairs;
    for (std::size_t map = 0; map < maps.size(); ++map)
        if (maps[map] && maps[map]->place.offset > 0)
            CountMap(out, tally, image, map, moved.maps[map],
                     revision ? SameMap(image, maps[map]->number) : nullptr);
}

void WriteTally(std::ostream &out, const char *title, const TMovedTally &tally) {
    out << title << ": " << tally.maps << " maps of " << tally.pairs << " pairs\n"
        << "  right and sure    " << tally.sureRight << '\n'
        << "  right but unsure  " << tally.unsureRight << '\n'
        << "  not found         " << tally.notFound << '\n'
        << "  gone, and so told " << tally.gone << '\n'
        << "  wrong but unsure  " << tally.unsureWrong << '\n'
        << "  wrong and sure    " << tally.sureWrong << '\n'
        << "  time of a pair    " << tally.milliseconds / std::max(tally.pairs, 1)
        << " ms, at most " << tally.slowest << " ms\n";
}

} // namespace

void WriteMovedReport(std::ostream &out, TCorpusHalf half, std::uint32_t images) {
    TMovedTally related;
    TMovedTally scattered;
    TMovedTally strange;
    for (std::uint32_t number = 0; number < images; ++number) {
        const TTruthImage known = MakeTruthImage(half, number);
        if (known.maps.empty())
            continue;
        for (std::uint32_t revision = 1; revision <= revisions; ++revision)
            CountPair(out, related, known, MakeRevision(half, number, revision), true);
        const TTruthImage other = MakeTruthImage(half, number + images);
        TChance chance(number);
        CountPair(out, scattered, known, Scattered(known, other, chance), true);
        CountPair(out, strange, known, other, false);
    }
    WriteTally(out, "revisions", related);
    WriteTally(out, "scattered and tuned hard", scattered);
    WriteTally(out, "images of other families", strange);
}
