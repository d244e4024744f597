// Names that the system's code pages lack, that are longer than its usual calls take, and that
// differ in the case of letters alone.
#include "support/NamesWindows.h"

#include "support/Environment.h"
#include "system/FileErrors.h"
#include "system/Files.h"
#include "system/StateFolder.h"

#include <gmock/gmock.h>

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::UnorderedElementsAre;

std::vector<std::string> Listed(const fs::path &folder) {
    std::vector<std::string> names;
    std::error_code error;
    LookThrough(folder, error, [&](const fs::path &name) {
        EXPECT_EQ(name.parent_path(), folder);
        names.push_back(LastPart(name));
        return true;
    });
    EXPECT_FALSE(error) << error.message();
    return names;
}

/// Goes through all that is done with a file that is not there yet.
void WriteReadAndReplace(const fs::path &file) {
    EXPECT_FALSE(MayExist(file));
    EXPECT_THAT(ReadError(file), HasSubstr("Cannot read '" + file.string() + "': "));
    CheckCanWrite(file);
    EXPECT_FALSE(MayExist(file));
    WriteFileSafely(file, oldBytes);
    EXPECT_TRUE(MayExist(file));
    EXPECT_TRUE(IsFile(file));
    WriteFileSafely(file, newBytes);
    EXPECT_EQ(ReadWholeFile(file, 5), newBytes);
    EXPECT_EQ(ReadFirstLine(file, 5), std::string(newBytes.begin(), newBytes.end()));
    std::error_code error;
    EXPECT_EQ(SizeOf(file, error), 5U);
    EXPECT_TRUE(IsSame(file, file));
    EXPECT_THAT(Listed(file.parent_path()), ElementsAre(LastPart(file)));
    RemoveFile(file, error);
    EXPECT_FALSE(error);
    EXPECT_FALSE(MayExist(file));
}

TEST(ForeignNames, AreThoseOfFilesLikeOthers) {
    const TTemporaryFolder folder;
    for (const std::u8string &name : foreignNames)
        WriteReadAndReplace(folder.Path() / fs::path(name + u8".bin"));
}

TEST(ForeignNames, AreThoseOfFoldersLikeOthers) {
    const TTemporaryFolder folder;
    for (const std::u8string &name : foreignNames) {
        std::error_code error;
        MakeOwnFolder(folder.Path() / name / name, error);
        EXPECT_FALSE(error);
        WriteReadAndReplace(folder.Path() / name / name / "a.bin");
    }
}

TEST(ForeignNames, AreThatOfTheFolderOfState) {
    const std::string before = Variable("LOCALAPPDATA");
    for (const std::u8string &name : foreignNames) {
        const fs::path local = fs::path(L"C:\\users") / name;
        _wputenv_s(L"LOCALAPPDATA", local.c_str());
        EXPECT_EQ(StateFolder(), local / "ferrolyn");
    }
    SetVariable("LOCALAPPDATA", before);
}

TEST(LongNames, AreThoseOfFilesLikeOthers) {
    const TLongFolder folder;
    ASSERT_GT(folder.Path().native().size(), 260U);
    WriteReadAndReplace(folder / "a.bin");
    WriteReadAndReplace(folder / (std::string(200, 'y') + ".bin"));
    WriteReadAndReplace(folder.Path() / fs::path(foreignNames.back()));
}

TEST(LongNames, MayBeginBeforeTheCurrentFolder) {
    const TLongFolder folder;
    const fs::path before = fs::current_path();
    const fs::path above = folder.Path().parent_path().parent_path();
    fs::current_path(above);
    WriteReadAndReplace(fs::relative(folder.Path(), above) / "a.bin");
    fs::current_path(before);
}

TEST(LongNames, AreThoseOfFoldersLikeOthers) {
    const TLongFolder folder;
    std::error_code error;
    MakeOwnFolder(folder / "sub/sub", error);
    EXPECT_FALSE(error) << error.message();
    EXPECT_TRUE(IsFolder(folder / "sub"));
    MakeOwnFolder(folder / "sub/sub", error);
    EXPECT_FALSE(error) << "it is there";
    WriteReadAndReplace(folder / "sub/sub/a.bin");
    EXPECT_THAT(Listed(folder.Path()), ElementsAre("sub"));
}

TEST(LongNames, WithAPartThatIsTooLongAreRefused) {
    const TTemporaryFolder folder;
    const fs::path file = folder / std::string(300, 'x');
    EXPECT_FALSE(MayExist(file));
    EXPECT_EQ(WriteError(file),
              "Cannot write '" + file.string() + "': " + Words(TReason::LongName));
}

TEST(LetterCase, MakesNoOtherFile) {
    const TTemporaryFolder folder;
    PutFile(folder / "A.BIN", oldBytes);
    WriteFileSafely(folder / "a.bin", newBytes);
    EXPECT_EQ(GetFile(folder / "A.BIN"), newBytes);
    EXPECT_EQ(folder.Names().size(), 1U);
    EXPECT_TRUE(IsSame(folder / "A.BIN", folder / "a.Bin"));
}

TEST(LetterCase, AndSpellingMakeNoOtherName) {
    const TTemporaryFolder folder;
    const fs::path file = folder.Path() / u8"Ζύνδωση.BIN";
    PutFile(file, oldBytes);
    EXPECT_EQ(OneName(folder.Path() / u8"ΖΎΝΔΩΣΗ.bin"), OneName(file));
    EXPECT_EQ(OneName(folder.Path() / "none" / ".." / file.filename()), OneName(file));
    EXPECT_EQ(OneName(folder / "GONE.BIN"), OneName(folder / "gone.bin"));
    EXPECT_NE(OneName(folder / "gone.bin"), OneName(file));
}

TEST(LetterCase, OfANameThatGoesAndComesMakesNoOtherName) {
    const TTemporaryFolder folder;
    const std::string before = OneName(folder / "A.BIN");
    PutFile(folder / "A.BIN", oldBytes);
    EXPECT_EQ(OneName(folder / "A.BIN"), before);
}

} // namespace
