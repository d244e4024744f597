// The two contents that the saving program writes in turn, shared with the test that kills it.
#pragma once

#include "model/ROMImage.h"

#include <cstdint>
#include <string>
#include <vector>

inline constexpr const char *savedImage = "ROM.BIN";
inline constexpr const char *savedSpec = "MAPS.SPC";

/// Different in length and in every byte; `turn` is 0 or 1.
inline std::vector<std::uint8_t> ImageOf(int turn) {
    std::vector<std::uint8_t> bytes(turn == 0 ? 0x10000 : 0xC000);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<std::uint8_t>(i * 7 + (i >> 8) + static_cast<std::size_t>(turn));
    return bytes;
}

/// A label that makes the spec file long.
inline std::string LabelOf(int turn) {
    return turn == 0 ? std::string(20000, 'a') : std::string(28000, 'b');
}
