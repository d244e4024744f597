#include "changes/MapChanges.h"

#include "system/Texts.h"

#include <algorithm>
#include <utility>

namespace {
/// A run of bytes of an image, with where it lies.
struct TPart {
    std::int64_t offset;
    std::span<const std::uint8_t> bytes;
};

TPart PartOf(const TMappedImage &image, std::int64_t offset, std::int64_t length) {
    const auto all = image.Bytes();
    const auto size = static_cast<std::int64_t>(all.size());
    const std::int64_t first = std::clamp<std::int64_t>(offset, 0, size);
    const std::int64_t end = std::clamp<std::int64_t>(offset + length, first, size);
    return {first,
            all.subspan(static_cast<std::size_t>(first), static_cast<std::size_t>(end - first))};
}

/// Those of two parts, byte for byte from their beginnings.
std::vector<TByteDifference> Differences(const TPart &before, const TPart &after) {
    std::vector<TByteDifference> differences;
    for (const auto &[offset, length] : DifferingRuns(before.bytes, after.bytes))
        for (std::uint32_t i = offset; i < offset + length; ++i)
            differences.push_back({static_cast<std::uint32_t>(before.offset + i),
                                   static_cast<std::uint32_t>(after.offset + i), before.bytes[i],
                                   after.bytes[i]});
    return differences;
}

bool IsShown(const TMappedImage &image, TMapId id) {
    const TMap &map = MapOf(image.Maps(), id);
    bool placed = false;
    image.InForce([&] { placed = map.GetLocation() != 0; }); // it may be behind a pointer
    return placed && map.Fits() && map.RPMCount() > 0 && map.LoadCount() > 0;
}

/// The points of both axes as they are stored.
std::vector<std::int32_t> Points(const TMap &map) {
    std::vector<std::int32_t> points;
    const auto add = [&points](const TAxisData &axis) {
        for (std::int32_t i = 0; i < axis.rows; ++i)
            if (const TVal *point = std::as_const(*axis.values).GetItem(i, 0))
                points.push_back(point->raw);
    };
    add(*map.axes->rpmAxis);
    if (map.axisCount > 1)
        add(*map.axes->throttleAxis);
    return points;
}

TMatch MatchOf(const TMappedImage &imageBefore, const TMappedImage &imageAfter, TMapId id) {
    const bool shownBefore = IsShown(imageBefore, id);
    const bool shownAfter = IsShown(imageAfter, id);
    if (!shownBefore || !shownAfter)
        return shownBefore ? TMatch::OnlyBefore : shownAfter ? TMatch::OnlyAfter : TMatch::None;
    const TMap &before = MapOf(imageBefore.Maps(), id);
    const TMap &after = MapOf(imageAfter.Maps(), id);
    if (before.RPMCount() != after.RPMCount() || before.LoadCount() != after.LoadCount())
        return TMatch::OtherShape;
    return Points(before) == Points(after) ? TMatch::Same : TMatch::OtherAxes;
}

/// Compares two images and remembers which bytes were compared.
class TComparing {
public:
    TComparing(const TMappedImage &before, const TMappedImage &after)
        : before_(before), after_(after) {}

    std::vector<TByteDifference> Compare(std::int32_t before, std::int32_t after,
                                         std::int32_t length) {
        const TPart one = PartOf(before_, before, length);
        const TPart other = PartOf(after_, after, length);
        compared_.push_back({one.offset, one.offset + std::ssize(one.bytes)});
        compared_.push_back({other.offset, other.offset + std::ssize(other.bytes)});
        return Differences(one, other);
    }

    TMapChanges Map(TMapId id) {
        const TMap &before = MapOf(before_.Maps(), id);
        const TMap &after = MapOf(after_.Maps(), id);
        TMapChanges changes{id, MatchOf(before_, after_, id), {}, {}};
        if (changes.match != TMatch::Same && changes.match != TMatch::OtherAxes)
            return changes;
        changes.axes = Compare(before.axes->offset, after.axes->offset, before.axes->length);
        const TMapData &body = *before.data;
        for (const TByteDifference &byte :
             Compare(body.offset, after.data->offset, body.rows * body.columns)) {
            const std::int32_t place = static_cast<std::int32_t>(byte.offsetBefore) - body.offset;
            changes.cells.push_back({place / body.columns, place % body.columns, byte});
        }
        return changes;
    }

    /// Of the runs what was not compared.
    std::vector<TByteRun> Elsewhere(const std::vector<TByteRun> &runs) {
        std::sort(compared_.begin(), compared_.end());
        std::vector<TByteRun> rest;
        auto part = compared_.cbegin();
        for (const TByteRun &run : runs)
            for (std::int64_t i = run.offset; i < run.offset + run.length; ++i) {
                while (part != compared_.cend() && part->end <= i)
                    ++part;
                if (part != compared_.cend() && part->first <= i)
                    continue;
                const auto offset = static_cast<std::uint32_t>(i);
                if (rest.empty() || rest.back().offset + rest.back().length != offset)
                    rest.push_back({offset, 0});
                ++rest.back().length;
            }
        return rest;
    }

private:
    struct TInterval {
        std::int64_t first;
        std::int64_t end;
        auto operator<=>(const TInterval &) const = default;
    };
    const TMappedImage &before_;
    const TMappedImage &after_;
    std::vector<TInterval> compared_;
};
} // namespace

const char *EnglishMapName(TMapId map) {
    const bool fuel = map.set == TMapSetKind::Fuel;
    if (map.kind == TMapKind::PT)
        return fuel ? Translatable("MapChanges", "Fuel PT")
                    : Translatable("MapChanges", "Timing PT");
    if (map.kind == TMapKind::Idle)
        return fuel ? Translatable("MapChanges", "Fuel Idle")
                    : Translatable("MapChanges", "Timing Idle");
    return fuel ? Translatable("MapChanges", "Fuel WOT") : Translatable("MapChanges", "Timing WOT");
}

std::string MapName(TMapId map) {
    return Translated("MapChanges", EnglishMapName(map));
}

const TMap &MapOf(const TWorkspace &maps, TMapId map) {
    const bool fuel = map.set == TMapSetKind::Fuel;
    return fuel ? maps.fuelMapSet.Map(map.kind) : maps.timingMapSet.Map(map.kind);
}

bool TMapChanges::Any() const {
    return !cells.empty() || !axes.empty();
}

TImageChanges ImageChanges(const TMappedImage &before, const TMappedImage &after) {
    TImageChanges changes;
    changes.sizeBefore = before.Bytes().size();
    changes.sizeAfter = after.Bytes().size();
    changes.runs = DifferingRuns(before.Bytes(), after.Bytes());
    TComparing comparing(before, after);
    for (const TMapId map : allMaps)
        changes.maps.push_back(comparing.Map(map));
    const TFuelMapSet &one = before.Maps().fuelMapSet;
    const TFuelMapSet &other = after.Maps().fuelMapSet;
    if (one.HasRevLimiter() && other.HasRevLimiter())
        for (const TByteDifference &byte :
             comparing.Compare(one.revLimiter.offset, other.revLimiter.offset, 1))
            changes.revLimiter = byte;
    changes.elsewhere = comparing.Elsewhere(changes.runs);
    return changes;
}

double ShownValue(const TMap &map, const TCellChange &cell, std::uint8_t byte, bool converted) {
    const TVal *value = map.data->values->GetItem(cell.rpmPoint, cell.loadPoint);
    const std::unique_ptr<TVal> shown = value ? value->CreateCopy() : std::make_unique<TVal>();
    shown->raw = byte;
    shown->showConverted = converted;
    return shown->GetValue();
}
