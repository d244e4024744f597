#include "system/SafeFile.h"

#include "support/Environment.h"
#include "support/TemporaryFolder.h"
#include "system/FileErrors.h"

#include <cstdint>
#include <vector>

#include <gmock/gmock.h>

namespace {

namespace fs = std::filesystem;
using TBytes = std::vector<std::uint8_t>;
using testing::ElementsAre;
using testing::HasSubstr;

TEST(SafeFileTest, CreatesAFile) {
    const TTemporaryFolder folder;
    WriteFileSafely(folder / "a.bin", newBytes);
    EXPECT_EQ(GetFile(folder / "a.bin"), newBytes);
    EXPECT_THAT(folder.Names(), ElementsAre("a.bin"));
}

TEST(SafeFileTest, ReplacesAFile) {
    const TTemporaryFolder folder;
    PutFile(folder / "a.bin", TBytes(100000, 1));
    for (const TBytes &bytes : {newBytes, TBytes(100000, 2)}) {
        WriteFileSafely(folder / "a.bin", bytes);
        EXPECT_EQ(GetFile(folder / "a.bin"), bytes);
        EXPECT_THAT(folder.Names(), ElementsAre("a.bin"));
    }
}

TEST(SafeFileTest, ShortensToAnEmptyFile) {
    const TTemporaryFolder folder;
    PutFile(folder / "a.bin", oldBytes);
    WriteFileSafely(folder / "a.bin", {});
    EXPECT_EQ(GetFile(folder / "a.bin"), TBytes());
}

TEST(SafeFileTest, WritesToTheCurrentFolder) {
    const TTemporaryFolder folder;
    const fs::path before = fs::current_path();
    fs::current_path(folder.Path());
    WriteFileSafely("plain.bin", newBytes);
    fs::current_path(before);
    EXPECT_EQ(GetFile(folder / "plain.bin"), newBytes);
}

TEST(SafeFileTest, NamesTheFileAndTheReason) {
    const TTemporaryFolder folder;
    const fs::path missing = folder / "none/a.bin";
    EXPECT_EQ(WriteError(missing),
              "Cannot write '" + missing.string() + "': " + Words(TReason::NoFolder));
    EXPECT_EQ(WriteError(folder.Path()),
              "Cannot write '" + folder.Path().string() + "': " + Words(TReason::FolderToWrite));
    EXPECT_EQ(WriteError(""), "Cannot write '': " + Words(TReason::NoName));
    PutFile(folder / "file", oldBytes);
    EXPECT_THAT(WriteError(folder / "file/a.bin"), HasSubstr(Words(TReason::FileAsFolder)));
    EXPECT_THAT(WriteError(folder / std::string(300, 'x')), HasSubstr(Words(TReason::LongName)));
    EXPECT_THAT(folder.Names(), ElementsAre("file"));
}

// Asking whether a file can be written

TEST(CheckCanWriteTest, LeavesNothingBehindAndChangesNothing) {
    const TTemporaryFolder folder;
    PutFile(folder / "a.bin", oldBytes);
    CheckCanWrite(folder / "a.bin");
    CheckCanWrite(folder / "new.bin");
    EXPECT_EQ(GetFile(folder / "a.bin"), oldBytes);
    EXPECT_THAT(folder.Names(), ElementsAre("a.bin"));
}

TEST(CheckCanWriteTest, RefusesWhatTheSaveWouldRefuse) {
    const TTemporaryFolder folder;
    PutFile(folder / "file", oldBytes);
    for (const fs::path &target : {folder / "none/a.bin", folder / "file/a.bin",
                                   folder / std::string(300, 'x'), folder.Path(), fs::path()}) {
        const std::string error = ErrorOf([&] { CheckCanWrite(target); });
        EXPECT_THAT(error, HasSubstr("Cannot write '" + target.string() + "': "));
        EXPECT_EQ(error, WriteError(target));
    }
    EXPECT_THAT(folder.Names(), ElementsAre("file"));
}

} // namespace
