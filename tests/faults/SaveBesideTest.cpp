// A save under a new name does without the loaded file: whatever that has become, it neither delays
// nor hinders the save.
#include "pages/ROMInfoFixture.h"

#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

class TSaveBesideDeathTest : public TROMInfoTest {
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

TEST_F(TSaveBesideDeathTest, AFileThatMayNotBeWritten) {
    fs::permissions(rom, fs::perms(0444));
    EXPECT_EXIT(SaveWithoutRights(), testing::ExitedWithCode(0), "");
}

TEST_F(TSaveBesideDeathTest, APipe) {
    fs::remove(rom);
    ASSERT_EQ(mkfifo(rom.c_str(), 0666), 0);
    EXPECT_EXIT(SaveWithoutRights(), testing::ExitedWithCode(0), "");
}

} // namespace
