#include "cli/CliFixture.h"

#include <nlohmann/json.hpp>

namespace {
// What sha256sum says of the samples.
constexpr const char *digestOf32K =
    "0635c7ffac96d4e532bb8dd413fb9b7a176b5796a1d5270c9a12a208387705d1";
constexpr const char *digestOf64K =
    "75eb8bec18d12e2c68666650b9107015911f946c7f0b220df7f34c55a7328940";

using TCliInfoTest = TCliTest;

TEST_F(TCliInfoTest, TellsSizeDigestAndTheSpecFilesThatFit) {
    EXPECT_EQ(Done({"info", "32K.BIN", "64K.BIN"}),
              std::string("32K.BIN\n  size     32768 bytes\n  SHA-256  ") + digestOf32K +
                  "\n  spec     32K.SPC: 6 maps; Ferrolyn sample 32K, offsets"
                  "\n  spec     32P.SPC: 6 maps; Ferrolyn sample 32K, map pointers"
                  "\n64K.BIN\n  size     65536 bytes\n  SHA-256  " +
                  digestOf64K + "\n");
}

TEST_F(TCliInfoTest, TellsTheSameInJson) {
    const auto json = nlohmann::json::parse(Done({"info", "--format", "json", "32K.BIN"}));
    EXPECT_EQ(json["schema"], "ferrolyn-cli/1");
    EXPECT_EQ(json["command"], "info");
    ASSERT_EQ(json["images"].size(), 1U);
    const auto &image = json["images"][0];
    EXPECT_EQ(image["name"], "32K.BIN");
    EXPECT_EQ(image["size"], 32768);
    EXPECT_EQ(image["sha256"], digestOf32K);
    const auto specs = nlohmann::json::parse(R"([
        {"file": "32K.SPC", "label": "Ferrolyn sample 32K, offsets", "maps": 6},
        {"file": "32P.SPC", "label": "Ferrolyn sample 32K, map pointers", "maps": 6}])");
    EXPECT_EQ(image["specs"], specs);
}

TEST_F(TCliInfoTest, LooksBesideTheImageWhereverItIs) {
    std::filesystem::create_directory(folder / "else");
    std::filesystem::copy_file(folder / "32K.BIN", folder / "else/32K.BIN");
    EXPECT_EQ(Done({"info", "else/32K.BIN"}).find("spec"), std::string::npos);
    std::filesystem::copy_file(folder / "32P.SPC", folder / "else/32P.SPC");
    EXPECT_NE(Done({"info", "else/32K.BIN"}).find("spec     32P.SPC: 6 maps"), std::string::npos);
}

TEST_F(TCliInfoTest, LeavesOutWhatIsNoSpecFileForIt) {
    PutText("BAD.SPC", "; no numbers\n[Fuel Maps]\npt_offset=here\n");
    PutText("NONE.SPC", "; places nothing\n[Fuel Maps]\n");
    const std::string text = Done({"info", "32K.BIN"});
    EXPECT_EQ(text.find("BAD.SPC"), std::string::npos);
    EXPECT_EQ(text.find("NONE.SPC"), std::string::npos);
    EXPECT_NE(text.find("32K.SPC"), std::string::npos);
}

TEST_F(TCliInfoTest, RefusesWhatItCannotTellAnythingOf) {
    PutText("EMPTY.BIN", "");
    ExpectRefused({"info", "EMPTY.BIN"}, "EMPTY.BIN: an image of 0 bytes has nothing in it");
    ExpectRefused({"info", "NONE.BIN"}, NotThere("NONE.BIN"));
    ExpectRefused({"info", "32K.BIN", "NONE.BIN"}, NotThere("NONE.BIN"));
    ExpectRefused({"info"}, "IMAGE is required");
    ExpectRefused({"info", "--format", "xml", "32K.BIN"}, "--format: xml not in {text,json}");
}
} // namespace
