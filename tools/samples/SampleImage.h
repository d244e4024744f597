// Builds the sample ROM images: bytes laid out as an engine control unit stores its maps, invented
// from a fixed seed. What is written to which file is SampleFiles.h.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

/// The six maps of an image, in the order of its pointer table.
enum TSampleMap { smFuelPT, smFuelIdle, smFuelWOT, smTimingPT, smTimingIdle, smTimingWOT };

inline constexpr int sampleMapCount = 6;
inline constexpr int sampleRpmPoints = 16;

/// Where things lie in one image. All offsets are file offsets.
struct TSamplePlan {
    std::uint32_t seed;
    std::uint32_t size;         ///< bytes, a power of two
    std::uint32_t cpuBase;      ///< address of the image's first byte on the processor's bus
    std::uint32_t codeEnd;      ///< the erased (0xFF) gap runs from here to the vectors
    std::uint32_t pointerTable; ///< six big-endian bus addresses, in the order of TSampleMap
    std::uint32_t revLimiter;   ///< offset of the one-byte rev limiter
    std::uint8_t revLimit;      ///< stored limit, 40 rpm per count
    std::array<std::uint32_t, sampleMapCount> maps; ///< start of each map (its first axis)
    int fuelLoadPoints;                             ///< load points of the part throttle fuel map
    int timingLoadPoints;                           ///< load points of the part throttle timing map
};

/// The 32 KiB image, seen by the processor from 0x8000 on, so that its pointers need the mask $7F.
const TSamplePlan &Sample32K();

/// The 64 KiB variant: other seed, other places, pointers that need no mask.
const TSamplePlan &Sample64K();

/// The image of `plan`, the same bytes on every machine (integer arithmetic only).
///
/// Each map is [RAM location][count][steps] per axis, then its body, load varying fastest; RPM
/// counts are 40 rpm, load counts 0.4 %, fuel cells 1/128, timing cells (count - 12.7) * 0.65
/// degrees.
std::vector<std::uint8_t> BuildSampleImage(const TSamplePlan &plan);
