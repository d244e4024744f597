#include "cli/CliFixture.h"

#include <regex>

namespace {
class TCliPatchTest : public TCliTest {
protected:
    TCliPatchTest() {
        std::vector<std::uint8_t> bytes = Bytes("32K.BIN");
        bytes[0x6003] = 5;   // 4
        bytes[0x602E] = 154; // 117
        PutFile(folder / "NEW.BIN", bytes);
        Run({"diff", "32K.BIN", "NEW.BIN", "--format", "patch", "-o", "P.patch"});
    }

    /// The first or the second image with another byte that the patch does not name.
    void PutOther(const std::string &name, const std::string &of) {
        std::vector<std::uint8_t> bytes = Bytes(of);
        bytes[0x100] ^= 0xFF;
        PutFile(folder / name, bytes);
    }

    void ExpectFits(const std::vector<std::string> &arguments) {
        EXPECT_EQ(Check(arguments).exit, 0);
    }
    /// Looks whether the patch fits; that writes nothing.
    TCliResult Check(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"patch", "--check"});
        const std::size_t files = folder.Names().size();
        const TCliResult result = Run(arguments);
        EXPECT_EQ(folder.Names().size(), files);
        return result;
    }
};

TEST_F(TCliPatchTest, OfADifferenceGivesTheOtherImage) {
    EXPECT_EQ(Done({"patch", "32K.BIN", "P.patch", "-o", "OUT.BIN"}), "");
    EXPECT_EQ(Bytes("OUT.BIN"), Bytes("NEW.BIN"));
}

TEST_F(TCliPatchTest, ReversedGivesTheFirstImage) {
    EXPECT_EQ(Done({"patch", "--reverse", "NEW.BIN", "P.patch", "-o", "OUT.BIN"}), "");
    EXPECT_EQ(Bytes("OUT.BIN"), Bytes("32K.BIN"));
}

TEST_F(TCliPatchTest, ChangesTheImageInPlace) {
    Done({"patch", "32K.BIN", "P.patch", "--in-place"});
    EXPECT_EQ(Bytes("32K.BIN"), Bytes("NEW.BIN"));
}

TEST_F(TCliPatchTest, IsThePatchThatThePagesWrite) {
    const std::regex form("Ferrolyn patch 1\nname 32K.BIN\nsize 32768\nsha256 [0-9a-f]+\n"
                          ".6003 04 -> 05\n.602E 75 -> 9a\nend 2\n");
    EXPECT_TRUE(std::regex_match(Text("P.patch"), form)) << Text("P.patch");
}

TEST_F(TCliPatchTest, IsRefusedWhereAByteDoesNotFit) {
    const std::string why = "At $6003 the image has 5 where the patch expects 4";
    ExpectRefused({"patch", "NEW.BIN", "P.patch", "-o", "OUT.BIN"}, "NEW.BIN: " + why);
    ExpectRefused({"patch", "64K.BIN", "P.patch", "-o", "OUT.BIN"},
                  "64K.BIN: The patch is for an image of 32768 bytes; this one has 65536");
    ExpectRefused({"patch", "--reverse", "32K.BIN", "P.patch", "-o", "OUT.BIN"},
                  "32K.BIN: At $6003 the image has 4 where the patch expects 5");
}

TEST_F(TCliPatchTest, FitsAnImageThatIsAnotherElsewhere) {
    PutOther("OTHER.BIN", "32K.BIN");
    const std::string note = "OTHER.BIN: all bytes fit, but it is not the image that the patch is "
                             "for: another SHA-256";
    const TCliResult result = Run({"patch", "OTHER.BIN", "P.patch", "-o", "OUT.BIN"});
    EXPECT_EQ(result.exit, 0);
    EXPECT_EQ(result.err, note + "\n");
    PutOther("EXPECTED.BIN", "NEW.BIN");
    EXPECT_EQ(Bytes("OUT.BIN"), Bytes("EXPECTED.BIN"));
    ExpectRefused({"patch", "OTHER.BIN", "P.patch", "-o", "MORE.BIN", "--strict"},
                  note + "; nothing is written");
    ExpectRefused({"patch", "--reverse", "EXPECTED.BIN", "P.patch", "-o", "MORE.BIN", "--strict"},
                  "EXPECTED.BIN: all bytes fit, but what comes out is not the image that the patch "
                  "is for: another SHA-256; nothing is written");
}

TEST_F(TCliPatchTest, IsCheckedWithoutWriting) {
    ExpectFits({"32K.BIN", "P.patch"});
    ExpectFits({"NEW.BIN", "P.patch", "--reverse"});
    ExpectFits({"32K.BIN", "P.patch", "--strict"});
    const TCliResult unfit = Check({"NEW.BIN", "P.patch"});
    EXPECT_EQ(unfit.exit, 1);
    EXPECT_EQ(unfit.out, "NEW.BIN: At $6003 the image has 5 where the patch expects 4\n");
    EXPECT_EQ(unfit.err, "");
    EXPECT_EQ(Check({"64K.BIN", "P.patch"}).exit, 1);
}

TEST_F(TCliPatchTest, IsCheckedAgainstTheDigestToo) {
    PutOther("OTHER.BIN", "32K.BIN");
    const std::string note = "OTHER.BIN: all bytes fit, but it is not the image that the patch is "
                             "for: another SHA-256\n";
    const TCliResult fits = Check({"OTHER.BIN", "P.patch"});
    EXPECT_EQ(fits.exit, 0);
    EXPECT_EQ(fits.out, "");
    EXPECT_EQ(fits.err, note);
    const TCliResult strict = Check({"OTHER.BIN", "P.patch", "--strict"});
    EXPECT_EQ(strict.exit, 1);
    EXPECT_EQ(strict.out, note);
    EXPECT_EQ(strict.err, "");
}

TEST_F(TCliPatchTest, NamesWhatIsWrong) {
    PutText("BAD.patch", "Ferrolyn patch 1\nname x\nsize much\n");
    PutText("EMPTY.BIN", "");
    ExpectRefused({"patch", "32K.BIN", "P.patch"},
                  "32K.BIN: no file to write: -o FILE, or --in-place");
    ExpectRefused({"patch", "32K.BIN", "P.patch", "-o", "P.patch"},
                  "P.patch: the output is an input, and would replace it");
    ExpectRefused({"patch", "32K.BIN", "BAD.patch", "-o", "OUT.BIN"},
                  "BAD.patch: Line 3 of the patch: 'much' is no number");
    ExpectRefused({"patch", "32K.BIN", "BAD.patch", "--check"},
                  "BAD.patch: Line 3 of the patch: 'much' is no number");
    ExpectRefused({"patch", "32K.BIN", "NONE.patch", "--check"}, NotThere("NONE.patch"));
    ExpectRefused({"patch", "EMPTY.BIN", "P.patch", "--check"},
                  "EMPTY.BIN: an image of 0 bytes has nothing in it");
    ExpectRefused({"patch", "32K.BIN", "P.patch", "--check", "-o", "OUT.BIN"},
                  "--output excludes --check");
    ExpectRefused({"patch", "32K.BIN", "P.patch", "--check", "--in-place"},
                  "--in-place excludes --check");
}
} // namespace
