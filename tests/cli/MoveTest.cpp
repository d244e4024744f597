#include "cli/CliFixture.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {
using testing::HasSubstr;
using testing::Not;

class TCliMoveTest : public TCliTest {
protected:
    TCliMoveTest() {
        // The sample with 288 bytes more in front of its maps.
        moved = Bytes("32K.BIN");
        moved.insert(moved.begin() + 0x5000, 0x120, std::uint8_t{0xFF});
        moved.resize(0x8000);
        PutFile(folder / "MOVED.BIN", moved);
        // And with its idle fuel map by itself, far away.
        std::vector<std::uint8_t> alone = moved;
        std::fill_n(alone.begin() + 0x6220, 0x40, std::uint8_t{0xFF});
        std::copy_n(moved.begin() + 0x6220, 0x22, alone.begin() + 0x7800);
        PutFile(folder / "ALONE.BIN", alone);
        std::fill_n(alone.begin() + 0x7800, 0x22, std::uint8_t{0xFF});
        PutFile(folder / "GONE.BIN", alone);
    }

    static std::vector<std::string> Words(const std::string &to,
                                          const std::vector<std::string> &more = {}) {
        std::vector<std::string> words{"move", "--from", "32K.BIN", "--spec", "32K.SPC",
                                       "--to", to,       "-o",      "NEW.SPC"};
        words.insert(words.end(), more.begin(), more.end());
        return words;
    }

    static std::string Spec(const std::string &label, const std::string &idle) {
        return "; " + label + "\n[Fuel Maps]\npt_offset=$6120\nidle_offset=" + idle +
               "\nwot_offset=$6260\n[Timing Maps]\npt_offset=$6320\nidle_offset=$6420\n"
               "wot_offset=$6460\n[Other Maps]\nrevlimit_offset=$01F0\n";
    }

    std::vector<std::uint8_t> moved;
};

TEST_F(TCliMoveTest, WritesWhereTheMapsAreNow) {
    const std::string text = Done(Words("MOVED.BIN"));
    EXPECT_THAT(text, testing::StartsWith("fuel-pt: sure: $6000 -> $6120\n"
                                          "  Axis steps that are equal: 28 of 28.\n"));
    EXPECT_THAT(text, HasSubstr("\n  Other maps that moved by its distance (+$0120): 5.\n"
                                "fuel-idle: sure: $6100 -> $6220\n"));
    EXPECT_THAT(text, HasSubstr("\nrev-limiter: sure: $01F0 -> $01F0\n"));
    EXPECT_EQ(Text("NEW.SPC"), Spec("MOVED.BIN", "$6220"));
}

TEST_F(TCliMoveTest, LooksForMapsBehindPointersToo) {
    Done({"move", "--from", "32K.BIN", "--spec", "32P.SPC", "--to", "MOVED.BIN", "-o", "NEW.SPC"});
    EXPECT_EQ(Text("NEW.SPC"), Spec("MOVED.BIN", "$6220"));
}

TEST_F(TCliMoveTest, WritesWhatIsUnsureOnlyWhenAsked) {
    const std::string text = Done(Words("ALONE.BIN"));
    EXPECT_THAT(text, HasSubstr("\nfuel-idle: unsure: $6100 -> $7800\n"
                                "  Too little of it, or of what is around it, is equal.\n"));
    EXPECT_EQ(Text("NEW.SPC"), Spec("ALONE.BIN", "$0000"));
    EXPECT_EQ(Done(Words("ALONE.BIN", {"--unsure"})), text);
    EXPECT_EQ(Text("NEW.SPC"), Spec("ALONE.BIN", "$7800"));
}

TEST_F(TCliMoveTest, TellsWhatIsNotFound) {
    EXPECT_THAT(Done(Words("GONE.BIN")), HasSubstr("\nfuel-idle: not found: $6100 -> no place\n"));
    EXPECT_EQ(Text("NEW.SPC"), Spec("GONE.BIN", "$0000"));
}

