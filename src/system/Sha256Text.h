// A digest as text, for the files of this room that have a system work it out.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

using TSha256Digest = std::array<std::uint8_t, 32>;

/// 64 lower-case hexadecimal digits.
inline std::string Sha256Text(const TSha256Digest &digest) {
    constexpr std::string_view lowerCase = "0123456789abcdef";
    std::string text;
    for (const std::uint8_t byte : digest)
        text += {lowerCase[byte >> 4], lowerCase[byte & 0xF]};
    return text;
}
