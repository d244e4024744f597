#include "changes/MappedImage.h"

#include "spec/MappingChoice.h"
#include "spec/ProgramState.h"

#include <algorithm>
#include <exception>

namespace {
/// Through a pointer it is the image in force that says where.
void PlaceSet(TMapSet &maps, const TMapSet &others) {
    maps.SetOffsets(others.PTMap->GetLocation(), others.IdleMap->GetLocation(),
                    others.WOTMap->GetLocation());
}
} // namespace

std::vector<std::uint8_t> CommittedBytes(const TWorkspace &maps) {
    const auto now = ROMImage()->BytesNow();
    std::vector<std::uint8_t> bytes(now.begin(), now.end());
    const TRPMVal &limiter = maps.fuelMapSet.revLimiter;
    if (RevLimiterIsUnsaved(maps.fuelMapSet))
        bytes[static_cast<std::size_t>(limiter.offset)] = LowByte(limiter.raw);
    return bytes;
}

TMappedImage::TMappedImage(std::span<const std::uint8_t> bytes) {
    const auto fitting =
        bytes.first(std::min(bytes.size(), static_cast<std::size_t>(TROMImage::capacity)));
    std::copy(fitting.begin(), fitting.end(), contents_.image->data.begin());
    contents_.image->size = static_cast<std::int32_t>(fitting.size());
}

std::span<const std::uint8_t> TMappedImage::Bytes() const {
    return std::span(contents_.image->data).first(static_cast<std::size_t>(contents_.image->size));
}

void TMappedImage::ShowAs(const TWorkspace &others) {
    maps_->fuelMapSet.SetShowConverted(others.fuelMapSet.showConverted);
    maps_->timingMapSet.SetShowConverted(others.timingMapSet.showConverted);
}

void TMappedImage::PlaceAs(const TWorkspace &others) {
    contents_.timing = TimingConstants();
    InForce([&] {
        PlaceSet(maps_->fuelMapSet, others.fuelMapSet);
        PlaceSet(maps_->timingMapSet, others.timingMapSet);
        if (others.fuelMapSet.HasRevLimiter())
            maps_->fuelMapSet.revLimiter.SetOffset(others.fuelMapSet.revLimiter.offset);
    });
    ShowAs(others);
}

void TMappedImage::PlaceAt(const std::array<std::optional<std::uint32_t>, 6> &offsets,
                           const TTimingConstants &timing, const TWorkspace &others) {
    contents_.timing = timing;
    const auto offset = [&](std::size_t map) {
        return static_cast<std::int32_t>(offsets[map].value_or(0)); // 0 leaves a map alone
    };
    InForce([&] {
        maps_->fuelMapSet.SetOffsets(offset(0), offset(1), offset(2));
        maps_->timingMapSet.SetOffsets(offset(3), offset(4), offset(5));
    });
    ShowAs(others);
}

bool TMappedImage::PlaceBySpec(const std::filesystem::path &spec) {
    TSpecReading reading;
    InForce([&] { reading = ReadSpec(spec, *maps_); });
    ShowAs(*maps_); // cells that were just read show counts
    if (reading.error)
        std::rethrow_exception(reading.error);
    return reading.placed;
}

void TMappedImage::ShowUnits(bool units) {
    maps_->fuelMapSet.SetShowConverted(units);
    maps_->timingMapSet.SetShowConverted(units);
}

void TMappedImage::InForce(const std::function<void()> &look) const {
    const TImageInForce inForce(contents_);
    look();
}

void TMappedImage::Change(const std::function<void(TWorkspace &maps)> &change) {
    InForce([&] { change(*maps_); });
}
