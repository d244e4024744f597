#include "truth/Report.h"

#include "discovery/FindTexts.h"
#include "truth/StatedSearches.h"
#include "truth/Tally.h"

#include <algorithm>
#include <chrono>
#include <iomanip>
#include <map>

namespace {

/// The same maps, found in three ways.
struct TWays {
    TKindTally searches;
    TKindTally searchesWithCells; ///< in images whose RPM cell is told
    TKindTally list;              ///< its likely maps

    void Count(const TTruthImage &image, const TFoundMaps &found);
    void Write(std::ostream &out, const std::string &what) const;
};

/// All that the report counts.
struct TCounts {
    std::map<std::string, TListTally> byFlavour;
    std::map<std::string, TListTally> byFiller;
    std::map<std::string, TListTally> others;
    TListTally all;
    TListTally allOthers;
    TWays ways;
    std::map<std::string, TWays> waysByFiller;
    std::map<std::string, int> lastPlaces; ///< of the last true map, in images of six
    double milliseconds = 0;

    void AddImage(const TTruthImage &image);
    void AddOther(const TTruthImage &file);

private:
    TFoundMaps Find(const TTruthImage &image);
};

void TWays::Count(const TTruthImage &image, const TFoundMaps &found) {
    const auto count = [&](TKindTally &tally, std::optional<std::uint8_t> rpm,
                           std::optional<std::uint8_t> load) {
        tally.Truth(image);
        for (const TMarkedMap &map : MarkedMaps(image.bytes, rpm, load))
            tally.Find(image, map.place, map.contents);
    };
    const auto cell = [](const std::optional<TSharedHeader> &header) {
        return header ? std::optional(header->location) : std::nullopt;
    };
    count(searches, {}, {});
    if (found.rpmLocation)
        count(searchesWithCells, cell(found.rpmLocation), cell(found.loadLocation));
    list.Truth(image);
    for (std::size_t i = 0; i < found.likely; ++i)
        list.Find(image, found.maps[i].place, found.maps[i].contents);
}

void TWays::Write(std::ostream &out, const std::string &what) const {
    searches.WriteRow(out, what + ": the four searches");
    searchesWithCells.WriteRow(out, what + ": with the RAM cells, where they are told");
    list.WriteRow(out, what + ": the list, its likely ones");
}

/// Where the last true map stands.
std::string LastPlace(const TTruthImage &image, const TFoundMaps &found) {
    std::size_t last = 0;
    std::size_t listed = 0;
    for (std::size_t i = 0; i < found.maps.size(); ++i)
        if (TruthAt(image, found.maps[i].place)) {
            last = i + 1;
            ++listed;
        }
    if (listed < image.maps.size())
        return "not listed";
    return last == 6 ? "6" : last <= 12 ? "7 to 12" : "behind";
}

TFoundMaps TCounts::Find(const TTruthImage &image) {
    const auto start = std::chrono::steady_clock::now();
    TFoundMaps found = FindMaps(image.bytes);
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
    milliseconds += time.count();
    return found;
}

void TCounts::AddImage(const TTruthImage &image) {
    const TFoundMaps found = Find(image);
    byFlavour[FlavourName(image.flavour)].Count(image, found);
    byFiller[image.filler].Count(image, found);
    all.Count(image, found);
    ways.Count(image, found);
    waysByFiller[image.filler].Count(image, found);
    if (image.maps.size() == 6)
        ++lastPlaces[LastPlace(image, found)];
}

void TCounts::AddOther(const TTruthImage &file) {
    const TFoundMaps found = Find(file);
    others[file.filler].Count(file, found);
    allOthers.Count(file, found);
}

void WriteRows(std::ostream &out, const std::string &what,
               const std::map<std::string, TListTally> &rows, const TListTally &all) {
    TListTally::WriteHead(out, what);
    for (const auto &[name, tally] : rows)
        tally.WriteRow(out, name);
    all.WriteRow(out, "all");
    out << "\n";
}

} // namespace

void WriteReport(std::ostream &out, TCorpusHalf half, std::uint32_t images) {
    TCounts counts;
    for (std::uint32_t i = 0; i < images; ++i) {
        counts.AddImage(MakeTruthImage(half, i));
        counts.AddOther(MakeOtherFile(half, i));
    }
    WriteRows(out, "images", counts.byFlavour, counts.all);
    WriteRows(out, "filled with", counts.byFiller, counts.all);
    WriteRows(out, "other files", counts.others, counts.allOthers);
    TKindTally::WriteHead(out);
    counts.ways.Write(out, "all");
    for (const auto &[filler, ways] : counts.waysByFiller)
        ways.Write(out, filler);
    out << "\nplace of the last true map in images of six:";
    for (const auto &[place, times] : counts.lastPlaces)
        out << " " << place << ": " << times << ";";
    out << "\nall true maps in the first places: " << counts.all.inFront << " of "
        << counts.all.withMaps << " images\n"
        << std::fixed << std::setprecision(1) << "milliseconds per MiB: "
        << counts.milliseconds / (counts.all.bytes + counts.allOthers.bytes) * 0x100000 << "\n";
}

void WriteFinds(std::ostream &out, const TTruthImage &image) {
    constexpr std::size_t shown = 24;
    const TFoundMaps found = FindMaps(image.bytes);
    out << image.name << ": " << FlavourName(image.flavour) << ", " << image.filler << ", "
        << image.bytes.size() << " bytes, " << image.maps.size() << " maps, " << found.likely
        << " likely\n"
        << std::fixed << std::setprecision(1);
    for (std::size_t i = 0; i < std::min(found.maps.size(), shown); ++i) {
        const TFoundMap &map = found.maps[i];
        out << (TruthAt(image, map.place) ? "+ $" : "- $") << std::hex << map.place.offset
            << std::dec << " " << ShapeText(map.place) << " " << map.score << ":";
        for (const float points : map.evidence)
            out << " " << points;
        out << "\n";
    }
    for (const TTrueMap &map : image.maps)
        if (std::ranges::find(found.maps, map.place, &TFoundMap::place) == found.maps.end())
            out << "not listed: $" << std::hex << map.place.offset << std::dec << " "
                << ShapeText(map.place) << "\n";
}
