// For Linux alone: elsewhere no file has a name with a star.
#include "pages/ROMInfoFixture.h"

namespace {
TEST_F(TROMInfoTest, ACaptionShowsTheMarkOfAnEditedFileAsItStandsInTheName) {
    const std::filesystem::path rom = MakeROM("A [*] &B.BIN");
    Load(rom);
    EXPECT_EQ(Caption(), "Ferrolyn - " + Name(rom).replace("[*]", "[*][*]"))
        << "doubled, which the toolkit shows as it stands";
}
} // namespace
