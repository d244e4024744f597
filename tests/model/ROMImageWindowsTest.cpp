// Images under names that only some programs can cope with, and under those that differ in the case
// of letters alone.
#include "model/ROMImageFixture.h"
#include "support/NamesWindows.h"

#include <gmock/gmock.h>

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

class TROMImageNames : public TROMImageTest {
protected:
    /// Loads the image, saves it beside, loads that one.
    void LoadSaveAndLoad(const fs::path &file) {
        Image().LoadFromFile(FileOf(300, 0x42));
        Image().SaveToFile(file);
        Image().LoadFromFile(file);
        Image().Poke(299, 0x43);
        Image().SaveToFile(file);
        Image().LoadFromFile(FileOf(1, 0));
        Image().LoadFromFile(file);
        EXPECT_EQ(Image().size, 300);
        EXPECT_EQ(Get(298, 2), (TBytes{0x42, 0x43}));
    }
};

TEST_F(TROMImageNames, MayBeForeign) {
    for (const std::u8string &name : foreignNames)
        LoadSaveAndLoad(folder.Path() / fs::path(name + u8".BIN"));
}

TEST_F(TROMImageNames, MayBeLong) {
    const TLongFolder longFolder;
    LoadSaveAndLoad(longFolder / "ROM.BIN");
}

TEST_F(TROMImageNames, DifferByMoreThanLetterCase) {
    PutFile(folder / "A.BIN", TBytes(7, 1));
    fs::remove(folder / "rom.bin");
    Image().size = 5;
    Image().SaveToFile(folder / "a.bin");
    EXPECT_EQ(folder.Names().size(), 1U);
    EXPECT_EQ(GetFile(folder / "A.BIN").size(), 5U);
}

} // namespace
