// The two contents that the saving program writes in turn, shared with the test that kills it.
#pragma once

#include "model/ROMImage.h"
#include "spec/IniFile.h"

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

inline TIniFile SpecOf(int turn) {
    std::string text = turn == 0 ? "; Turn 0\n[Main]\n" : "; Turn 1\n[Main]\n";
    for (int i = 0; i < 500 + 200 * turn; ++i)
        text += "key" + std::to_string(i) + "=" + std::string(40, turn == 0 ? 'a' : 'b') + "\n";
    return TIniFile(text);
}
