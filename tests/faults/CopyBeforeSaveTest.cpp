// The copy of the loaded file that goes before a save under a new name: whatever the loaded file
// has become, the copy neither waits nor hinders the save.
#include "pages/ROMInfoFixture.h"

#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

class TCopyBeforeSaveDeathTest : public TROMInfoTest {
protected:
    void SetUp() override {
        TROMInfoTest::SetUp();
        rom = MakeROM("A.BIN", 7);
        expected = GetFile(rom);
        LoadAndPlace(rom);
        fs::permissions(folder.Path(), fs::perms::all);
        Cell(*workspace.fuelMapSet.PTMap).SetValue(77);
        expected[fuelPT + 6 + 5] = 77;
    }
    /// Ends the process, which has no rights but everybody's: with 0 when the save works.
    [[noreturn]] void SaveWithoutRights() {
        if (geteuid() == 0 && setuid(65534) != 0)
            _exit(2);
        dialogs.messages.clear();
        dialogs.saves = {Name(folder / "NEW.BIN")};
        other->DataChanged = true;
        page->ShowPage();
        Button("btnSave").click();
        EXPECT_EQ(dialogs.messages, QStringList());
        EXPECT_EQ(GetFile(folder / "NEW.BIN"), expected);
        _exit(HasFailure() ? 1 : 0);
    }
    fs::path rom;
    TBytes expected;
};

TEST_F(TCopyBeforeSaveDeathTest, OfAFileThatMayNotBeWritten) {
    fs::permissions(rom, fs::perms(0444));
    EXPECT_EXIT(SaveWithoutRights(), testing::ExitedWithCode(0), "");
}

TEST_F(TCopyBeforeSaveDeathTest, OfAPipe) {
    fs::remove(rom);
    ASSERT_EQ(mkfifo(rom.c_str(), 0666), 0);
    EXPECT_EXIT(SaveWithoutRights(), testing::ExitedWithCode(0), "");
}

} // namespace
