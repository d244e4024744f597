#include "cli/CliFixture.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {
using testing::HasSubstr;

class TCliCheckTest : public TCliTest {
protected:
    /// Expects these findings, in this order, of the sample as the spec file places its maps.
    void ExpectFound(const std::string &spec, const std::vector<std::string> &findings) {
        PutText("TEST.SPC", spec);
        ExpectFoundIn("32K.BIN", "TEST.SPC", findings);
    }
    void ExpectFoundIn(const std::string &image, const std::string &spec,
                       const std::vector<std::string> &findings) {
        const TCliResult result = Run({"check", image, "--spec", spec});
        EXPECT_EQ(result.exit, 1);
        EXPECT_EQ(result.err, "");
        std::string text;
        for (const std::string &finding : findings)
            text += image + ": " + finding + '\n';
        EXPECT_EQ(result.out, text);
    }

    /// Another image: the sample with other bytes.
    void Put(const std::string &name,
             const std::vector<std::pair<std::size_t, std::uint8_t>> &bytes) {
        std::vector<std::uint8_t> image = Bytes("32K.BIN");
        for (const auto &[offset, byte] : bytes)
            image[offset] = byte;
        PutFile(folder / name, image);
    }

    /// A spec file of the sample's places, with others instead.
    static std::string Spec(const std::string &pt, const std::string &idle = "$6100",
                            const std::string &limiter = "$01F0") {
        return "; x\n[Fuel Maps]\npt_offset=" + pt + "\nidle_offset=" + idle +
               "\nwot_offset=$6140\n[Timing Maps]\npt_offset=$6200\nidle_offset=$6300\n"
               "wot_offset=$6340\n[Other Maps]\nrevlimit_offset=" +
               limiter + "\n";
    }
};

TEST_F(TCliCheckTest, FindsNothingInTheSample) {
    EXPECT_EQ(Done({"check", "32K.BIN", "--spec", "32K.SPC"}), "32K.BIN: nothing found\n");
    EXPECT_EQ(Done({"check", "32K.BIN", "--spec", "32P.SPC"}), "32K.BIN: nothing found\n");
}

TEST_F(TCliCheckTest, FindsMapsWithoutAPlace) {
    ExpectFound("; x\n[Fuel Maps]\npt_offset=$6000\nidle_offset=$6100\n[Timing Maps]\n"
                "pt_offset=$6200\nidle_offset=$6300\nwot_offset=$6340\n",
                {"fuel-wot: it has no place"});
}

TEST_F(TCliCheckTest, FindsPlacesOutsideTheFile) {
    ExpectFound(Spec("$8000"), {"fuel-pt: it does not lie in the file: it is at $8000"});
    ExpectFound(Spec("$FFFFFFF0"), {"fuel-pt: it does not lie in the file: it is at $FFFFFFF0"});
    ExpectFound(Spec("$6000", "$6100", "$8000"),
                {"rev-limiter: it does not lie in the file: it is at $8000"});
    // A map whose last bytes would lie behind the end.
    std::vector<std::uint8_t> cut = Bytes("32K.BIN");
    cut.resize(0x6361);
    PutFile(folder / "CUT.BIN", cut);
    ExpectFoundIn("CUT.BIN", "32K.SPC",
                  {"timing-wot: it does not lie in the file: it is at $6340"});
    cut.push_back(40);
    PutFile(folder / "WHOLE.BIN", cut);
    Done({"check", "WHOLE.BIN", "--spec", "32K.SPC"});
}

TEST_F(TCliCheckTest, FindsPointersOutsideTheFile) {
    std::string spec = Text("32P.SPC");
    spec.replace(spec.find("$0012"), 5, "$7DFF"); // relative to $0200: its second byte is no more
    ExpectFound(spec, {"fuel-idle: its pointer does not lie in the file: it is at $7FFF"});
}

TEST_F(TCliCheckTest, FindsCountsThatDoNotFit) {
    Put("NO.BIN", {{0x6001, 0}, {0x6101, 32}});
    ExpectFoundIn("NO.BIN", "32K.SPC",
                  {"fuel-pt: 0 engine speeds: there is no map at $6000",
                   "fuel-idle: 32 engine speeds: a map of 32 or more is not shown"});
    Put("LOAD.BIN", {{0x6013, 21}});
    ExpectFoundIn("LOAD.BIN", "32K.SPC",
                  {"fuel-pt: 21 load points: a map of 21 or more is not shown"});
}

TEST_F(TCliCheckTest, FindsAxesThatDoNotRise) {
    Put("FLAT.BIN", {{0x6103, 0}});
    ExpectFoundIn(
        "FLAT.BIN", "32K.SPC",
        {"fuel-idle: its RPM axis does not rise from point 2 to the next: both are 1040"});
    Put("LOAD.BIN", {{0x6014, 0}, {0x6103, 255}});
    const TCliResult result = Run({"check", "LOAD.BIN", "--spec", "32K.SPC"});
    EXPECT_THAT(result.out, HasSubstr("fuel-pt: its load axis does not rise from point 1 to the "
                                      "next: both are "));
    EXPECT_THAT(result.out, HasSubstr("fuel-idle: its RPM axis begins below 0, at -9"));
    EXPECT_THAT(result.out, HasSubstr(": it does not rise, or its steps are too large\n"));
}

