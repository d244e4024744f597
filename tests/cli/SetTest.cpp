// "set": cells, points of axes and the rev limiter.
#include "cli/CliFixture.h"

#include <utility>

namespace {
using TByteAt = std::pair<std::size_t, std::uint8_t>;
using TWords = std::vector<std::string>;

class TCliSetTest : public TCliTest {
protected:
    static TWords SetWords(const TWords &assignments, const std::string &spec = "32K.SPC") {
        TWords words{"set", "32K.BIN", "--spec", spec, "-o", "NEW.BIN"};
        words.insert(words.end(), assignments.begin(), assignments.end());
        return words;
    }

    /// Expects the new file to be the sample with these bytes.
    void ExpectBytes(const std::vector<TByteAt> &changes, const std::string &name = "NEW.BIN") {
        std::vector<std::uint8_t> expected =
            GetFile(std::filesystem::path(FERROLYN_SOURCE_DIR) / "samples/FERRO32K.BIN");
        for (const auto &[offset, byte] : changes)
            expected[offset] = byte;
        EXPECT_TRUE(Bytes(name) == expected);
    }

    /// Expects that of setting these, and nothing said.
    void ExpectSet(const TWords &assignments, const std::vector<TByteAt> &changes) {
        EXPECT_EQ(Done(SetWords(assignments)), "");
        ExpectBytes(changes);
    }

    /// Expects that, and these lines on standard error.
    void ExpectNoted(const TWords &assignments, const std::vector<TByteAt> &changes,
                     const std::string &notes) {
        const TCliResult result = Run(SetWords(assignments));
        EXPECT_EQ(result.exit, 0);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err, notes);
        ExpectBytes(changes);
    }

    void ExpectRefusedPlace(const std::string &assignment, const std::string &line) {
        ExpectRefused(SetWords({assignment}), line);
    }
};

// The body of the part throttle fuel map begins at $6020, with 12 bytes for each engine speed; that
// of full throttle timing at $6352.

TEST_F(TCliSetTest, SetsACellByItsNumbersOrByItsAxisValues) {
    ExpectSet({"fuel-pt[#2,#3]=1"}, {{0x602E, 128}});
    ExpectSet({"fuel-pt[840,21]=1"}, {{0x602E, 128}});
    ExpectSet({"fuel-pt[840,20.8%]=1"}, {{0x602E, 128}});
    ExpectSet({"fuel-pt[840,#3]=1"}, {{0x602E, 128}});
    ExpectSet({"timing-wot[#16]=0.845"}, {{0x6361, 14}});
}

TEST_F(TCliSetTest, SetsPointsOfAxesAndTheRevLimiter) {
    // A point that is 40 rpm higher: one step longer before it, one shorter behind.
    ExpectSet({"fuel-pt.rpm[2]=880"}, {{0x6002, 7}, {0x6003, 3}});
    ExpectSet({"fuel-pt.rpm[#2]=880"}, {{0x6002, 7}, {0x6003, 3}});
    ExpectSet({"fuel-pt.load[12]=99.6"}, {{0x601E, 22}, {0x601F, 1}});
    ExpectSet({"rev-limiter=6520"}, {{0x01F0, 163}});
}

TEST_F(TCliSetTest, SetsAllInOneGoByTheAxesOfTheOldImage) {
    ExpectSet(
        {"fuel-pt.rpm[2]=880", "fuel-pt[840,#3]=1", "timing-wot[#16]=0.845", "rev-limiter=6520",
         "fuel-pt[#1,#1]=0.5", "fuel-pt[#1,#1]=1"},
        {{0x6002, 7}, {0x6003, 3}, {0x602E, 128}, {0x6361, 14}, {0x01F0, 163}, {0x6020, 128}});
}

TEST_F(TCliSetTest, TakesCountsWithRaw) {
    ExpectSet({"--raw", "fuel-pt[#2,#3]=130", "timing-wot[#16]=14"}, {{0x602E, 130}, {0x6361, 14}});
}

TEST_F(TCliSetTest, FollowsThePointersOfASpecFile) {
    EXPECT_EQ(Done(SetWords({"fuel-pt[840,21]=1"}, "32P.SPC")), "");
    ExpectBytes({{0x602E, 128}});
}

TEST_F(TCliSetTest, SaysWhatIsNotStoredAsGiven) {
    ExpectNoted({"fuel-pt[#2,#3]=2.01"}, {{0x602E, 1}},
                "fuel-pt[840,21]: 2.01 does not fit a byte: 0.01 was stored\n");
    ExpectNoted({"fuel-pt[#2,#3]=0.999", "fuel-pt.load[12]=99.7", "rev-limiter=6530"},
                {{0x602E, 128}, {0x601E, 22}, {0x601F, 1}, {0x01F0, 163}},
                "fuel-pt[840,21]: 0.999 was stored as 1.00\n"
                "fuel-pt.load[12]: 99.7 was stored as 100\n"
                "rev-limiter: 6530 was stored as 6520\n");
    ExpectNoted({"--raw", "fuel-pt[#2,#3]=-1"}, {{0x602E, 255}},
                "fuel-pt[840,21]: -1 does not fit a byte: 255 was stored\n");
}

TEST_F(TCliSetTest, StrictRefusesWhatIsNotStoredAsGiven) {
    ExpectRefused(SetWords({"--strict", "fuel-pt[#2,#3]=0.999"}),
                  "fuel-pt[840,21]: 0.999 was stored as 1.00; nothing is written");
    ExpectRefused(SetWords({"--strict", "fuel-pt[#2,#3]=0.999", "rev-limiter=6530"}),
                  "fuel-pt[840,21]: 0.999 was stored as 1.00 (and 1 more); nothing is written");
    EXPECT_EQ(Done(SetWords({"--strict", "fuel-pt[#2,#3]=1"})), "");
}

