#include "cli/CliFixture.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {
class TCliDiffTest : public TCliTest {
protected:
    TCliDiffTest() {
        std::vector<std::uint8_t> bytes = Bytes("32K.BIN");
        bytes[0x6003] = 5;   // step 2 of fuel-pt's RPM axis: 4
        bytes[0x602E] = 154; // a cell of fuel-pt: 117
        bytes[0x6353] = 43;  // a cell of timing-wot: 27
        bytes[0x01F0] = 163; // rev limiter: 170
        bytes[0x0300] ^= 0xFF;
        PutFile(folder / "NEW.BIN", bytes);
        old = Bytes("32K.BIN");
    }

    /// Expects an end that tells a difference; gives standard output.
    std::string Differ(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "diff");
        const TCliResult result = Run(arguments);
        EXPECT_EQ(result.exit, 1);
        EXPECT_EQ(result.err, "");
        return result.out;
    }

    /// The image with a map elsewhere, and a spec file that says so.
    void MoveFuelWot() {
        std::vector<std::uint8_t> bytes = Bytes("32K.BIN");
        std::copy_n(old.begin() + 0x6140, 0x22, bytes.begin() + 0x7000);
        bytes[0x7013] = 100;
        PutFile(folder / "WOT.BIN", bytes);
        PutText("WOT.SPC", "; x\n[Fuel Maps]\npt_offset=$6000\nwot_offset=$7000\n");
    }

    static std::string Hex(std::uint8_t byte) {
        return QString("%1").arg(byte, 2, 16, QChar('0')).toUpper().toStdString();
    }

    std::vector<std::uint8_t> old;
};

TEST_F(TCliDiffTest, TellsByMapAndCell) {
    const std::string elsewhere = Hex(static_cast<std::uint8_t>(old[0x300] ^ 0xFF)) + " here, " +
                                  Hex(old[0x300]) + " there\n";
    EXPECT_EQ(Differ({"32K.BIN", "NEW.BIN", "--spec", "32K.SPC"}),
              "here: NEW.BIN\nthere: 32K.BIN\n"
              "fuel-pt: 1 cell, other axes\n"
              "  $6003: 5 here, 4 there\n"
              "  fuel-pt[800,21]: 1.20 (154) here, 0.91 (117) there: +0.29\n"
              "timing-wot: 1 cell\n"
              "  timing-wot[840]: 19.7 (43) here, 9.3 (27) there: +10.4\n"
              "rev-limiter: 6520 here, 6800 there\n"
              "elsewhere: 1 byte in 1 place\n"
              "  $0300: " +
                  elsewhere + "5 bytes differ from 32K.BIN\n");
}

TEST_F(TCliDiffTest, TellsBytesAloneWithoutASpecFile) {
    std::vector<std::uint8_t> bytes = old;
    bytes[0x100] = 0xAB;
    bytes[0x101] = 0xCD;
    PutFile(folder / "TWO.BIN", bytes);
    EXPECT_EQ(
        Differ({"32K.BIN", "TWO.BIN"}),
        "here: TWO.BIN\nthere: 32K.BIN\nelsewhere: 2 bytes in 1 place\n  $0100: AB CD here, " +
            Hex(old[0x100]) + " " + Hex(old[0x101]) + " there\n2 bytes differ from 32K.BIN\n");
}

TEST_F(TCliDiffTest, ExitsWithZeroWhereNothingDiffers) {
    EXPECT_EQ(Done({"diff", "32K.BIN", "32K.BIN"}), "No byte differs from 32K.BIN\n");
    EXPECT_EQ(Done({"diff", "32K.BIN", "32K.BIN", "--spec", "32P.SPC"}),
              "No byte differs from 32K.BIN\n");
}

TEST_F(TCliDiffTest, TellsAnotherLength) {
    std::vector<std::uint8_t> bytes = old;
    bytes.push_back(0);
    PutFile(folder / "LONG.BIN", bytes);
    EXPECT_EQ(
        Differ({"32K.BIN", "LONG.BIN", "--spec", "32K.SPC"}),
        "No byte differs from 32K.BIN; 32769 bytes are here and 32768 bytes there: the longer "
        "end is left out\n");
}

TEST_F(TCliDiffTest, TakesTheMapsOfTheOtherImageFromItsOwnSpecFile) {
    MoveFuelWot();
    const std::string text =
        Differ({"32K.BIN", "WOT.BIN", "--spec", "32K.SPC", "--spec-b", "WOT.SPC"});
    EXPECT_THAT(text, testing::HasSubstr("\nfuel-idle: only there\nfuel-wot: 1 cell\n"
                                         "  fuel-wot[840]: 0.78 (100) here, "));
    EXPECT_THAT(text, testing::HasSubstr("\ntiming-wot: only there\n"));
    // The same bytes, but other places.
    EXPECT_THAT(Differ({"32K.BIN", "32K.BIN", "--spec", "WOT.SPC", "--spec-b", "32K.SPC"}),
                testing::HasSubstr("\nfuel-idle: only here\n"));
}

