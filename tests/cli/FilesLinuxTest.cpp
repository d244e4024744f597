// Linux alone: symbolic links.
#include "cli/FilesFixture.h"

namespace {
TEST_F(TCliFilesTest, WritesOverTheImageOfALinkOnlyInPlace) {
    const auto old = Bytes("32K.BIN");
    std::filesystem::create_symlink("32K.BIN", folder / "LINK.BIN");
    ExpectRefusedOutput({"-o", "LINK.BIN"},
                        "LINK.BIN: the output is the image itself; --in-place allows it");
    EXPECT_EQ(Bytes("32K.BIN"), old);
    Done({"set", "32K.BIN", "--spec", "32K.SPC", "fuel-pt[#1,#1]=0.5", "--in-place", "-o",
          "LINK.BIN"});
    EXPECT_EQ(Bytes("32K.BIN")[0x6020], 64);
}
} // namespace
