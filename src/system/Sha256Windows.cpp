#include "system/FileWindows.h"
#include "system/Sha256.h"
#include "system/Sha256Text.h"

#include <bcrypt.h>
#include <new>

namespace {
/// Of an algorithm that every Windows has, calls fail for want of memory alone.
void Sure(NTSTATUS status) {
    if (status != 0)
        throw std::bad_alloc();
}
} // namespace

std::string Sha256(std::span<const std::uint8_t> bytes) {
    BCRYPT_ALG_HANDLE algorithm = nullptr;
    Sure(BCryptOpenAlgorithmProvider(&algorithm, BCRYPT_SHA256_ALGORITHM, nullptr, 0));
    TSha256Digest digest{};
    auto *input = const_cast<PUCHAR>(bytes.data()); // not written
    const NTSTATUS status =
        BCryptHash(algorithm, nullptr, 0, input, static_cast<ULONG>(bytes.size()), digest.data(),
                   static_cast<ULONG>(digest.size()));
    BCryptCloseAlgorithmProvider(algorithm, 0);
    Sure(status);
    return Sha256Text(digest);
}