TEST_F(TCliDiffTest, WritesTheTableOfThePages) {
    const std::string start = "map,what,RPM,load,old offset,new offset,old count,new count,old "
                              "value,new value\r\nFuel PT,axis,,,$6003,$6003,4,5,,\r\n"
                              "Fuel PT,cell,800,21,$602E,$602E,117,154,0.91,1.20\r\n"
                              "Timing WOT,cell,840,100,$6353,$6353,27,43,9.3,19.7\r\n"
                              ",rev limiter,,,$01F0,$01F0,170,163,6800,6520\r\n"
                              ",elsewhere,,,$0300,$0300,";
    EXPECT_THAT(Differ({"32K.BIN", "NEW.BIN", "--spec", "32K.SPC", "--format", "csv"}),
                testing::StartsWith(start));
}

TEST_F(TCliDiffTest, TellsProgramsInJson) {
    const std::string text =
        Differ({"32K.BIN", "NEW.BIN", "--spec", "32K.SPC", "--format", "json"});
    const QJsonObject json = QJsonDocument::fromJson(QByteArray::fromStdString(text)).object();
    EXPECT_EQ(json["schema"], "ferrolyn-cli/1");
    EXPECT_EQ(json["command"], "diff");
    EXPECT_EQ(json["before"], (QJsonObject{{"image", "32K.BIN"}, {"size", 32768}}));
    EXPECT_EQ(json["after"], (QJsonObject{{"image", "NEW.BIN"}, {"size", 32768}}));
    EXPECT_EQ(json["differ"], true);
    EXPECT_EQ(json["bytes"], 5);
    EXPECT_EQ(json["maps"].toArray().size(), 6);
    EXPECT_EQ(json["maps"][0],
              (QJsonObject{{"name", "fuel-pt"},
                           {"match", "other_axes"},
                           {"cells", QJsonArray{QJsonObject{{"cell", "fuel-pt[800,21]"},
                                                            {"column", 2},
                                                            {"row", 3},
                                                            {"before", 0.91},
                                                            {"after", 1.2},
                                                            {"offset_before", 0x602E},
                                                            {"offset_after", 0x602E},
                                                            {"raw_before", 117},
                                                            {"raw_after", 154}}}},
                           {"axes", QJsonArray{QJsonObject{{"offset_before", 0x6003},
                                                           {"offset_after", 0x6003},
                                                           {"raw_before", 4},
                                                           {"raw_after", 5}}}}}));
    EXPECT_EQ(json["maps"][1], (QJsonObject{{"name", "fuel-idle"},
                                            {"match", "same"},
                                            {"cells", QJsonArray()},
                                            {"axes", QJsonArray()}}));
    EXPECT_EQ(json["rev_limiter"]["raw_after"], 163);
    EXPECT_EQ(json["elsewhere"],
              (QJsonArray{QJsonObject{{"offset", 0x300},
                                      {"raw_before", QJsonArray{old[0x300]}},
                                      {"raw_after", QJsonArray{old[0x300] ^ 0xFF}}}}));
}

TEST_F(TCliDiffTest, TellsProgramsThatNothingDiffers) {
    const std::string text = Done({"diff", "32K.BIN", "32K.BIN", "--format", "json"});
    const QJsonObject json = QJsonDocument::fromJson(QByteArray::fromStdString(text)).object();
    EXPECT_EQ(json["differ"], false);
    EXPECT_TRUE(json["rev_limiter"].isNull());
    EXPECT_EQ(json["maps"][0]["match"], "none");
}

TEST_F(TCliDiffTest, WritesAFileInstead) {
    EXPECT_EQ(Differ({"32K.BIN", "NEW.BIN", "-o", "D.TXT"}), "");
    EXPECT_EQ(Text("D.TXT"), Differ({"32K.BIN", "NEW.BIN"}));
    for (const char *input : {"32K.BIN", "NEW.BIN", "32K.SPC", "32P.SPC"})
        ExpectRefused(
            {"diff", "32K.BIN", "NEW.BIN", "--spec", "32K.SPC", "--spec-b", "32P.SPC", "-o", input},
            std::string(input) + ": the output is an input, and would replace it");
}

TEST_F(TCliDiffTest, NamesWhatIsWrong) {
    PutText("EMPTY.BIN", "");
    ExpectRefused({"diff", "32K.BIN"}, "B is required");
    ExpectRefused({"diff", "32K.BIN", "NEW.BIN", "--spec-b", "32K.SPC"},
                  "--spec-b requires --spec");
    ExpectRefused({"diff", "32K.BIN", "NEW.BIN", "--format", "xml"},
                  "--format: xml not in {text,csv,json,patch}");
    ExpectRefused({"diff", "32K.BIN", "EMPTY.BIN"},
                  "EMPTY.BIN: an image of 0 bytes has nothing in it");
    ExpectRefused({"diff", "32K.BIN", "64K.BIN", "--format", "patch"},
                  "32K.BIN, 64K.BIN: A patch needs two images of the same length");
}
} // namespace