TEST_F(TCliCheckTest, FindsOverlaps) {
    ExpectFound(Spec("$6000", "$6140"),
                {"fuel-idle, fuel-wot: they share the bytes from $6140 to $6161"});
    ExpectFound(Spec("$6000", "$6100", "$60DF"),
                {"fuel-pt, rev-limiter: they share the bytes from $60DF to $60DF"});
    PutText("BESIDE.SPC", Spec("$6000", "$6100", "$60E0"));
    EXPECT_THAT(Run({"check", "32K.BIN", "--spec", "BESIDE.SPC"}).out,
                testing::Not(HasSubstr("share")));
}

TEST_F(TCliCheckTest, FindsFormsThatDisagree) {
    const std::string direct = "[Fuel Maps]\npt_offset=$6000\nidle_offset=$6140\n";
    ExpectFound(Text("32P.SPC") + direct,
                {"fuel-idle: its pointer leads to $6100, its offset is $6140"});
    PutText("AGREE.SPC", Text("32P.SPC") + "[Fuel Maps]\npt_offset=$6000\n");
    Done({"check", "32K.BIN", "--spec", "AGREE.SPC"});
    PutText("HALF.SPC", Text("32P.SPC") + "[Fuel Maps]\npt_offset=here\n");
    Done({"check", "32K.BIN", "--spec", "HALF.SPC"}); // the form in force is whole
}

TEST_F(TCliCheckTest, FindsValuesAtTheEnds) {
    Put("ENDS.BIN", {{0x6020, 0}, {0x6021, 255}, {0x60DF, 255}, {0x6120, 0}});
    ExpectFoundIn("ENDS.BIN", "32K.SPC",
                  {"fuel-pt: of 192 values 1 are 0 and 2 are 255 (counts)",
                   "fuel-idle: of 16 values 1 are 0 and 0 are 255 (counts)"});
}

TEST_F(TCliCheckTest, FindsARevLimiterAtTheEnds) {
    Put("NONE.BIN", {{0x01F0, 0}});
    ExpectFoundIn("NONE.BIN", "32K.SPC", {"rev-limiter: its count is 0"});
    Put("ALL.BIN", {{0x01F0, 255}});
    ExpectFoundIn("ALL.BIN", "32K.SPC", {"rev-limiter: its count is 255"});
}

TEST_F(TCliCheckTest, TellsProgramsInJson) {
    PutText("TEST.SPC", Spec("$6000", "$6140"));
    const TCliResult result = Run({"check", "32K.BIN", "--spec", "TEST.SPC", "--format", "json"});
    EXPECT_EQ(result.exit, 1);
    const QJsonObject json =
        QJsonDocument::fromJson(QByteArray::fromStdString(result.out)).object();
    EXPECT_EQ(json, (QJsonObject{
                        {"schema", "ferrolyn-cli/1"},
                        {"command", "check"},
                        {"image", "32K.BIN"},
                        {"findings", QJsonArray{QJsonObject{
                                         {"kind", "overlap"},
                                         {"maps", QJsonArray{"fuel-idle", "fuel-wot"}},
                                         {"text", "they share the bytes from $6140 to $6161"}}}}}));
}

TEST_F(TCliCheckTest, NamesTheKindOfEachFindingInJson) {
    const auto kind = [&](const std::string &image, const std::string &spec) {
        const TCliResult result = Run({"check", image, "--spec", spec, "--format", "json"});
        EXPECT_EQ(result.exit, 1) << result.out << result.err;
        const QJsonDocument json = QJsonDocument::fromJson(QByteArray::fromStdString(result.out));
        return json["findings"][0]["kind"].toString().toStdString();
    };
    PutText("NO.SPC", Spec("0"));
    PutText("FAR.SPC", Spec("$8000"));
    PutText("BOTH.SPC", Text("32P.SPC") + "[Fuel Maps]\npt_offset=$6140\n");
    Put("COUNT.BIN", {{0x6001, 0}});
    Put("FLAT.BIN", {{0x6103, 0}});
    Put("ENDS.BIN", {{0x6020, 0}});
    Put("LIMIT.BIN", {{0x01F0, 0}});
    EXPECT_EQ(kind("32K.BIN", "NO.SPC"), "not_placed");
    EXPECT_EQ(kind("32K.BIN", "FAR.SPC"), "outside_file");
    EXPECT_EQ(kind("32K.BIN", "BOTH.SPC"), "forms");
    EXPECT_EQ(kind("COUNT.BIN", "32K.SPC"), "counts");
    EXPECT_EQ(kind("FLAT.BIN", "32K.SPC"), "axis");
    EXPECT_EQ(kind("ENDS.BIN", "32K.SPC"), "values_at_ends");
    EXPECT_EQ(kind("LIMIT.BIN", "32K.SPC"), "rev_limiter_end");
}

TEST_F(TCliCheckTest, NamesWhatIsWrong) {
    PutText("BAD.SPC", "; x\n[Fuel Maps]\npt_offset=here\n");
    PutText("EMPTY.BIN", "");
    ExpectRefused({"check", "32K.BIN"}, "--spec is required");
    ExpectRefused({"check", "32K.BIN", "--spec", "NONE.SPC"}, NotThere("NONE.SPC"));
    ExpectRefused({"check", "32K.BIN", "64K.BIN", "--spec", "BAD.SPC"},
                  "BAD.SPC: a map offset, pointer offset or mask is no integer");
    ExpectRefused({"check", "EMPTY.BIN", "--spec", "32K.SPC"},
                  "EMPTY.BIN: an image of 0 bytes has nothing in it");
    ExpectRefused({"check", "32K.BIN", "--spec", "32K.SPC", "--format", "csv"},
                  "--format: csv not in {text,json,jsonl}");
}
} // namespace
