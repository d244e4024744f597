// Where two byte buffers differ. What the bytes mean is MapChanges.h's; differences as a file are
// Patch.h's.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

/// Bytes in a row that all differ. 32 bits are enough: an image has at most 1 MiB.
struct TByteRun {
    std::uint32_t offset;
    std::uint32_t length;
    bool operator==(const TByteRun &) const = default;
};

/// A byte that differs.
struct TByteChange {
    std::uint32_t offset;
    std::uint8_t before;
    std::uint8_t after;
    bool operator==(const TByteChange &) const = default;
};

/// The runs, from low to high offsets, each as long as it can be. Of buffers of different lengths
/// only the common first part is compared.
std::vector<TByteRun> DifferingRuns(std::span<const std::uint8_t> before,
                                    std::span<const std::uint8_t> after);

/// How many bytes the runs have together.
std::size_t BytesOf(const std::vector<TByteRun> &runs);
