// Spec files for places that a command proposes.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

struct TSpecPlaces {
    std::array<std::optional<std::uint32_t>, 6> maps; ///< in the order of allMaps
    std::optional<std::uint32_t> revLimiter;
};

/// Writes a new spec file, its first line the image's name. What has no place is $0000, so that an
/// offset of 0 cannot be told; the rev limiter then is none. Throws EFileError.
void WriteNewSpec(const std::filesystem::path &file, const std::filesystem::path &image,
                  const TSpecPlaces &places);
