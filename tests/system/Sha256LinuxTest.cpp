// Linux alone: the digest against another program.
#include "support/TemporaryFolder.h"
#include "system/Sha256.h"

#include <array>
#include <cstdio>
#include <vector>

#include <gtest/gtest.h>

namespace {
/// What sha256sum says of a file: its first word.
std::string OfProgram(const std::filesystem::path &file) {
    std::FILE *output = popen(("sha256sum '" + file.string() + "'").c_str(), "r");
    std::array<char, 64> digest{};
    const std::size_t length = std::fread(digest.data(), 1, digest.size(), output);
    EXPECT_EQ(pclose(output), 0);
    return {digest.data(), length};
}

TEST(Sha256Test, IsThatOfAnotherProgram) {
    const TTemporaryFolder folder;
    for (const std::size_t length : {0U, 1U, 55U, 56U, 64U, 4097U, 65536U}) {
        std::vector<std::uint8_t> bytes(length);
        for (std::size_t i = 0; i < length; ++i)
            bytes[i] = static_cast<std::uint8_t>(i * i >> 3);
        PutFile(folder / "a.bin", bytes);
        EXPECT_EQ(Sha256(bytes), OfProgram(folder / "a.bin")) << length;
    }
}
} // namespace
