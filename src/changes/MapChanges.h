// What differs between two images in the words of the maps: cells, axes, the rev limiter, and what
// lies elsewhere. The bytes alone are ByteRuns.h's.
#pragma once

#include "changes/ByteRuns.h"
#include "model/Workspace.h"

#include <optional>
#include <vector>

enum class TMapSetKind { Fuel, Timing };

/// A changed byte of a map's body.
struct TCellChange {
    std::int32_t rpmPoint;  ///< from 0
    std::int32_t loadPoint; ///< from 0
    TByteChange byte;
    bool operator==(const TCellChange &) const = default;
};

struct TMapChanges {
    TMapSetKind set;
    TMapKind kind;
    std::vector<TCellChange> cells; ///< in the order of the image
    std::vector<TByteChange> axes;  ///< headers and counts included
};

struct TImageChanges {
    std::size_t sizeBefore = 0;
    std::size_t sizeAfter = 0;
    std::vector<TByteRun> runs;    ///< all of them
    std::vector<TMapChanges> maps; ///< those that have any
    std::optional<TByteChange> revLimiter;
    std::vector<TByteRun> elsewhere; ///< what none of the above has
};

/// The differences, told by where the maps of `workspace` lie. A byte that two maps share is told
/// for both. Maps that cannot be shown, and those without a place, have none.
TImageChanges ImageChanges(std::span<const std::uint8_t> before,
                           std::span<const std::uint8_t> after, const TWorkspace &workspace);

/// What a cell of the map shows for a stored byte, in counts or engineering units.
double ShownValue(const TMap &map, const TCellChange &cell, std::uint8_t byte, bool converted);
