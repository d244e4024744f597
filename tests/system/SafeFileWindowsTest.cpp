// What Windows knows of files that other systems lack: holding them against others, attributes,
// names of devices. Windows 10 replaces a file that somebody reads with sharing, Wine 8 refuses
// (its server says "can't replace an opened file"); either must be whole. No access list is tried:
// Wine keeps none, and stops an administrator by none. So the folder of the running processes
// stands for one that takes no new file, and writing in place, which is for files in such a folder,
// is tried on Linux alone.
#include "support/Environment.h"
#include "support/TemporaryFolder.h"
#include "system/FileErrors.h"
#include "system/FileWindows.h"
#include "system/SafeFile.h"

#include <atomic>
#include <thread>

#include <gmock/gmock.h>

namespace {

namespace fs = std::filesystem;
using TBytes = std::vector<std::uint8_t>;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

/// As the program words it.
std::string CannotWrite(const fs::path &file, DWORD code) {
    return "Cannot write '" + file.string() + "': " + TSystemFailure{code}.Reason();
}

struct THeldFileTest : testing::Test {
    THeldFileTest() { PutFile(file, oldBytes); }

    /// Expects that no save goes through while the file is open in such a way.
    void ExpectKept(const TOpenFile::TMode &mode) {
        {
            const TOpenFile held(file, mode);
            EXPECT_EQ(WriteError(file), CannotWrite(file, ERROR_SHARING_VIOLATION));
            EXPECT_THAT(folder.Names(), ElementsAre("a.bin"));
        }
        EXPECT_EQ(GetFile(file), oldBytes);
    }

    const TTemporaryFolder folder;
    const fs::path file = folder / "a.bin";
};

TEST_F(THeldFileTest, OfAnotherProgramStays) {
    ExpectKept({GENERIC_READ, 0, OPEN_EXISTING});
    ExpectKept({GENERIC_READ | GENERIC_WRITE, 0, OPEN_EXISTING});
    WriteFileSafely(file, newBytes);
    EXPECT_EQ(GetFile(file), newBytes);
}

TEST_F(THeldFileTest, ThatMayBeReadByOthersStays) {
    ExpectKept({GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING});
}

TEST_F(THeldFileTest, ThatMayBeWrittenAndNotReplacedStays) {
    ExpectKept({GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING});
}

TEST_F(THeldFileTest, ByAReaderThatSharesItIsReplacedForOthersOrStays) {
    const TOpenFile reader(file, {GENERIC_READ, shareAll, OPEN_EXISTING});
    const std::string error = WriteError(file);
    TBytes seen(10);
    seen.resize(ReadOn(reader.Handle(), seen));
    EXPECT_EQ(seen, oldBytes) << "the old file was changed instead of replaced";
    EXPECT_EQ(ReadWholeFile(file, 10), error.empty() ? newBytes : oldBytes) << error;
    EXPECT_THAT(error, testing::AnyOf("", CannotWrite(file, ERROR_SHARING_VIOLATION)));
    EXPECT_THAT(folder.Names(), ElementsAre("a.bin"));
}

TEST_F(THeldFileTest, CannotBeReadAndIsNamed) {
    const TOpenFile held(file, {GENERIC_READ, 0, OPEN_EXISTING});
    EXPECT_EQ(ReadError(file), "Cannot read '" + file.string() +
                                   "': " + TSystemFailure{ERROR_SHARING_VIOLATION}.Reason());
}

TEST(SafeFileTest, AReaderNeverSeesAHalf) {
    constexpr std::size_t length = 0x8000;
    const TTemporaryFolder folder;
    const fs::path file = folder / "a.bin";
    WriteFileSafely(file, TBytes(length, 0));
    std::atomic<bool> written = false;
    std::jthread writer([&] {
        for (std::uint8_t save = 1; save <= 100; ++save)
            while (!ErrorOf([&] { WriteFileSafely(file, TBytes(length, save)); }).empty())
                std::this_thread::yield();
        written = true;
    });
    while (!written) {
        const TBytes seen = ReadWholeFile(file, length);
        EXPECT_EQ(seen, TBytes(length, seen.at(0)));
    }
    writer.join();
    EXPECT_EQ(GetFile(file), TBytes(length, 100));
    EXPECT_THAT(folder.Names(), ElementsAre("a.bin"));
}

TEST(SafeFileTest, AReadOnlyFileStays) {
    const TTemporaryFolder folder;
    const fs::path file = folder / "a.bin";
    PutFile(file, oldBytes);
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(WriteError(file), CannotWrite(file, ERROR_ACCESS_DENIED));
    EXPECT_EQ(ErrorOf([&] { CheckCanWrite(file); }), CannotWrite(file, ERROR_ACCESS_DENIED));
    EXPECT_EQ(GetFile(file), oldBytes);
    EXPECT_THAT(folder.Names(), ElementsAre("a.bin"));
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST(SafeFileTest, AHiddenFileStaysHidden) {
    const TTemporaryFolder folder;
    const fs::path file = folder / "a.bin";
    PutFile(file, oldBytes);
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_HIDDEN);
    WriteFileSafely(file, newBytes);
    EXPECT_EQ(GetFile(file), newBytes);
    EXPECT_TRUE(GetFileAttributesW(file.c_str()) & FILE_ATTRIBUTE_HIDDEN);
}

TEST(SafeFileTest, AFolderThatTakesNoNewFileIsNamed) {
    const fs::path file = "Z:/proc/a.bin";
    const std::string error = WriteError(file);
    EXPECT_THAT(error, testing::StartsWith("Cannot write 'Z:/proc/a.bin': "));
    EXPECT_EQ(ErrorOf([&] { CheckCanWrite(file); }), error);
}

TEST(SafeFileTest, ADeviceIsWrittenAndNotReplaced) {
    const TTemporaryFolder folder;
    EXPECT_EQ(WriteError("NUL"), "");
    EXPECT_EQ(ErrorOf([] { CheckCanWrite("NUL"); }), "");
    EXPECT_EQ(ReadError("NUL"), "Cannot read 'NUL': not a regular file");
    EXPECT_EQ(WriteError(folder / "NUL"), "") << "it is the device in every folder";
    EXPECT_THAT(folder.Names(), ElementsAre());
}

TEST(SafeFileTest, RemainsOfKilledSavesGoUnlessTheyAreHeld) {
    const TTemporaryFolder folder;
    const std::string remain = ".ferrolyn-00112233445566778899aabbccddeeff.tmp";
    const std::string held = ".ferrolyn-ffeeddccbbaa99887766554433221100.tmp";
    const std::string other = ".ferrolyn-00112233445566778899aabbccddeef.tmp";
    for (const std::string &name : {remain, held, other})
        PutFile(folder / name, oldBytes);
    {
        const TOpenFile save(folder / held, {GENERIC_WRITE, 0, OPEN_EXISTING});
        WriteFileSafely(folder / "a.bin", newBytes);
        EXPECT_THAT(folder.Names(), UnorderedElementsAre("a.bin", held, other));
    }
    WriteFileSafely(folder / "a.bin", newBytes);
    EXPECT_THAT(folder.Names(), UnorderedElementsAre("a.bin", other));
}

} // namespace
