// "adjust": the bulk tool and the menu "Selection" for ranges of cells. What they calculate has
// tests of its own.
#include "cli/CliFixture.h"

namespace {
using TWords = std::vector<std::string>;
using TByteAt = std::pair<std::size_t, std::uint8_t>;

// The body of the part throttle fuel map begins at $6020, with 12 bytes for each engine speed:
//   $6020  111 113 115        600 rpm at 4, 12.4 and 20.8 %
//   $602C  112 114 117        840 rpm
//   $6038  112 114 117       1000 rpm
class TCliAdjustTest : public TCliTest {
protected:
    static TWords AdjustWords(const TWords &words, const std::string &spec = "32K.SPC") {
        TWords all{"adjust", "32K.BIN", "--spec", spec, "-o", "NEW.BIN"};
        all.insert(all.end(), words.begin(), words.end());
        return all;
    }
    /// Expects the sample with these bytes, and nothing said.
    void ExpectAdjusted(const TWords &words, const std::vector<TByteAt> &changes) {
        SCOPED_TRACE(testing::PrintToString(words));
        EXPECT_EQ(Done(AdjustWords(words)), "");
        std::vector<std::uint8_t> expected = Bytes("32K.BIN");
        for (const auto &[offset, byte] : changes)
            expected[offset] = byte;
        EXPECT_TRUE(Bytes("NEW.BIN") == expected);
    }
    void ExpectRefusedWords(const TWords &words, const std::string &line,
                            const std::string &spec = "32K.SPC") {
        ExpectRefused(AdjustWords(words, spec), line);
    }
};

TEST_F(TCliAdjustTest, AddsToTheCellsThatAreNamed) {
    ExpectAdjusted({"--raw", "fuel-pt[:840,4:12.4]", "--add", "5"},
                   {{0x6020, 116}, {0x6021, 118}, {0x602C, 117}, {0x602D, 119}});
    ExpectAdjusted({"--raw", "fuel-pt[#2,:#2]", "--add=-2"}, {{0x602C, 110}, {0x602D, 112}});
    ExpectAdjusted({"--raw", "fuel-pt[#2,:#2]", "--add", "-2"}, {{0x602C, 110}, {0x602D, 112}});
    // 0.87 and 0.05 are 0.92, 117.76 counts.
    ExpectAdjusted({"fuel-pt[600,4]", "--add", "0.05"}, {{0x6020, 118}});
    ExpectAdjusted({"timing-wot[600:840]", "--add", "0"}, {});
}

TEST_F(TCliAdjustTest, SetsAndMultiplies) {
    ExpectAdjusted({"fuel-pt[600,4]", "--set", "1"}, {{0x6020, 128}});
    ExpectAdjusted({"--raw", "fuel-pt[600,4:12]", "--multiply", "110"},
                   {{0x6020, 122}, {0x6021, 124}});
    ExpectAdjusted({"fuel-pt", "timing-pt", "--multiply", "100"}, {});
}

TEST_F(TCliAdjustTest, AddsPercentAsTheBulkToolDoes) {
    // Rounded to whole counts: 111 and 5.55 are 117, 113 and 5.65 are 119.
    ExpectAdjusted({"--raw", "fuel-pt[600,4:12]", "--add", "5%"}, {{0x6020, 117}, {0x6021, 119}});
    ExpectAdjusted({"--raw", "fuel-pt[600,4:12]", "--add=-5%"}, {{0x6020, 105}, {0x6021, 107}});
    // 5 % of a trim is no whole number; but what the cells show is entered: 0.875 as 0.88.
    ExpectAdjusted({"fuel-pt[600:840,4]", "--add", "5%"}, {{0x602C, 113}});
}

TEST_F(TCliAdjustTest, InterpolatesAlongTheAxes) {
    Done({"set", "32K.BIN", "--spec", "32K.SPC", "--raw", "fuel-pt[600,4]=100",
          "fuel-pt[1000,4]=140", "fuel-pt[600,20.8]=120", "fuel-pt[1000,20.8]=160", "--in-place"});
    // 840 rpm is six tenths of the way from 600 to 1000, 12.4 % half of that from 4 to 20.8.
    ExpectAdjusted({"--raw", "fuel-pt[600:1000,4:20.8]", "--interpolate", "rpm"},
                   {{0x602C, 124}, {0x602D, 114}, {0x602E, 144}});
    ExpectAdjusted({"--raw", "fuel-pt[600:1000,4:20.8]", "--interpolate", "load"},
                   {{0x6021, 110}, {0x602D, 115}, {0x6039, 150}});
    ExpectAdjusted({"--raw", "fuel-pt[600:1000,4:20.8]", "--interpolate", "both"},
                   {{0x602C, 124}, {0x602E, 144}, {0x6021, 110}, {0x602D, 134}, {0x6039, 150}});
    ExpectAdjusted({"timing-wot", "--interpolate", "load"}, {});
}

TEST_F(TCliAdjustTest, Smooths) {
    Done({"set", "32K.BIN", "--spec", "32K.SPC", "--raw", "fuel-pt[840,12]=60", "--in-place"});
    // The mean of the nine: (111 + 113 + 115 + 112 + 60 + 117 + 112 + 114 + 117) / 9 = 107.9.
    ExpectAdjusted({"--raw", "fuel-pt[600:1000,4:20.8]", "--smooth"}, {{0x602D, 108}});
}

TEST_F(TCliAdjustTest, AdjustsSeveralPlacesOneAfterTheOther) {
    ExpectAdjusted({"--raw", "fuel-pt[600,4]", "timing-wot[600]", "fuel-pt[600,4:12]", "--add=1"},
                   {{0x6020, 113}, {0x6021, 114}, {0x6352, 28}});
}

TEST_F(TCliAdjustTest, TellsOnceWhatIsNotStoredAsItIs) {
    const TWords words = {"--raw", "fuel-pt[600,4]", "fuel-pt[600,4]", "--add", "100"};
    const TCliResult result = Run(AdjustWords(words));
    EXPECT_EQ(result.exit, 0);
    EXPECT_EQ(result.err, "fuel-pt[600,4]: 311 does not fit a byte: 55 was stored\n");
    EXPECT_EQ(Bytes("NEW.BIN")[0x6020], 55);
    std::filesystem::remove(folder / "NEW.BIN");
    ExpectRefused(AdjustWords({"--raw", "fuel-pt[600,4]", "--add", "200", "--strict"}),
                  "fuel-pt[600,4]: 311 does not fit a byte: 55 was stored; nothing is written");
}

TEST_F(TCliAdjustTest, WantsExactlyOneOperation) {
    const std::string line = "exactly one of --add, --set, --multiply, --interpolate and --smooth "
                             "is to be given";
    ExpectRefusedWords({"fuel-pt"}, line);
    ExpectRefusedWords({"fuel-pt", "--add", "1", "--smooth"}, line);
    ExpectRefusedWords({"fuel-pt", "--set", "1", "--multiply", "1"}, line);
    ExpectRefusedWords({"fuel-pt", "--add", "1", "--add", "2"},
                       "--add: At Most 1 required but received 2");
    ExpectRefusedWords({"--smooth"}, "PLACE is required");
}

TEST_F(TCliAdjustTest, NamesValuesThatAreNone) {
    ExpectRefusedWords({"fuel-pt", "--add", "5.5%"}, "--add: '5.5%' is no whole number of percent");
    ExpectRefusedWords({"fuel-pt", "--add", "%"}, "--add: '%' is no whole number of percent");
    ExpectRefusedWords({"fuel-pt", "--add", "rich"}, "--add: 'rich' is no number");
    ExpectRefusedWords({"fuel-pt", "--set", "0,98"}, "--set: '0,98' is no number");
    ExpectRefusedWords({"fuel-pt", "--multiply", "5%"}, "--multiply: '5%' is no number");
    ExpectRefusedWords({"fuel-pt", "--interpolate", "rows"},
                       "--interpolate: 'rows' is none of rpm, load and both");
}

TEST_F(TCliAdjustTest, NamesPlacesThatAreNone) {
    ExpectRefusedWords({"fuel", "--smooth"}, "'fuel' is no map; maps are fuel-pt fuel-idle "
                                             "fuel-wot timing-pt timing-idle timing-wot");
    ExpectRefusedWords({"fuel-pt.rpm[3]", "--add", "40"},
                       "fuel-pt.rpm[3]: a point of an axis; adjust changes cells alone");
    ExpectRefusedWords({"fuel-pt[1000:600,4]", "--smooth"},
                       "fuel-pt[1000:600,4]: the first point lies behind the last one");
    PutText("NO.SPC", "; x\n[Fuel Maps]\npt_offset=$6000\n");
    ExpectRefusedWords({"fuel-pt", "fuel-wot", "--smooth"},
                       "32K.BIN: fuel-wot: Not placed: neither a spec file nor an offset says "
                       "where this map is",
                       "NO.SPC");
}

TEST_F(TCliAdjustTest, NamesAxesThatDoNotRise) {
    Done({"set", "32K.BIN", "--spec", "32K.SPC", "fuel-pt.rpm[2]=600", "fuel-pt.load[2]=4",
          "--in-place"});
    ExpectRefusedWords({"fuel-pt[:1000,:]", "--interpolate", "rpm"},
                       "fuel-pt[:1000,:]: Nothing is changed: the engine speeds of the selection "
                       "do not rise from cell to cell");
    ExpectRefusedWords({"fuel-pt[#3:,:]", "--interpolate", "both"},
                       "fuel-pt[#3:,:]: Nothing is changed: the loads of the selection do not "
                       "rise from cell to cell");
}

TEST_F(TCliAdjustTest, RefusesNumbersThatNothingCanStore) {
    ExpectRefusedWords({"fuel-pt[600,4]", "--set", "1e15"},
                       "fuel-pt[600,4]: The number is outside the range of a stored value");
    ExpectRefusedWords({"fuel-pt[600,4]", "--set", "2e9"},
                       "fuel-pt[600,4]: 2000000000.00 cannot be stored");
    PutText("ZERO.SPC", "; x\n[Main]\ntiming_divider=0\n[Timing Maps]\nwot_offset=$6340\n");
    ExpectRefusedWords({"timing-wot[600]", "--add", "1"}, "timing-wot[600]: 1.0 cannot be stored",
                       "ZERO.SPC");
    ExpectRefusedWords({"timing-wot[600]", "--add", "1%"}, "timing-wot[600]: 0.0 cannot be stored",
                       "ZERO.SPC");
}

TEST_F(TCliAdjustTest, RefusesDegreesBeyondAllNumbers) {
    PutText("INF.SPC", "; x\n[Main]\ntiming_divider=1e308\n[Timing Maps]\nwot_offset=$6340\n");
    ExpectRefusedWords({"timing-wot[600]", "--add=1"}, "timing-wot[600]: 'INF' is no number",
                       "INF.SPC");
    ExpectRefusedWords({"timing-wot[600]", "--add=1%"},
                       "timing-wot[600]: the change of INF is out of range", "INF.SPC");
    PutText("FAR.SPC", "; x\n[Main]\ntiming_divider=1e30\ntiming_subtractor=12\n[Timing Maps]\n"
                       "wot_offset=$6340\n");
    ExpectRefusedWords({"timing-wot[600]", "--add=1%"},
                       "timing-wot[600]: the change of 15000000000000000000000000000000.0 is out "
                       "of range",
                       "FAR.SPC");
}
TEST_F(TCliAdjustTest, TellsTheFirstRoundingsAndHowManyThereAre) {
    const TCliResult result = Run(
        {"adjust", "32K.BIN", "--spec", "32K.SPC", "timing-pt", "--multiply=120", "-o", "NEW.BIN"});
    EXPECT_EQ(result.exit, 0);
    EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 11);
    EXPECT_THAT(result.err, testing::StartsWith("timing-pt[600,4]: 20.5 was stored as 20.3\n"));
    EXPECT_THAT(result.err, testing::EndsWith("\nand 103 more were rounded\n"));
}

TEST_F(TCliAdjustTest, TellsEachValueThatDoesNotFit) {
    const TCliResult result = Run({"adjust", "32K.BIN", "--spec", "32K.SPC", "timing-pt", "--raw",
                                   "--add=250", "-o", "NEW.BIN"});
    EXPECT_EQ(result.exit, 0);
    EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 160);
}
} // namespace
