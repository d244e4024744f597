#include "system/Sha256.h"
#include "system/Sha256Text.h"

#include <nettle/sha2.h>

std::string Sha256(std::span<const std::uint8_t> bytes) {
    sha256_ctx context;
    sha256_init(&context);
    sha256_update(&context, bytes.size(), bytes.data());
    TSha256Digest digest{};
    sha256_digest(&context, digest.size(), digest.data());
    return Sha256Text(digest);
}
