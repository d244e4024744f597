// For Linux alone: a full disk is a limit of the process there, and rights are a user's, who can be
// another one.
#include "pages/FullDisk.h"
#include "pages/ROMInfoSaveFixture.h"
#include "pages/SaveSpecFixture.h"

#include <unistd.h>

#include <gmock/gmock.h>

namespace {
namespace fs = std::filesystem;

TEST_F(TROMInfoSaveTest, AFullDiskLeavesTheOldFile) {
    const fs::path target = folder / "B.BIN";
    PutFile(target, TBytes(10, 9));
    const TBytes expected = Edit();
    dialogs.answers = {TAnswer::Yes};
    {
        const TFullDisk full(0x4000);
        Save(target);
    }
    EXPECT_EQ(dialogs.messages, QStringList{"Cannot write '" + Name(target) + "': File too large"});
    EXPECT_EQ(GetFile(target), TBytes(10, 9));
    EXPECT_EQ(GetFile(rom), original);
    EXPECT_THAT(folder.Names(), testing::UnorderedElementsAre("A.BIN", "B.BIN", "DIRECT.SPC"));
    ExpectNextSaveWorks(expected);
}

TEST_F(TROMInfoSaveTest, AFullDiskLeavesNoHalfOfANewFile) {
    Edit();
    {
        const TFullDisk full(0x4000);
        Save(folder / "B.BIN");
    }
    EXPECT_EQ(dialogs.messages.size(), 1);
    EXPECT_THAT(folder.Names(), testing::UnorderedElementsAre("A.BIN", "DIRECT.SPC"));
    EXPECT_EQ(page->ROMFileName(), rom);
}

TEST_F(TSaveSpecTest, AFullDiskLeavesTheOldSpec) {
    const fs::path target = MakeText("OLD.SPC", "; Old\n");
    dialogs.answers = {TAnswer::Yes};
    dialogs.inputs = {QString()};
    {
        const TFullDisk full(16);
        SaveSpec(target);
    }
    EXPECT_EQ(dialogs.messages, QStringList{"Cannot write '" + Name(target) + "': File too large"});
    EXPECT_EQ(Text(target), "; Old\n");
}

/// Runs in a process of its own that has no rights but everybody's.
class TROMInfoRightsDeathTest : public TROMInfoSaveTest {
protected:
    using TPerms = fs::perms;

    void SetUp() override {
        TROMInfoSaveTest::SetUp();
        fs::permissions(folder.Path(), TPerms(0755));
        closed = folder / "closed";
        fs::create_directory(closed);
    }
    void TearDown() override { fs::permissions(closed, TPerms(0755)); }

    /// Ends the process: with 0 when `work` met no failure.
    template <class Work>
    [[noreturn]] void WithoutRights(Work work) {
        if (geteuid() == 0 && setuid(65534) != 0)
            _exit(2);
        work();
        _exit(HasFailure() ? 1 : 0);
    }

    fs::path closed;
};

TEST_F(TROMInfoRightsDeathTest, ANewFileInAFolderWithoutWritePermission) {
    fs::permissions(closed, TPerms(0555));
    fs::permissions(folder.Path(), TPerms(0777)); // where the next save goes
    EXPECT_EXIT(WithoutRights([&] { ExpectFailure(closed / "B.BIN", "Permission denied"); }),
                testing::ExitedWithCode(0), "");
    EXPECT_TRUE(fs::is_empty(closed));
}

TEST_F(TROMInfoRightsDeathTest, AFileThatMayNotBeWritten) {
    const fs::path target = closed / "B.BIN";
    PutFile(target, TBytes(10, 9));
    fs::permissions(target, TPerms(0444));
    fs::permissions(closed, TPerms(0555));
    fs::permissions(folder.Path(), TPerms(0777));
    dialogs.answers = {TAnswer::Yes};
    EXPECT_EXIT(WithoutRights([&] { ExpectFailure(target, "Permission denied"); }),
                testing::ExitedWithCode(0), "");
    EXPECT_EQ(GetFile(target), TBytes(10, 9));
}

TEST_F(TROMInfoRightsDeathTest, AWritableFileInAFolderWithoutWritePermissionIsWrittenInPlace) {
    const fs::path target = closed / "B.BIN";
    PutFile(target, TBytes(10, 9));
    fs::permissions(target, TPerms(0666));
    fs::permissions(closed, TPerms(0555));
    const TBytes expected = Edit();
    dialogs.answers = {TAnswer::Yes};
    EXPECT_EXIT(WithoutRights([&] {
                    Save(target);
                    EXPECT_TRUE(dialogs.messages.empty());
                    EXPECT_EQ(page->ROMFileName(), target);
                }),
                testing::ExitedWithCode(0), "");
    EXPECT_EQ(GetFile(target), expected);
}

TEST_F(TROMInfoRightsDeathTest, AROMFileThatMayNotBeRead) {
    fs::permissions(rom, TPerms(0));
    EXPECT_EXIT(WithoutRights([&] {
                    Load(rom);
                    EXPECT_EQ(dialogs.messages,
                              QStringList{"Cannot read '" + Name(rom) + "': Permission denied"});
                    EXPECT_EQ(Image().Peek(0x7000), 7);
                    EXPECT_EQ(Caption(), "Ferrolyn - " + Name(rom));
                }),
                testing::ExitedWithCode(0), "");
}
} // namespace