TEST_F(TCliMoveTest, WritesNothingUnlessAllAreSure) {
    ExpectRefused(Words("ALONE.BIN", {"--strict"}),
                  "ALONE.BIN: fuel-idle is unsure; nothing is written");
    ExpectRefused(Words("ALONE.BIN", {"--strict", "--unsure"}),
                  "ALONE.BIN: fuel-idle is unsure; nothing is written");
    ExpectRefused(Words("GONE.BIN", {"--strict"}),
                  "GONE.BIN: fuel-idle is not found; nothing is written");
    Done(Words("MOVED.BIN", {"--strict"}));
    EXPECT_EQ(Text("NEW.SPC"), Spec("MOVED.BIN", "$6220"));
}

TEST_F(TCliMoveTest, SaysWhichTimingConstantsGetLost) {
    for (const auto &[constant, note] :
         {std::pair("timing_divider=0.7", "timing_divider=0.7, timing_subtractor=12.7"),
          std::pair("timing_subtractor=13", "timing_divider=0.65, timing_subtractor=13.0")}) {
        PutText("OWN.SPC",
                "; x\n[Main]\n" + std::string(constant) + "\n[Fuel Maps]\npt_offset=$6000\n");
        const TCliResult result = Run({"move", "--from", "32K.BIN", "--spec", "OWN.SPC", "--to",
                                       "MOVED.BIN", "-o", "NEW.SPC"});
        EXPECT_EQ(result.exit, 0);
        EXPECT_EQ(result.err,
                  "NEW.SPC: to be added by hand, in [Main]: " + std::string(note) + "\n");
    }
}

TEST_F(TCliMoveTest, TellsProgramsInJson) {
    const std::string text = Done(Words("ALONE.BIN", {"--format", "json"}));
    const QJsonObject json = QJsonDocument::fromJson(QByteArray::fromStdString(text)).object();
    EXPECT_EQ(json["schema"], "ferrolyn-cli/1");
    EXPECT_EQ(json["command"], "move");
    EXPECT_EQ(json["from"], "32K.BIN");
    EXPECT_EQ(json["to"], "ALONE.BIN");
    ASSERT_EQ(json["maps"].toArray().size(), 6);
    QJsonObject idle = json["maps"][1].toObject();
    EXPECT_EQ(idle.take("reasons")[0], "Too little of it, or of what is around it, is equal.");
    EXPECT_EQ(idle, (QJsonObject{{"name", "fuel-idle"},
                                 {"known_offset", 0x6100},
                                 {"offset", 0x7800},
                                 {"sureness", "unsure"}}));
    EXPECT_EQ(json["maps"][0]["sureness"], "sure");
    EXPECT_EQ(json["rev_limiter"]["offset"], 0x1F0);
}

TEST_F(TCliMoveTest, TellsProgramsWhatIsNotFound) {
    const std::string text = Done(Words("GONE.BIN", {"--format", "json"}));
    const QJsonObject json = QJsonDocument::fromJson(QByteArray::fromStdString(text)).object();
    EXPECT_EQ(json["maps"][1]["sureness"], "not_found");
    EXPECT_TRUE(json["maps"][1]["offset"].isNull());
}

TEST_F(TCliMoveTest, NamesWhatIsWrong) {
    PutText("EMPTY.BIN", "");
    ExpectRefused({"move", "--from", "32K.BIN"}, "--spec is required");
    ExpectRefused({"move", "--from", "32K.BIN", "--spec", "32K.SPC", "--to", "MOVED.BIN"},
                  "--output is required");
    ExpectRefused(Words("EMPTY.BIN"), "EMPTY.BIN: an image of 0 bytes has nothing in it");
    ExpectRefused(Words("MOVED.BIN", {"--format", "csv"}), "--format: csv not in {text,json}");
    for (const char *input : {"32K.BIN", "32K.SPC", "MOVED.BIN"})
        ExpectRefused(
            {"move", "--from", "32K.BIN", "--spec", "32K.SPC", "--to", "MOVED.BIN", "-o", input},
            std::string(input) + ": the output is an input, and would replace it");
}
} // namespace
