// A place in an image at which a map may lie, by the written form of maps: docs/file-formats.md.
#pragma once

#include "filedisplay/Marks.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

/// Bytes of an image.
using TRomBytes = std::span<const std::uint8_t>;

struct TMapPlace {
    std::uint32_t offset = 0; ///< of the first header byte
    TMapShape shape = TMapShape::Linear;
    std::uint8_t rpmPoints = 0;  ///< 2 to 30
    std::uint8_t loadPoints = 1; ///< 2 to 30 of a 2-D map, 1 of a linear one

    friend bool operator==(const TMapPlace &, const TMapPlace &) = default;

    bool Is2D() const { return shape == TMapShape::TwoD; }
    // Image offsets.
    std::size_t RpmSteps() const { return offset + std::size_t{2}; }
    /// Of the second header byte; a linear map has none.
    std::size_t LoadHeader() const { return RpmSteps() + rpmPoints; }
    std::size_t LoadSteps() const { return LoadHeader() + 2; }
    std::size_t Body() const { return Is2D() ? LoadSteps() + loadPoints : LoadHeader(); }
    std::size_t BodySize() const { return std::size_t{rpmPoints} * loadPoints; }
    std::size_t End() const { return Body() + BodySize(); } ///< behind the last byte
};

inline constexpr std::uint8_t fewestPoints = 2; ///< on an axis of a map
inline constexpr std::uint8_t mostPoints = 30;

/// Whether a byte can be the number of points of an axis.
constexpr bool IsPointCount(std::uint8_t byte) {
    return byte >= fewestPoints && byte <= mostPoints;
}

/// The map of this shape that starts at `offset`, if its counts are those of a map and all of it
/// lies in the image.
std::optional<TMapPlace> PlaceAt(TRomBytes image, std::size_t offset, TMapShape shape);

/// Whether the two share a byte.
bool Overlap(const TMapPlace &one, const TMapPlace &other);

/// The byte in front of the axis over RPM or load; a linear map has none of load.
std::optional<std::uint8_t> HeaderOf(TRomBytes image, const TMapPlace &place, bool ofLoad);
