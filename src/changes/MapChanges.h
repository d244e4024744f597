// What differs between two images in the words of the maps: cells, axes, the rev limiter, and what
// lies elsewhere. Maps are matched by kind, wherever each image has them. The bytes alone are
// ByteRuns.h's.
#pragma once

#include "changes/ByteRuns.h"
#include "changes/MappedImage.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

enum class TMapSetKind { Fuel, Timing };

/// Which of the six maps.
struct TMapId {
    TMapSetKind set;
    TMapKind kind;
    bool operator==(const TMapId &) const = default;
};

inline constexpr std::array<TMapId, 6> allMaps{{{TMapSetKind::Fuel, TMapKind::PT},
                                                {TMapSetKind::Fuel, TMapKind::Idle},
                                                {TMapSetKind::Fuel, TMapKind::WOT},
                                                {TMapSetKind::Timing, TMapKind::PT},
                                                {TMapSetKind::Timing, TMapKind::Idle},
                                                {TMapSetKind::Timing, TMapKind::WOT}}};

/// "Fuel PT".
std::string MapName(TMapId map);
/// The same in every language, for files.
const char *EnglishMapName(TMapId map);

const TMap &MapOf(const TWorkspace &maps, TMapId map);

/// A byte that differs, and where each image has it.
struct TByteDifference {
    std::uint32_t offsetBefore;
    std::uint32_t offsetAfter;
    std::uint8_t before;
    std::uint8_t after;
    bool operator==(const TByteDifference &) const = default;
};

/// A differing byte of a map's body.
struct TCellChange {
    std::int32_t rpmPoint;  ///< from 0
    std::int32_t loadPoint; ///< from 0
    TByteDifference byte;
    bool operator==(const TCellChange &) const = default;
};

/// How the maps of a kind go together in the two images.
enum class TMatch {
    Same,       ///< axes alike
    OtherAxes,  ///< as many points, but not the same
    OtherShape, ///< other numbers of points: nothing is compared
    OnlyBefore, ///< the image after has none that can be shown
    OnlyAfter,
    None, ///< neither has
};

struct TMapChanges {
    TMapId map;
    TMatch match;
    std::vector<TCellChange> cells; ///< in the order of the image
    /// In the same order. The first byte of an axis, which says where the engine has its input,
    /// and the count are among them.
    std::vector<TByteDifference> axes;
    bool Any() const;
};

struct TImageChanges {
    std::size_t sizeBefore = 0;
    std::size_t sizeAfter = 0;
    std::vector<TByteRun> runs;    ///< all differing bytes at equal offsets
    std::vector<TMapChanges> maps; ///< one for each of allMaps
    std::optional<TByteDifference> revLimiter;
    /// Of the runs what lies outside the maps and rev limiters that are compared, in both images.
    std::vector<TByteRun> elsewhere;
};

/// The differences. A byte that two maps share is told for both.
TImageChanges ImageChanges(const TMappedImage &before, const TMappedImage &after);

/// What a cell of the map shows for a stored byte, in counts or engineering units; these by the
/// timing constants in force.
double ShownValue(const TMap &map, const TCellChange &cell, std::uint8_t byte, bool converted);
