#include "truth/ImagePlan.h"

#include "discovery/MapPlace.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

struct TFlavourRow {
    const char *name;
    int percent;
};
constexpr std::array<TFlavourRow, static_cast<std::size_t>(TFlavour::Count)> flavours{{
    {"six maps", 46},
    {"twelve maps", 10},
    {"few maps", 10},
    {"own headers", 10},
    {"in scalars", 10},
    {"decoys", 9},
    {"no maps", 5},
}};

TFlavour AFlavour(TChance &chance) {
    int left = chance.Below(100);
    std::size_t row = 0;
    while (left >= flavours[row].percent)
        left -= flavours[row++].percent;
    return static_cast<TFlavour>(row);
}

TFiller AFiller(TCorpusHalf half, TChance &chance) {
    const bool heldOut = half == TCorpusHalf::HeldOut;
    if (chance.Percent(12))
        return chance.OneOf(
            std::vector{TFiller::Random, TFiller::Compressed, TFiller::Constant, TFiller::Text});
    // Two processors are for held-out images alone: the fit has never seen them.
    return static_cast<TFiller>(chance.Below(heldOut ? 4 : 2));
}

std::size_t ASize(TChance &chance) {
    const int kilobytes = chance.Percent(90) ? 2 << chance.Below(6) : 128 << chance.Below(4);
    return static_cast<std::size_t>(kilobytes) * 1024;
}

std::vector<TMadeMap> MakeMaps(const TImagePlan &plan, TChance &chance) {
    std::vector<TMadeMap> maps;
    const int sets = plan.flavour == TFlavour::TwelveMaps ? 2 : 1;
    for (int set = 0; set < sets; ++set)
        for (const TMapContents contents : {TMapContents::Fuel, TMapContents::Timing})
            for (TMadeMap &map : MakeSet(plan.style, contents, chance))
                maps.push_back(std::move(map));
    if (plan.flavour == TFlavour::NoMaps)
        maps.clear();
    if (plan.flavour == TFlavour::FewMaps)
        for (int left = chance.Between(2, 5); left > 0; --left)
            maps.erase(maps.begin() + chance.Below(static_cast<int>(maps.size())));
    if (!maps.empty() && chance.Percent(5))
        maps.push_back(maps.front()); // a duplicate
    return maps;
}

/// What stands between two maps.
TImagePart Between(const TImagePlan &plan, TChance &chance) {
    TImagePart part;
    if (plan.flavour == TFlavour::InScalars)
        part.bytes =
            Fill(TFiller::Scalars, static_cast<std::size_t>(chance.Between(8, 80)), chance);
    else if (plan.flavour == TFlavour::Decoys)
        part.bytes =
            Fill(TFiller::OtherTables, static_cast<std::size_t>(chance.Between(30, 120)), chance);
    else if (plan.style.rpmLocation >= 0 && chance.Percent(3))
        part.bytes = OtherRpmTable(plan.style, chance);
    else if (chance.Percent(50))
        part.bytes = Fill(chance.Percent(50) ? TFiller::Scalars : TFiller::Constant,
                          static_cast<std::size_t>(chance.Below(24)), chance);
    return part;
}

/// The parts of the calibration: maps with what stands between them, in one block or in several.
std::vector<std::vector<TImagePart>> CalibrationBlocks(const TImagePlan &plan, TChance &chance) {
    std::vector<int> order;
    for (std::size_t i = 0; i < plan.maps.size(); ++i)
        order.push_back(static_cast<int>(i));
    if (chance.Percent(50))
        for (std::size_t i = order.size(); i > 1; --i)
            std::swap(order[i - 1],
                      order[static_cast<std::size_t>(chance.Below(static_cast<int>(i)))]);
    const bool oneBlock = chance.Percent(60);
    std::vector<std::vector<TImagePart>> blocks(1);
    for (const int map : order) {
        if (!oneBlock && chance.Percent(50))
            blocks.emplace_back();
        TImagePart part;
        part.bytes = plan.maps[static_cast<std::size_t>(map)].bytes;
        part.map = map;
        blocks.back().push_back(part);
        blocks.back().push_back(Between(plan, chance));
    }
    return blocks;
}

std::size_t BytesOf(const std::vector<TImagePart> &parts) {
    std::size_t bytes = 0;
    for (const TImagePart &part : parts)
        bytes += part.bytes.size();
    return bytes;
}

/// The parts that are no calibration: code for the most part.
std::vector<TImagePart> Fillers(const TImagePlan &plan, std::size_t bytes, TChance &chance) {
    std::vector<TImagePart> parts;
    const std::size_t unit = std::max<std::size_t>(bytes / 6, 16);
    while (bytes > 0) {
        const std::size_t size = std::min(bytes, unit + static_cast<std::size_t>(chance.Below(64)));
        TImagePart part;
        TFiller filler = plan.filler;
        if (chance.Percent(25))
            filler = chance.OneOf(std::vector{TFiller::Scalars, TFiller::OtherTables,
                                              TFiller::Constant, TFiller::Text});
        part.bytes = Fill(filler, size, chance);
        part.code = true;
        parts.push_back(part);
        bytes -= size;
    }
    return parts;
}

void Insert(std::vector<TImagePart> &parts, std::size_t at, const std::vector<TImagePart> &block) {
    parts.insert(parts.begin() + static_cast<std::ptrdiff_t>(at), block.begin(), block.end());
}