TEST_F(TCliSetTest, RefusesPlacesThatAreNone) {
    const std::string form = ": no place in a map, such as fuel-pt[3120,56], fuel-pt[#5,#3], "
                             "fuel-wot[3120] or fuel-pt.rpm[3]";
    const std::string maps = " is no map; maps are fuel-pt fuel-idle fuel-wot timing-pt "
                             "timing-idle timing-wot";
    ExpectRefusedPlace("fuel-pt[1,2=1", "'fuel-pt[1,2'" + form);
    ExpectRefusedPlace("fuel-pt[]=1", "'fuel-pt[]'" + form);
    ExpectRefusedPlace("fuel-pt.rpm=1", "'fuel-pt.rpm'" + form);
    ExpectRefusedPlace("fuel-pt.speed[1]=1", "'fuel-pt.speed[1]'" + form);
    ExpectRefusedPlace("fuel=1", "'fuel'" + maps);
    ExpectRefusedPlace("=1", "''" + maps);
}

TEST_F(TCliSetTest, RefusesPlacesThatTheMapDoesNotHave) {
    const std::string speeds = "; there are 600 840 1000 1320 1760 2160 2560 3120 3600 4040 4640 "
                               "5120 5720 6200 6880 7600";
    ExpectRefusedPlace("fuel-pt[#0,#1]=1", "fuel-pt[#0,#1]: '#0' is not among the 16 RPM points");
    ExpectRefusedPlace("fuel-pt[#1,#13]=1",
                       "fuel-pt[#1,#13]: '#13' is not among the 12 load points");
    ExpectRefusedPlace("fuel-pt[#1,#x]=1", "fuel-pt[#1,#x]: '#x' is not among the 12 load points");
    ExpectRefusedPlace("fuel-pt[3000,#1]=1", "fuel-pt[3000,#1]: no RPM point is 3000" + speeds);
    ExpectRefusedPlace("fuel-pt[x,#1]=1", "fuel-pt[x,#1]: 'x' is no number");
    ExpectRefusedPlace("fuel-pt[#1]=1", "fuel-pt[#1]: this map has two axes: MAP[RPM,LOAD]");
    ExpectRefusedPlace("fuel-wot[#1,#1]=1", "fuel-wot[#1,#1]: this map has one axis: MAP[RPM]");
    ExpectRefusedPlace("fuel-wot.load[1]=1", "fuel-wot.load[1]: this map has no load axis");
    ExpectRefusedPlace("fuel-pt[#1:#2,#1]=1",
                       "fuel-pt[#1:#2,#1]: more than one cell; a cell is MAP[RPM,LOAD]");
    ExpectRefusedPlace("fuel-pt=1", "fuel-pt: more than one cell; a cell is MAP[RPM,LOAD]");
    ExpectRefusedPlace("fuel-pt[#2:#1,#1]=1",
                       "fuel-pt[#2:#1,#1]: the first point lies behind the last one");
}

TEST_F(TCliSetTest, RefusesAPointThatIsThereTwice) {
    EXPECT_EQ(Done(SetWords({"fuel-pt.rpm[2]=600"})), "");
    ExpectRefused({"set", "NEW.BIN", "--spec", "32K.SPC", "fuel-pt[600,#1]=1", "-o", "B.BIN"},
                  "fuel-pt[600,#1]: more than one RPM point is 600; name it by its number, #1");
}

TEST_F(TCliSetTest, RefusesValuesThatAreNone) {
    ExpectRefusedPlace("fuel-pt[#2,#3]", "'fuel-pt[#2,#3]': no '='; it is PLACE=VALUE, as "
                                         "fuel-pt[3120,56]=0.98");
    ExpectRefusedPlace("fuel-pt[#2,#3]=", "fuel-pt[840,21]: '' is no number");
    ExpectRefusedPlace("fuel-pt[#2,#3]=0,98", "fuel-pt[840,21]: '0,98' is no number");
    ExpectRefusedPlace("rev-limiter=fast", "rev-limiter: 'fast' is no number");
    ExpectRefusedPlace("rev-limiter=1e300", "rev-limiter: 1e300 cannot be stored");
    ExpectRefusedPlace("fuel-pt[#2,#3]=1e12", "fuel-pt[840,21]: 1e12 cannot be stored");
    PutText("ZERO.SPC", "; x\n[Main]\ntiming_divider=0\n[Timing Maps]\nwot_offset=$6340\n");
    ExpectRefused(SetWords({"timing-wot[#1]=1"}, "ZERO.SPC"),
                  "timing-wot[600]: 1 cannot be stored");
}

TEST_F(TCliSetTest, TellsOfTheLastNumberOfACellByTheAxesOfTheOldImage) {
    ExpectSet({"--raw", "fuel-pt[#1,#1]=300", "fuel-pt[#1,#1]=1"}, {{0x6020, 1}});
    ExpectNoted({"fuel-pt.rpm[2]=880", "fuel-pt[840,#3]=0.999"},
                {{0x6002, 7}, {0x6003, 3}, {0x602E, 128}},
                "fuel-pt[840,21]: 0.999 was stored as 1.00\n");
}

TEST_F(TCliSetTest, TellsWhatAllPointsOfAnAxisHaveBecome) {
    // A point behind the next one is 255 counts before it, and so are all before that.
    ExpectNoted({"fuel-pt.rpm[2]=1040"}, {{0x6002, 11}, {0x6003, 255}},
                "fuel-pt.rpm[1]: 600 was stored as -9640\n"
                "fuel-pt.rpm[2]: 1040 was stored as -9200\n");
    ExpectSet({"fuel-pt.rpm[16]=10240"}, {{0x6010, 84}, {0x6011, 0}});
}
} // namespace
