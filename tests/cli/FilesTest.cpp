// What every command does with the files that it is given: images and spec files that are none,
// outputs that are inputs, outputs that cannot be written.
#include "cli/FilesFixture.h"

namespace {
TEST_F(TCliFilesTest, RefusesImagesThatAreNone) {
    PutText("EMPTY.BIN", "");
    PutFile(folder / "LARGE.BIN", std::vector<std::uint8_t>(0x100001));
    std::filesystem::create_directory(folder / "FOLDER");
    ExpectRefusedFiles("EMPTY.BIN", "32K.SPC", "EMPTY.BIN: an image of 0 bytes has nothing in it");
    ExpectRefusedFiles("NONE.BIN", "32K.SPC", NotThere("NONE.BIN"));
    ExpectRefusedFiles("FOLDER", "32K.SPC",
                       "Cannot read 'FOLDER': " + Words(TReason::FolderToRead));
    ExpectRefusedFiles("LARGE.BIN", "32K.SPC",
                       "Cannot read 'LARGE.BIN': it has 1048577 bytes, more than the limit of "
                       "1048576");
}

TEST_F(TCliFilesTest, RefusesSpecFilesThatPlaceNothing) {
    PutText("BAD.SPC", "; x\n[Fuel Maps]\npt_offset=here\n");
    PutText("LIMIT.SPC", "; x\n[Other Maps]\nrevlimit_offset=here\n");
    PutText("DIVIDER.SPC", "; x\n[Main]\ntiming_divider=0;65\n");
    ExpectRefusedFiles("32K.BIN", "NONE.SPC", NotThere("NONE.SPC"));
    ExpectRefusedFiles("32K.BIN", "BAD.SPC",
                       "BAD.SPC: a map offset, pointer offset or mask is no integer");
    ExpectRefusedFiles("32K.BIN", "LIMIT.SPC", "LIMIT.SPC: 'here' is not a valid integer value");
    ExpectRefusedFiles("32K.BIN", "DIVIDER.SPC",
                       "DIVIDER.SPC: '0;65' is not a valid floating point value");
}

TEST_F(TCliFilesTest, ReadsTheConstantsOfASpecFileWithAComma) {
    PutText("COMMA.SPC", "; x\n[Main]\ntiming_divider=0,5\ntiming_subtractor=12,7\n"
                         "[Timing Maps]\nwot_offset=$6340\n");
    Done({"set", "32K.BIN", "--spec", "COMMA.SPC", "timing-wot[#1]=-0.35", "-o", "NEW.BIN"});
    EXPECT_EQ(Bytes("NEW.BIN")[0x6352], 12);
}

TEST_F(TCliFilesTest, RefusesMapsThatAreNotInTheImage) {
    PutText("NO.SPC", "; x\n[Fuel Maps]\nidle_offset=$6100\n");
    PutText("FAR.SPC", "; x\n[Fuel Maps]\npt_offset=$7FC0\n[Other Maps]\nrevlimit_offset=$8000\n");
    ExpectRefusedFiles("32K.BIN", "NO.SPC",
                       "32K.BIN: fuel-pt: Not placed: neither a spec file nor an offset says where "
                       "this map is");
    // The sample's map, moved to the end of the file so that its last row would lie behind it.
    std::vector<std::uint8_t> bytes = Bytes("32K.BIN");
    std::copy_n(bytes.begin() + 0x6000, 0x40, bytes.begin() + 0x7FC0);
    PutFile(folder / "END.BIN", bytes);
    ExpectRefusedFiles("END.BIN", "FAR.SPC",
                       "END.BIN: fuel-pt: it does not lie in the file: it is at $7FC0");
    ExpectRefused({"set", "32K.BIN", "--spec", "FAR.SPC", "rev-limiter=6800", "-o", "NEW.BIN"},
                  "32K.BIN: the spec file places no rev limiter in it");
    ExpectRefused({"set", "32K.BIN", "--spec", "NO.SPC", "rev-limiter=6800", "-o", "NEW.BIN"},
                  "32K.BIN: the spec file places no rev limiter in it");
}

TEST_F(TCliFilesTest, WritesOverTheImageOnlyInPlace) {
    const auto old = Bytes("32K.BIN");
    std::filesystem::create_hard_link(folder / "32K.BIN", folder / "HARD.BIN");
    ExpectRefusedOutput({}, "32K.BIN: no file to write: -o FILE, or --in-place");
    for (const char *name : {"32K.BIN", "./32K.BIN", "HARD.BIN"})
        ExpectRefusedOutput({"-o", name}, std::string(name) +
                                              ": the output is the image itself; --in-place "
                                              "allows it");
    EXPECT_EQ(Bytes("32K.BIN"), old);
    Done({"set", "32K.BIN", "--spec", "32K.SPC", "fuel-pt[#1,#1]=1", "--in-place"});
    EXPECT_EQ(Bytes("32K.BIN")[0x6020], 128);
    Done({"set", "32K.BIN", "--spec", "32K.SPC", "fuel-pt[#1,#1]=0.5", "--in-place", "-o",
          "./32K.BIN"});
    EXPECT_EQ(Bytes("32K.BIN")[0x6020], 64);
}

TEST_F(TCliFilesTest, NeverWritesOverASpecFile) {
    ExpectRefusedOutput({"-o", "32K.SPC"}, "32K.SPC: the output is an input, and would replace it");
    ExpectRefusedOutput({"-o", "32K.SPC", "--in-place"},
                        "32K.SPC: the output is an input, and would replace it");
}

TEST_F(TCliFilesTest, SaysWhereItCannotWrite) {
    ExpectRefusedOutput({"-o", "NO/NEW.BIN"}, NoFolderFor("NO/NEW.BIN"));
}

TEST_F(TCliFilesTest, ReplacesAnOlderOutput) {
    PutText("NEW.BIN", "old");
    Done({"set", "32K.BIN", "--spec", "32K.SPC", "fuel-pt[#1,#1]=1", "-o", "NEW.BIN"});
    EXPECT_EQ(Bytes("NEW.BIN").size(), 0x8000U);
}
} // namespace
