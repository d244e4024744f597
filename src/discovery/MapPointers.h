// Where an image has pointers to maps: two bytes, high byte first, of which an image shorter than
// the processor's 64 KiB needs only the lower bits.
#pragma once

#include "discovery/MapPlace.h"

#include <vector>

/// For each of these offsets where pointers to it stand, in order; none where they are mostPointers
/// or more, as in a filling.
std::vector<std::vector<std::uint32_t>> PointersTo(TRomBytes image,
                                                   const std::vector<std::uint32_t> &offsets);

inline constexpr std::size_t mostPointers = 64;

/// Whether a pointer here and one there have much the same bytes around them, as the same code has.
bool PointersLieAlike(TRomBytes image, const std::vector<std::uint32_t> &pointers, TRomBytes there,
                      const std::vector<std::uint32_t> &pointersThere);

/// Whether two maps have pointers at the same distance from each other in both images, near enough
/// to be of one table.
bool PointersStandAlike(const std::vector<std::uint32_t> &toOne,
                        const std::vector<std::uint32_t> &toOther,
                        const std::vector<std::uint32_t> &toOneThere,
                        const std::vector<std::uint32_t> &toOtherThere);
