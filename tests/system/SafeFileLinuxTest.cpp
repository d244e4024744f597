// Linux alone: the process's mask and permission bits, symbolic links, limits of a process, pipes
// and devices that have names like files.
#include "support/TemporaryFolder.h"
#include "system/ChildLinux.h"
#include "system/SafeFile.h"

#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <vector>

#include <gmock/gmock.h>

namespace {

namespace fs = std::filesystem;
using TBytes = std::vector<std::uint8_t>;
using testing::ElementsAre;
using testing::HasSubstr;

unsigned ModeOf(const fs::path &file) {
    struct stat status {};
    EXPECT_EQ(stat(file.c_str(), &status), 0);
    return status.st_mode & 07777;
}

TEST(SafeFileTest, CreatesAFileWithTheProcessesMask) {
    const TTemporaryFolder folder;
    const mode_t oldMask = umask(027);
    WriteFileSafely(folder / "a.bin", newBytes);
    umask(oldMask);
    EXPECT_EQ(GetFile(folder / "a.bin"), newBytes);
    EXPECT_EQ(ModeOf(folder / "a.bin"), 0640U);
    EXPECT_THAT(folder.Names(), ElementsAre("a.bin"));
}

TEST(SafeFileTest, ReplacesAFileAndKeepsItsMode) {
    const TTemporaryFolder folder;
    for (const mode_t mode : {0600U, 0666U, 0755U}) {
        PutFile(folder / "a.bin", oldBytes);
        ASSERT_EQ(chmod((folder / "a.bin").c_str(), mode), 0);
        WriteFileSafely(folder / "a.bin", newBytes);
        EXPECT_EQ(GetFile(folder / "a.bin"), newBytes);
        EXPECT_EQ(ModeOf(folder / "a.bin"), mode);
        EXPECT_THAT(folder.Names(), ElementsAre("a.bin"));
    }
}

TEST(SafeFileTest, NeverShowsAHalfWrittenFile) {
    const TTemporaryFolder folder;
    PutFile(folder / "a.bin", oldBytes);
    const int reader = open((folder / "a.bin").c_str(), O_RDONLY | O_CLOEXEC);
    WriteFileSafely(folder / "a.bin", newBytes);
    TBytes seen(10);
    seen.resize(static_cast<std::size_t>(read(reader, seen.data(), seen.size())));
    close(reader);
    EXPECT_EQ(seen, oldBytes) << "the old file was changed instead of replaced";
}

TEST(SafeFileTest, FollowsSymbolicLinks) {
    const TTemporaryFolder folder;
    fs::create_directory(folder / "real");
    PutFile(folder / "real/a.bin", oldBytes);
    fs::create_symlink("real/a.bin", folder / "first");
    fs::create_symlink(folder / "first", folder / "second");
    WriteFileSafely(folder / "second", newBytes);
    EXPECT_TRUE(fs::is_symlink(folder / "second"));
    EXPECT_TRUE(fs::is_symlink(folder / "first"));
    EXPECT_EQ(GetFile(folder / "real/a.bin"), newBytes);
}

TEST(SafeFileTest, ADanglingLinkCreatesItsTarget) {
    const TTemporaryFolder folder;
    fs::create_symlink("later.bin", folder / "link");
    WriteFileSafely(folder / "link", newBytes);
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(GetFile(folder / "later.bin"), newBytes);
}

TEST(SafeFileTest, AnEndlessLinkIsAnError) {
    const TTemporaryFolder folder;
    fs::create_symlink("b", folder / "a");
    fs::create_symlink("a", folder / "b");
    EXPECT_THAT(WriteError(folder / "a"), HasSubstr(Reason(ELOOP)));
}

TEST(SafeFileTest, AFullDiskKeepsTheOldFile) {
    const TTemporaryFolder folder;
    GiveAway(folder.Path(), 0777);
    PutFile(folder / "a.bin", oldBytes);
    GiveAway(folder / "a.bin", 0666);
    EXPECT_THAT(ErrorInChild([&] { WriteFileSafely(folder / "a.bin", newBytes); }, 4),
                HasSubstr(Reason(EFBIG)));
    EXPECT_EQ(GetFile(folder / "a.bin"), oldBytes);
    EXPECT_THAT(folder.Names(), ElementsAre("a.bin"));
}

TEST(SafeFileTest, AFullDiskLeavesNoNewFile) {
    const TTemporaryFolder folder;
    GiveAway(folder.Path(), 0777);
    EXPECT_THAT(ErrorInChild([&] { WriteFileSafely(folder / "a.bin", newBytes); }, 4),
                HasSubstr("a.bin': " + Reason(EFBIG)));
    EXPECT_THAT(folder.Names(), ElementsAre());
}

TEST(SafeFileTest, AFullDeviceIsAnError) {
    EXPECT_EQ(WriteError("/dev/full"), "Cannot write '/dev/full': " + Reason(ENOSPC));
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
    EXPECT_EQ(WriteError("/dev/null"), "");
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST(SafeFileTest, APipeThatNobodyReadsIsAnErrorAndNoHang) {
    const TTemporaryFolder folder;
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_THAT(WriteError(folder / "pipe"), HasSubstr(Reason(ENXIO)));
    EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
}

TEST(SafeFileTest, AFolderWithoutPermissionTakesNoNewFile) {
    const TTemporaryFolder folder;
    GiveAway(folder.Path(), 0555);
    EXPECT_THAT(ErrorInChild([&] { WriteFileSafely(folder / "a.bin", newBytes); }),
                HasSubstr("a.bin': " + Reason(EACCES)));
    GiveAway(folder.Path(), 0755);
    EXPECT_THAT(folder.Names(), ElementsAre());
}

struct TInPlaceTest : testing::Test {
    TInPlaceTest() {
        PutFile(file, oldBytes);
        chmod(file.c_str(), 0666);
        chmod(folder.Path().c_str(), 0555);
    }
    ~TInPlaceTest() override { chmod(folder.Path().c_str(), 0755); }

    const TTemporaryFolder folder;
    const fs::path file = folder / "a.bin";
};

TEST_F(TInPlaceTest, WritesInPlaceWhereTheFolderRefuses) {
    EXPECT_EQ(ErrorInChild([&] { WriteFileSafely(file, newBytes); }), "");
    EXPECT_EQ(GetFile(file), newBytes);
}

TEST_F(TInPlaceTest, ShortensInPlace) {
    EXPECT_EQ(ErrorInChild([&] { WriteFileSafely(file, TBytes{4}); }), "");
    EXPECT_EQ(GetFile(file), TBytes{4});
}

TEST_F(TInPlaceTest, PutsTheOldContentsBackWhenTheDiskIsFull) {
    EXPECT_THAT(ErrorInChild([&] { WriteFileSafely(file, newBytes); }, 4),
                HasSubstr(Reason(EFBIG)));
    EXPECT_EQ(GetFile(file), oldBytes);
}

TEST(SafeFileTest, AWriteProtectedFileStays) {
    const TTemporaryFolder folder;
    GiveAway(folder.Path(), 0777);
    PutFile(folder / "a.bin", oldBytes);
    GiveAway(folder / "a.bin", 0444);
    EXPECT_THAT(ErrorInChild([&] { WriteFileSafely(folder / "a.bin", newBytes); }),
                HasSubstr(Reason(EACCES)));
    EXPECT_EQ(GetFile(folder / "a.bin"), oldBytes);
}

TEST(SafeFileTest, AFileOfSomebodyElseIsReplacedByTheSavers) {
    const TTemporaryFolder folder;
    GiveAway(folder.Path(), 0777);
    PutFile(folder / "a.bin", oldBytes);
    GiveAway(folder / "a.bin", 0666);
    EXPECT_EQ(ErrorInChild([&] { WriteFileSafely(folder / "a.bin", newBytes); }), "");
    EXPECT_EQ(GetFile(folder / "a.bin"), newBytes);
    EXPECT_EQ(ModeOf(folder / "a.bin"), 0666U);
}

TEST(SafeFileTest, InAStickyFolderAForeignFileIsWrittenInPlace) {
    const TTemporaryFolder folder;
    PutFile(folder / "a.bin", oldBytes);
    GiveAway(folder / "a.bin", 0666);
    GiveAway(folder.Path(), 01777);
    EXPECT_EQ(ErrorInChild([&] { WriteFileSafely(folder / "a.bin", newBytes); }), "");
    EXPECT_EQ(GetFile(folder / "a.bin"), newBytes);
    EXPECT_THAT(folder.Names(), ElementsAre("a.bin"));
}

// Asking whether a file can be written

TEST(CheckCanWriteTest, LeavesLinksAndDevicesAlone) {
    const TTemporaryFolder folder;
    fs::create_symlink("later.bin", folder / "link");
    CheckCanWrite(folder / "link");
    CheckCanWrite("/dev/null");
    EXPECT_THAT(folder.Names(), ElementsAre("link"));
}

TEST(CheckCanWriteTest, RefusesAnEndlessLinkAsTheSaveWould) {
    const TTemporaryFolder folder;
    fs::create_symlink("endless", folder / "endless");
    const std::string error = ErrorOf([&] { CheckCanWrite(folder / "endless"); });
    EXPECT_THAT(error, HasSubstr("Cannot write '" + (folder / "endless").string() + "': "));
    EXPECT_EQ(error, WriteError(folder / "endless"));
    EXPECT_THAT(folder.Names(), ElementsAre("endless"));
}

TEST(CheckCanWriteTest, AsksForTheFoldersPermissionOnlyWhereTheFileIsNew) {
    const TTemporaryFolder folder;
    PutFile(folder / "open.bin", oldBytes);
    PutFile(folder / "closed.bin", oldBytes);
    GiveAway(folder / "open.bin", 0666);
    GiveAway(folder / "closed.bin", 0444);
    GiveAway(folder.Path(), 0555);
    const auto errorOf = [&](const char *name) {
        return ErrorInChild([&] { CheckCanWrite(folder / name); });
    };
    EXPECT_EQ(errorOf("open.bin"), "");
    EXPECT_THAT(errorOf("closed.bin"), HasSubstr(Reason(EACCES)));
    EXPECT_THAT(errorOf("new.bin"), HasSubstr(Reason(EACCES)));
    GiveAway(folder.Path(), 0755);
}

} // namespace