/// Where the boundaries between fillers are, a block may stand.
void PlaceBlocks(TImagePlan &plan, const std::vector<std::vector<TImagePart>> &blocks,
                 TChance &chance) {
    const bool atStart = chance.Percent(5);
    const bool cutByEnd = chance.Percent(5);
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        std::size_t at =
            static_cast<std::size_t>(chance.Below(static_cast<int>(plan.parts.size()) + 1));
        while (at < plan.parts.size() && !plan.parts[at].code)
            ++at; // not into another block
        if (i == 0 && atStart)
            at = 0;
        Insert(plan.parts, at, blocks[i]);
    }
    if (cutByEnd && !plan.maps.empty()) {
        TImagePart cut;
        cut.bytes = plan.maps.front().bytes;
        cut.bytes.resize(cut.bytes.size() / 2);
        TImagePart &last = plan.parts.back();
        if (last.code && last.bytes.size() > cut.bytes.size()) {
            last.bytes.resize(last.bytes.size() - cut.bytes.size());
            plan.parts.push_back(cut);
        }
    }
}

/// The byte that all maps of the image have in front of such an axis.
std::optional<std::uint8_t> CommonHeader(const TTruthImage &image, bool ofLoad) {
    std::optional<std::uint8_t> common;
    for (const TTrueMap &map : image.maps) {
        const std::optional<std::uint8_t> header = HeaderOf(image.bytes, map.place, ofLoad);
        if (header && common && *header != *common)
            return std::nullopt;
        if (header)
            common = header;
    }
    return common;
}

} // namespace

std::string FlavourName(TFlavour flavour) {
    return flavours[static_cast<std::size_t>(flavour)].name;
}

TImagePlan MakePlan(TCorpusHalf half, TChance &chance) {
    TImagePlan plan{};
    plan.flavour = AFlavour(chance);
    plan.filler = AFiller(half, chance);
    plan.size = ASize(chance);
    plan.busBase = chance.Percent(50) && plan.size < 0x10000 ? 0x10000 - plan.size : 0;
    plan.style = MakeStyle(chance);
    if (plan.flavour == TFlavour::OwnHeaders) {
        plan.style.ownAxes = true;
        plan.style.rpmLocation = plan.style.loadLocation = -1;
    }
    plan.maps = MakeMaps(plan, chance);
    const std::vector<std::vector<TImagePart>> blocks = CalibrationBlocks(plan, chance);
    std::size_t taken = 0;
    for (const std::vector<TImagePart> &block : blocks)
        taken += BytesOf(block);
    TImagePart pointers;
    pointers.pointerTable = true;
    if (chance.Percent(70))
        pointers.bytes.resize(2 * plan.maps.size());
    taken += pointers.bytes.size();
    plan.parts = Fillers(plan, plan.size > taken ? plan.size - taken : 0, chance);
    const auto middle =
        static_cast<std::size_t>(chance.Below(static_cast<int>(plan.parts.size()) + 1));
    Insert(plan.parts, middle, {pointers});
    PlaceBlocks(plan, blocks, chance);
    return plan;
}

TImagePlan Revised(const TImagePlan &plan, TChance &chance) {
    TImagePlan revised = plan;
    for (TMadeMap &map : revised.maps)
        if (chance.Percent(70))
            map = Tuned(map, chance);
    for (TImagePart &part : revised.parts) {
        if (part.map >= 0)
            part.bytes = revised.maps[static_cast<std::size_t>(part.map)].bytes;
        if (!part.code || part.bytes.empty())
            continue;
        for (std::size_t i = part.bytes.size() / 20; i > 0; --i) // addresses that moved
            part.bytes[static_cast<std::size_t>(
                chance.Below(static_cast<int>(part.bytes.size())))] = chance.Byte();
        const TBytes more = Fill(plan.filler, static_cast<std::size_t>(chance.Below(60)), chance);
        const auto at = chance.Below(static_cast<int>(part.bytes.size()));
        if (chance.Percent(50))
            part.bytes.insert(part.bytes.begin() + at, more.begin(), more.end());
        else
            part.bytes.resize(part.bytes.size() - std::min(part.bytes.size(), more.size()));
    }
    return revised;
}

TTruthImage Assembled(const TImagePlan &plan, const std::string &name) {
    TTruthImage image{name, plan.flavour, FillerName(plan.filler), {}, {}, {}, {}};
    std::vector<std::size_t> starts(plan.maps.size());
    std::size_t table = 0;
    for (const TImagePart &part : plan.parts) {
        if (part.map >= 0)
            starts[static_cast<std::size_t>(part.map)] = image.bytes.size();
        if (part.pointerTable)
            table = image.bytes.size();
        image.bytes.insert(image.bytes.end(), part.bytes.begin(), part.bytes.end());
    }
    for (const TImagePart &part : plan.parts)
        if (part.pointerTable)
            for (std::size_t i = 0; 2 * i + 1 < part.bytes.size(); ++i) {
                const std::size_t address = plan.busBase + starts[i];
                image.bytes[table + 2 * i] = static_cast<std::uint8_t>(address >> 8);
                image.bytes[table + 2 * i + 1] = static_cast<std::uint8_t>(address);
            }
    image.bytes.resize(plan.size, 0xFF);
    for (std::size_t i = 0; i < plan.maps.size(); ++i) {
        const TMadeMap &map = plan.maps[i];
        const TMapShape shape = map.kind == TMapKind::PT ? TMapShape::TwoD : TMapShape::Linear;
        if (const std::optional<TMapPlace> place = PlaceAt(image.bytes, starts[i], shape))
            image.maps.push_back({i, *place, map.contents, map.kind});
    }
    image.rpmLocation = CommonHeader(image, false);
    image.loadLocation = CommonHeader(image, true);
    return image;
}
