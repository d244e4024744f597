#include "system/Sha256.h"

#include <array>
#include <nettle/sha2.h>
#include <string_view>

std::string Sha256(std::span<const std::uint8_t> bytes) {
    sha256_ctx context;
    sha256_init(&context);
    sha256_update(&context, bytes.size(), bytes.data());
    std::array<std::uint8_t, SHA256_DIGEST_SIZE> digest;
    sha256_digest(&context, digest.size(), digest.data());

    constexpr std::string_view lowerCase = "0123456789abcdef";
    std::string text;
    for (const std::uint8_t byte : digest)
        text += {lowerCase[byte >> 4], lowerCase[byte & 0xF]};
    return text;
}
