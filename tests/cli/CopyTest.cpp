// "copy": whole maps from one image into another, by the rules by which the window pastes them.
#include "cli/CliFixture.h"

namespace {
using TBytes = std::vector<std::uint8_t>;

class TCliCopyTest : public TCliTest {
protected:
    /// The sample with other cells, axes and rev limiter, as FROM.BIN.
    TCliCopyTest() {
        Done({"set", "32K.BIN", "--spec", "32K.SPC", "-o", "FROM.BIN", "--raw", "fuel-pt[#1,#1]=1",
              "fuel-pt.rpm[2]=880", "fuel-pt.load[12]=99.6", "fuel-idle[#16]=2", "fuel-wot[#1]=3",
              "timing-pt[#16,#10]=4", "timing-idle[#1]=5", "timing-wot.rpm[2]=840",
              "rev-limiter=6520"});
    }
    /// `bytes` with those of FROM.BIN from `first` to `last`.
    TBytes WithPart(TBytes bytes, std::size_t first, std::size_t last) {
        const TBytes from = Bytes("FROM.BIN");
        for (std::size_t place = first; place <= last; ++place)
            bytes[place] = from[place];
        return bytes;
    }
};

TEST_F(TCliCopyTest, CopiesTheMapsThatAreNamedWithTheirAxes) {
    EXPECT_EQ(Done({"copy", "FROM.BIN", "--spec", "32K.SPC", "32K.BIN", "--spec", "32P.SPC",
                    "fuel-pt", "timing-wot", "-o", "NEW.BIN"}),
              "");
    const TBytes expected = WithPart(WithPart(Bytes("32K.BIN"), 0x6000, 0x60DF), 0x6340, 0x6361);
    EXPECT_TRUE(Bytes("NEW.BIN") == expected);
    EXPECT_FALSE(Bytes("NEW.BIN") == Bytes("32K.BIN"));
}

TEST_F(TCliCopyTest, CopiesAllMapsWithoutAName) {
    EXPECT_EQ(Done({"copy", "FROM.BIN", "32K.BIN", "--spec", "32K.SPC", "-o", "NEW.BIN"}), "");
    TBytes expected = Bytes("FROM.BIN"); // the rev limiter is in no map
    expected[0x01F0] = Bytes("32K.BIN")[0x01F0];
    EXPECT_TRUE(Bytes("NEW.BIN") == expected);
}

TEST_F(TCliCopyTest, LeavesAMapWhereItsImageHasIt) {
    PutText("THERE.SPC", "; x\n[Fuel Maps]\nidle_offset=$6140\n");
    Done({"copy", "FROM.BIN", "--spec", "32K.SPC", "32K.BIN", "--spec", "THERE.SPC", "fuel-idle",
          "-o", "NEW.BIN"});
    TBytes expected = Bytes("32K.BIN");
    const TBytes from = Bytes("FROM.BIN");
    // All but the first byte of the axis, which says where the unit has its engine speed.
    for (std::size_t place = 1; place < 34; ++place)
        expected[0x6140 + place] = from[0x6100 + place];
    EXPECT_TRUE(Bytes("NEW.BIN") == expected);
    EXPECT_NE(expected, Bytes("32K.BIN"));
}

TEST_F(TCliCopyTest, CopiesCountsWhateverTheTimingConstants) {
    PutText("OTHER.SPC", "; x\n[Main]\ntiming_divider=0\n[Timing Maps]\npt_offset=$6200\n");
    Done({"copy", "FROM.BIN", "--spec", "32K.SPC", "32K.BIN", "--spec", "OTHER.SPC", "timing-pt",
          "-o", "NEW.BIN"});
    EXPECT_TRUE(Bytes("NEW.BIN") == WithPart(Bytes("32K.BIN"), 0x6200, 0x62BD));
}

TEST_F(TCliCopyTest, ChangesAnImageInPlace) {
    Done({"copy", "FROM.BIN", "32K.BIN", "--spec", "32K.SPC", "--in-place"});
    EXPECT_EQ(Bytes("32K.BIN")[0x6020], 1);
}

TEST_F(TCliCopyTest, RefusesMapsOfAnotherShape) {
    // A map with 15 points, and the 64K sample's, whose timing map has 8 loads for 10.
    TBytes fewer = Bytes("32K.BIN");
    fewer[0x6101] = 15;
    PutFile(folder / "FEWER.BIN", fewer);
    ExpectRefused({"copy", "FROM.BIN", "FEWER.BIN", "--spec", "32K.SPC", "-o", "NEW.BIN"},
                  "FEWER.BIN: fuel-idle: Fuel Idle Map in paste buffer has different RPM axis "
                  "count");
    PutText("64K.SPC", "; x\n[Timing Maps]\npt_offset=$C91A\n");
    ExpectRefused({"copy", "FROM.BIN", "--spec", "32K.SPC", "64K.BIN", "--spec", "64K.SPC",
                   "timing-pt", "-o", "NEW.BIN"},
                  "64K.BIN: timing-pt: Timing PT Map in paste buffer has different Load axis "
                  "count");
}

TEST_F(TCliCopyTest, RefusesMapsThatEitherImageHasNot) {
    PutText("NO.SPC", "; x\n[Fuel Maps]\npt_offset=$6000\n");
    const std::string reason = ".BIN: fuel-wot: Not placed: neither a spec file nor an offset says "
                               "where this map is";
    ExpectRefused({"copy", "FROM.BIN", "--spec", "NO.SPC", "32K.BIN", "--spec", "32K.SPC",
                   "fuel-pt", "fuel-wot", "-o", "NEW.BIN"},
                  "FROM" + reason);
    ExpectRefused({"copy", "FROM.BIN", "--spec", "32K.SPC", "32K.BIN", "--spec", "NO.SPC",
                   "fuel-pt", "fuel-wot", "-o", "NEW.BIN"},
                  "32K" + reason);
}

TEST_F(TCliCopyTest, NamesWhatIsWrong) {
    ExpectRefused({"copy", "FROM.BIN", "32K.BIN", "-o", "NEW.BIN"}, "--spec is required");
    ExpectRefused({"copy", "FROM.BIN", "--spec", "32K.SPC", "-o", "NEW.BIN"}, "TO is required");
    ExpectRefused({"copy", "FROM.BIN", "32K.BIN", "--spec", "32K.SPC", "--spec", "32P.SPC",
                   "--spec", "32K.SPC", "-o", "NEW.BIN"},
                  "32K.SPC: a third spec file, and there are two images");
    ExpectRefused({"copy", "FROM.BIN", "32K.BIN", "--spec", "32K.SPC", "fuel", "-o", "NEW.BIN"},
                  "'fuel' is no map; maps are fuel-pt fuel-idle fuel-wot timing-pt timing-idle "
                  "timing-wot");
    ExpectRefused({"copy", "NONE.BIN", "32K.BIN", "--spec", "32K.SPC", "-o", "NEW.BIN"},
                  NotThere("NONE.BIN"));
    ExpectRefused({"copy", "FROM.BIN", "32K.BIN", "--spec", "32K.SPC"},
                  "32K.BIN: no file to write: -o FILE, or --in-place");
}

TEST_F(TCliCopyTest, NeverWritesOverWhatItReads) {
    const std::string line = ": the output is an input, and would replace it";
    for (const char *name : {"FROM.BIN", "32K.SPC", "32P.SPC"})
        ExpectRefused({"copy", "FROM.BIN", "--spec", "32K.SPC", "32K.BIN", "--spec", "32P.SPC",
                       "--in-place", "-o", name},
                      name + line);
    ExpectRefused({"copy", "32K.BIN", "32K.BIN", "--spec", "32K.SPC", "--in-place"},
                  "32K.BIN" + line);
}
} // namespace
