#include "cli/CliFixture.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {
using testing::HasSubstr;
using testing::StartsWith;

class TCliFindTest : public TCliTest {
protected:
    QJsonObject Json(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"find", "--format", "json"});
        return QJsonDocument::fromJson(QByteArray::fromStdString(Done(arguments))).object();
    }
    static std::ptrdiff_t LinesOf(const std::string &text) {
        return std::count(text.begin(), text.end(), '\n');
    }
};

constexpr const char *headOf64K =
    "6 likely maps in 64 KiB\n"
    "RPM in RAM cell $4A: 6 of 6 likely maps. Load in RAM cell $4C: 2 of 2 likely maps\n";

TEST_F(TCliFindTest, ListsTheLikelyMaps) {
    EXPECT_EQ(Done({"find", "64K.BIN"}),
              std::string(headOf64K) +
                  "#  offset  map                    shape    RPM       load   chance\n"
                  "1  $C91A   Timing, part throttle  16 x 8   600-7600  4-100  99 %\n"
                  "2  $B2C6   Fuel, part throttle    16 x 12  600-7600  4-100  99 %\n"
                  "3  $C8D0   Timing, idle           16       600-7600         99 %\n"
                  "4  $B43D   Fuel, full throttle    16       600-7600         99 %\n"
                  "5  $B406   Fuel, idle             16       600-7600         99 %\n"
                  "6  $CA04   Timing, full throttle  16       600-7600         99 %\n");
}

TEST_F(TCliFindTest, ListsMoreOrFewer) {
    EXPECT_EQ(Done({"find", "64K.BIN", "--most", "2"}),
              std::string(headOf64K) +
                  "#  offset  map                    shape    RPM       load   chance\n"
                  "1  $C91A   Timing, part throttle  16 x 8   600-7600  4-100  99 %\n"
                  "2  $B2C6   Fuel, part throttle    16 x 12  600-7600  4-100  99 %\n");
    EXPECT_EQ(LinesOf(Done({"find", "64K.BIN", "--most", "10"})), 3 + 10);
    EXPECT_EQ(LinesOf(Done({"find", "64K.BIN", "--all"})), 3 + 100);
}

TEST_F(TCliFindTest, SaysWhy) {
    EXPECT_THAT(Done({"find", "64K.BIN", "--reasons", "--most", "1"}),
                HasSubstr("99 %\n      For it: "));
}

TEST_F(TCliFindTest, SaysWhenNothingIsThere) {
    PutFile(folder / "NIL.BIN", std::vector<std::uint8_t>(4096));
    EXPECT_EQ(Done({"find", "NIL.BIN"}), "No likely map was found in 4 KiB\n");
}

TEST_F(TCliFindTest, TellsProgramsInJson) {
    const QJsonObject json = Json({"64K.BIN"});
    EXPECT_EQ(json["schema"], "ferrolyn-cli/1");
    EXPECT_EQ(json["command"], "find");
    EXPECT_EQ(json["image"], "64K.BIN");
    EXPECT_EQ(json["size"], 65536);
    EXPECT_EQ(json["likely"], 6);
    EXPECT_EQ(json["rpm_location"], (QJsonObject{{"location", 0x4A}, {"maps", 6}, {"of_maps", 6}}));
    EXPECT_EQ(json["load_location"]["location"], 0x4C);
    ASSERT_EQ(json["maps"].toArray().size(), 6);
    QJsonObject first = json["maps"][0].toObject();
    EXPECT_GT(first.take("chance").toDouble(), 0.99);
    EXPECT_EQ(first, (QJsonObject{{"rank", 1},
                                  {"name", "timing-pt"},
                                  {"proposed", true},
                                  {"offset", 0xC91A},
                                  {"rpm_points", 16},
                                  {"load_points", 8},
                                  {"rpm", QJsonObject{{"first", 600}, {"last", 7600}}},
                                  {"load", QJsonObject{{"first", 4}, {"last", 100}}}}));
    EXPECT_TRUE(json["maps"][2]["load"].isNull());
    EXPECT_EQ(Json({"64K.BIN", "--most", "8"})["maps"][7]["proposed"], false);
}

TEST_F(TCliFindTest, TellsProgramsWhyInJson) {
    const QJsonObject json = Json({"64K.BIN", "--reasons"});
    const QJsonObject reason = json["maps"][0]["reasons"][0].toObject();
    EXPECT_TRUE(reason["text"].toString().size() > 0);
    EXPECT_EQ(reason["speaks_for"], true);
}

TEST_F(TCliFindTest, WritesTheProposalAsASpecFile) {
    Done({"find", "64K.BIN", "--spec-out", "64K.SPC"});
    EXPECT_EQ(Text("64K.SPC"), "; 64K.BIN\n"
                               "[Fuel Maps]\npt_offset=$B2C6\nidle_offset=$B406\nwot_offset=$B43D\n"
                               "[Timing Maps]\npt_offset=$C91A\nidle_offset=$C8D0\n"
                               "wot_offset=$CA04\n[Other Maps]\nrevlimit_offset=$FFFFFFFF\n");
}

TEST_F(TCliFindTest, SaysWhatItCannotPropose) {
    // The sample without its fuel maps.
    std::vector<std::uint8_t> bytes = Bytes("64K.BIN");
    std::fill(bytes.begin() + 0xB2C6, bytes.begin() + 0xB480, std::uint8_t{0xFF});
    PutFile(folder / "HALF.BIN", bytes);
    const TCliResult result = Run({"find", "HALF.BIN", "--spec-out", "HALF.SPC"});
    EXPECT_EQ(result.exit, 0);
    EXPECT_EQ(result.err, "fuel-pt: no place is proposed; it is $0000 in HALF.SPC\n"
                          "fuel-idle: no place is proposed; it is $0000 in HALF.SPC\n"
                          "fuel-wot: no place is proposed; it is $0000 in HALF.SPC\n");
    EXPECT_THAT(Text("HALF.SPC"), HasSubstr("[Fuel Maps]\npt_offset=$0000\nidle_offset=$0000\n"
                                            "wot_offset=$0000\n[Timing Maps]\npt_offset=$C91A\n"));
}

TEST_F(TCliFindTest, NamesWhatIsWrong) {
    ExpectRefused({"find"}, "IMAGE is required");
    ExpectRefused({"find", "NONE.BIN"}, NotThere("NONE.BIN"));
    ExpectRefused({"find", "64K.BIN", "--most", "0"}, "--most: Value 0 not in range 1 to 100");
    ExpectRefused({"find", "64K.BIN", "--most", "9", "--all"}, "--most excludes --all");
    ExpectRefused({"find", "64K.BIN", "--format", "xml"}, "--format: xml not in {text,json,jsonl}");
    ExpectRefused({"find", "64K.BIN", "--spec-out", "64K.BIN"},
                  "64K.BIN: the output is an input, and would replace it");
    ExpectRefused({"find", "64K.BIN", "--spec-out", "NO/64K.SPC"}, NoFolderFor("NO/64K.SPC"));
    ExpectRefused({"find", "64K.BIN", "32K.BIN", "--spec-out", "X.SPC"},
                  "--spec-out is for one image");
    ExpectRefused({"find", "64K.BIN", "32K.BIN", "--format", "text"},
                  "--format text is for one image; of many each is a line of JSON");
}
} // namespace
