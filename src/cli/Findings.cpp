#include "cli/Findings.h"

#include "cli/Images.h"
#include "cli/MapNames.h"
#include "maps/WhyNoMap.h"
#include "model/Numbers.h"
#include "spec/SpecFile.h"

#include <algorithm>
#include <array>

namespace {
constexpr std::int32_t least = 0;
constexpr std::int32_t most = 255;

/// Bytes of the image that something takes.
struct TTaken {
    std::string name;
    std::int64_t first;
    std::int64_t end;
};

/// Collects findings while the image is in force.
class TChecking {
public:
    explicit TChecking(const TWorkspace &maps) : maps_(maps) {}

    void Map(TMapId id) {
        name_ = NameOf(id);
        const TMap &map = MapOf(maps_, id);
        if (!IsPlaced(map))
            return Add(TFindingKind::NotPlaced, "it has no place");
        const std::int64_t pointer = map.location->offset;
        if (pointer != -1 && !(ROMImage()->IsInFile(pointer) && ROMImage()->IsInFile(pointer + 1)))
            return AddOutside("its pointer", map.location->offset);
        if (!ROMImage()->IsInFile(map.GetLocation()))
            return AddOutside("it", map.GetLocation());
        if (const std::string reason = WhyNotShown(map); !reason.empty())
            return Add(TFindingKind::Counts, reason);
        if (!WhyUnusable(map).empty())
            return AddOutside("it", map.GetLocation());
        taken_.push_back(
            {name_, map.axes->offset, std::int64_t{map.data->offset} + map.data->length});
        Axis("RPM", *map.axes->rpmAxis);
        if (map.axisCount > 1)
            Axis("load", *map.axes->throttleAxis);
    }

    void Values(TMapId id) {
        name_ = NameOf(id);
        const TMap &map = MapOf(maps_, id);
        if (!WhyUnusable(map).empty())
            return;
        const int cells = map.RPMCount() * map.LoadCount();
        const int lowest = CellsOf(map, least);
        const int highest = CellsOf(map, most);
        if (lowest + highest > 0)
            Add(TFindingKind::ValuesAtEnds, "of " + std::to_string(cells) + " values " +
                                                std::to_string(lowest) + " are 0 and " +
                                                std::to_string(highest) + " are 255 (counts)");
    }

    void RevLimiter() {
        name_ = "rev-limiter";
        const TRPMVal &limiter = maps_.fuelMapSet.revLimiter;
        if (!maps_.fuelMapSet.HasRevLimiter())
            return;
        if (!ROMImage()->IsInFile(limiter.offset))
            return AddOutside("it", limiter.offset);
        taken_.push_back({name_, limiter.offset, std::int64_t{limiter.offset} + 1});
        if (limiter.raw == least || limiter.raw == most)
            Add(TFindingKind::RevLimiterEnd, "its count is " + std::to_string(limiter.raw));
    }

    void Overlaps() {
        for (std::size_t i = 0; i < taken_.size(); ++i)
            for (std::size_t j = i + 1; j < taken_.size(); ++j)
                Overlap(taken_[i], taken_[j]);
    }

    /// Pointers against the offsets that the same spec file has.
    void Forms(const TIniFile &spec) {
        TWorkspace direct;
        if (!PlaceDirectly(spec, direct.fuelMapSet, direct.timingMapSet))
            return;
        for (const TMapId id : allMaps) {
            name_ = NameOf(id);
            const TMap &pointed = MapOf(maps_, id);
            const TMap &placed = MapOf(direct, id);
            if (pointed.location->offset != -1 && IsPlaced(placed) &&
                pointed.GetLocation() != placed.GetLocation())
                Add(TFindingKind::Forms,
                    "its pointer leads to " + FormatOffset(pointed.GetLocation()) +
                        ", its offset is " + FormatOffset(placed.GetLocation()));
        }
    }

    const std::vector<TFinding> &All() const { return findings_; }

private:
    void Add(TFindingKind kind, std::string text) {
        findings_.push_back({kind, {name_}, std::move(text)});
    }

    void AddOutside(const std::string &what, std::int32_t offset) {
        Add(TFindingKind::OutsideFile,
            what + " does not lie in the file: it is at " + FormatOffset(offset));
    }

    void Axis(const std::string &word, const TAxisData &axis) {
        const auto point = [&axis](std::int32_t i) { return axis.values->GetItem(i, 0); };
        const auto text = [](const TVal *value) {
            return FormatReal("####0.##", value->GetConverted());
        };
        for (std::int32_t i = 0; i + 1 < axis.rows; ++i)
            if (point(i + 1)->raw <= point(i)->raw)
                return Add(TFindingKind::Axis, "its " + word + " axis does not rise from point " +
                                                   std::to_string(i + 1) +
                                                   " to the next: both are " + text(point(i)));
        if (point(0)->raw < 0)
            Add(TFindingKind::Axis, "its " + word + " axis begins below 0, at " + text(point(0)) +
                                        ": it does not rise, or its steps are too large");
    }

    static int CellsOf(const TMap &map, std::int32_t count) {
        int cells = 0;
        for (std::int32_t row = 0; row < map.data->rows; ++row)
            for (std::int32_t column = 0; column < map.data->columns; ++column)
                cells += map.data->values->GetItem(row, column)->raw == count ? 1 : 0;
        return cells;
    }

    void Overlap(const TTaken &one, const TTaken &other) {
        const std::int64_t first = std::max(one.first, other.first);
        const std::int64_t end = std::min(one.end, other.end);
        if (first >= end)
            return;
        const auto offset = [](std::int64_t at) {
            return FormatOffset(static_cast<std::int32_t>(at));
        };
        findings_.push_back(
            {TFindingKind::Overlap,
             {one.name, other.name},
             "they share the bytes from " + offset(first) + " to " + offset(end - 1)});
    }

    const TWorkspace &maps_;
    std::string name_;
    std::vector<TTaken> taken_;
    std::vector<TFinding> findings_;
};
} // namespace

const char *NameOf(TFindingKind kind) {
    constexpr std::array<const char *, 8> names{"not_placed",     "outside_file",   "counts",
                                                "axis",           "overlap",        "forms",
                                                "values_at_ends", "rev_limiter_end"};
    return names[static_cast<std::size_t>(kind)];
}

std::vector<TFinding> Findings(const TMappedImage &image, const TIniFile &spec) {
    TChecking checking(image.Maps());
    image.InForce([&] {
        for (const TMapId id : allMaps) {
            checking.Map(id);
            checking.Values(id);
        }
        checking.RevLimiter();
        checking.Overlaps();
        checking.Forms(spec);
    });
    return checking.All();
}

std::size_t SensiblyPlaced(const TMappedImage &image) {
    TChecking checking(image.Maps());
    image.InForce([&] {
        std::for_each(allMaps.begin(), allMaps.end(), [&](TMapId id) { checking.Map(id); });
    });
    const auto unplaced =
        std::ranges::count(checking.All(), TFindingKind::NotPlaced, &TFinding::kind);
    const bool sensible = unplaced == std::ssize(checking.All());
    return sensible ? allMaps.size() - static_cast<std::size_t>(unplaced) : 0;
}
