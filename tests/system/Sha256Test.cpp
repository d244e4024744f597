// The digest: the published examples, and a file.
#include "system/Sha256.h"

#include "support/TemporaryFolder.h"

#include <string_view>

#include <gtest/gtest.h>

namespace {
std::string OfText(std::string_view text) {
    return Sha256({reinterpret_cast<const std::uint8_t *>(text.data()), text.size()});
}

TEST(Sha256Test, IsThatOfThePublishedExamples) {
    EXPECT_EQ(OfText(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(OfText("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(OfText("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
              "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
    EXPECT_EQ(OfText(std::string(1'000'000, 'a')),
              "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

TEST(Sha256Test, OfTheSampleIsTheOneInItsDescription) {
    const std::filesystem::path samples = std::filesystem::path(FERROLYN_SOURCE_DIR) / "samples";
    EXPECT_EQ(Sha256(GetFile(samples / "FERRO32K.BIN")),
              "0635c7ffac96d4e532bb8dd413fb9b7a176b5796a1d5270c9a12a208387705d1");
}
} // namespace
