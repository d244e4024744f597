// The digest: the published examples, and another program on a file.
#include "system/Sha256.h"

#include "support/TemporaryFolder.h"
#include "system/FileErrors.h"

#include <array>
#include <cstdio>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>

namespace {
std::string OfText(std::string_view text) {
    return Sha256({reinterpret_cast<const std::uint8_t *>(text.data()), text.size()});
}

/// What sha256sum says of a file: its first word.
std::string OfProgram(const std::filesystem::path &file) {
    std::FILE *output = popen(("sha256sum '" + file.string() + "'").c_str(), "r");
    std::array<char, 64> digest{};
    const std::size_t length = std::fread(digest.data(), 1, digest.size(), output);
    EXPECT_EQ(pclose(output), 0);
    return {digest.data(), length};
}

TEST(Sha256Test, IsThatOfThePublishedExamples) {
    EXPECT_EQ(OfText(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(OfText("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(OfText("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
              "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
    EXPECT_EQ(OfText(std::string(1'000'000, 'a')),
              "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
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
