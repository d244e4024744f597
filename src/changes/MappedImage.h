// An image with maps of its own beside the one in force: the file as it was loaded, another file, a
// version that was kept. Looking into it leaves the image in force and its maps alone.
#pragma once

#include "model/ImageInForce.h"
#include "model/Workspace.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

/// The bytes of the file that is in memory as they are committed: with the rev limiter, which a
/// commit takes and only "Save ROM" writes into the image.
std::vector<std::uint8_t> CommittedBytes(const TWorkspace &maps);

class TMappedImage {
public:
    /// Of the first TROMImage::capacity of these bytes; no map has a place.
    explicit TMappedImage(std::span<const std::uint8_t> bytes);

    std::span<const std::uint8_t> Bytes() const;
    /// Placed in this image; what they hold was read from it.
    const TWorkspace &Maps() const { return *maps_; }
    const TTimingConstants &Timing() const { return contents_.timing; }

    /// Shows counts or units as the other maps do, now and once they are placed.
    void ShowAs(const TWorkspace &others);

    /// Places the maps and the rev limiter where those of the image in force are, through the same
    /// pointers where these are placed so, shown as these are, with the same timing constants.
    void PlaceAs(const TWorkspace &others);

    /// Places the maps that have an offset here, in the order fuel, timing; part throttle, idle,
    /// full throttle; with these timing constants, shown as the others are.
    void PlaceAt(const std::array<std::optional<std::uint32_t>, 6> &offsets,
                 const TTimingConstants &timing, const TWorkspace &others);

    /// Places them by a spec file; false when one of its numbers is no integer, which places
    /// nothing. Throws EFileError or EConvertError as reading it does: the maps are then where the
    /// part of it that could be read has placed them.
    bool PlaceBySpec(const std::filesystem::path &spec);

    /// Shows engineering units, or counts.
    void ShowUnits(bool units);

    /// Runs `look` while this image is in force.
    void InForce(const std::function<void()> &look) const;

    /// As InForce, for what changes the maps and saves them into the image.
    void Change(const std::function<void(TWorkspace &maps)> &change);

private:
    mutable TROMContents contents_; ///< goes away only while it is in force
    std::unique_ptr<TWorkspace> maps_ = std::make_unique<TWorkspace>();
};
