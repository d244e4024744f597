#include "changes/MapChanges.h"

#include <algorithm>

namespace {
/// The differing bytes of two images, of which parts are claimed.
class TDiffering {
public:
    TDiffering(std::span<const std::uint8_t> before, std::span<const std::uint8_t> after)
        : before_(before), after_(after) {
        for (const TByteRun &run : DifferingRuns(before, after))
            for (std::uint32_t i = 0; i < run.length; ++i)
                offsets_.push_back(run.offset + i);
        claimed_.resize(offsets_.size());
    }

    /// Claims the differing bytes of `length` bytes from `first` on.
    std::vector<TByteChange> Claim(std::int64_t first, std::int64_t length) {
        std::vector<TByteChange> changes;
        const auto begin = std::lower_bound(offsets_.begin(), offsets_.end(), first);
        for (auto at = begin; at != offsets_.end() && *at < first + length; ++at) {
            changes.push_back({*at, before_[*at], after_[*at]});
            claimed_[static_cast<std::size_t>(at - offsets_.begin())] = true;
        }
        return changes;
    }

    std::vector<TByteRun> Unclaimed() const {
        std::vector<TByteRun> runs;
        for (std::size_t i = 0; i < offsets_.size(); ++i) {
            if (claimed_[i])
                continue;
            if (runs.empty() || runs.back().offset + runs.back().length != offsets_[i])
                runs.push_back({offsets_[i], 0});
            ++runs.back().length;
        }
        return runs;
    }

private:
    std::span<const std::uint8_t> before_;
    std::span<const std::uint8_t> after_;
    std::vector<std::uint32_t> offsets_;
    std::vector<bool> claimed_;
};

TMapChanges ChangesOf(TDiffering &differing, TMapSetKind set, TMapKind kind, const TMap &map) {
    TMapChanges changes{set, kind, {}, {}};
    if (map.GetLocation() == 0 || !map.Fits())
        return changes;
    const TMapData &body = *map.data;
    changes.axes = differing.Claim(map.axes->offset, map.axes->length);
    for (const TByteChange &byte : differing.Claim(body.offset, body.rows * body.columns)) {
        const std::int32_t place = static_cast<std::int32_t>(byte.offset) - body.offset;
        changes.cells.push_back({place / body.columns, place % body.columns, byte});
    }
    return changes;
}
} // namespace

TImageChanges ImageChanges(std::span<const std::uint8_t> before,
                           std::span<const std::uint8_t> after, const TWorkspace &workspace) {
    TImageChanges changes{before.size(), after.size(), DifferingRuns(before, after), {}, {}, {}};
    TDiffering differing(before, after);
    const auto add = [&](TMapSetKind set, const TMapSet &maps) {
        for (const TMapKind kind : {TMapKind::PT, TMapKind::Idle, TMapKind::WOT}) {
            TMapChanges one = ChangesOf(differing, set, kind, maps.Map(kind));
            if (!one.cells.empty() || !one.axes.empty())
                changes.maps.push_back(std::move(one));
        }
    };
    add(TMapSetKind::Fuel, workspace.fuelMapSet);
    add(TMapSetKind::Timing, workspace.timingMapSet);
    if (workspace.fuelMapSet.HasRevLimiter())
        for (const TByteChange &byte : differing.Claim(workspace.fuelMapSet.revLimiter.offset, 1))
            changes.revLimiter = byte;
    changes.elsewhere = differing.Unclaimed();
    return changes;
}

double ShownValue(const TMap &map, const TCellChange &cell, std::uint8_t byte, bool converted) {
    const TVal *value = map.data->values->GetItem(cell.rpmPoint, cell.loadPoint);
    const std::unique_ptr<TVal> shown = value ? value->CreateCopy() : std::make_unique<TVal>();
    shown->raw = byte;
    shown->showConverted = converted;
    return shown->GetValue();
}
