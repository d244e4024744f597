// The folder of patches of one kind.
#include "changes/PatchStoreFixture.h"

#include <regex>

#include <gmock/gmock.h>

namespace {
namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

TEST_F(TPatchStoreTest, IsEmptyAndMakesNothingUntilAPatchIsKept) {
    EXPECT_THAT(Found(), IsEmpty());
    store.RemoveOldest({});
    TPatchStore::Remove(store.NewFile());
    EXPECT_FALSE(fs::exists(path));
}

TEST_F(TPatchStoreTest, KeepsPatchesInFilesOfItsForm) {
    const fs::path file = KeepNew(7);
    EXPECT_EQ(file.parent_path(), path);
    EXPECT_TRUE(std::regex_match(file.filename().string(), std::regex("mine-[0-9a-f]+[.]patch")));
    EXPECT_NE(store.NewFile(), file);
    store.Keep(file, PatchTo(8));
    EXPECT_THAT(Found(), ElementsAre(PatchTo(8)));
    TPatchStore::Remove(file);
    EXPECT_THAT(Found(), IsEmpty());
}

TEST_F(TPatchStoreTest, ReadsTheNewestOfThoseWanted) {
    const fs::path first = KeepNew(0);
    for (std::uint8_t i = 4; i < 30; ++i)
        KeepNew(i);
    const std::vector<TPatch> found = Found();
    ASSERT_THAT(found, SizeIs(20));
    EXPECT_EQ(found.front(), PatchTo(29));
    EXPECT_EQ(found.back(), PatchTo(10));
    EXPECT_THAT(store.Read([&](const fs::path &file) { return file == first; }).patches, SizeIs(1));
}

TEST_F(TPatchStoreTest, RemovesTheOldest) {
    for (std::uint8_t i = 4; i < 34; ++i)
        KeepNew(i);
    store.RemoveOldest(KeepNew(34));
    EXPECT_EQ(FileCount(), 20U);
    EXPECT_EQ(Found().front(), PatchTo(34));
    EXPECT_EQ(Found().back(), PatchTo(15));
}

TEST_F(TPatchStoreTest, NeverRemovesOnesOwnWhenTheClockHasGoneBack) {
    const fs::path own = KeepNew(5);
    for (std::uint8_t i = 10; i < 34; ++i)
        KeepNew(i);
    store.RemoveOldest(own);
    EXPECT_EQ(FileCount(), 20U);
    EXPECT_TRUE(fs::exists(own));
}

TEST_F(TPatchStoreTest, OfThousandsRemovesSomeAtATime) {
    for (int i = 100; i < 400; ++i)
        Put("mine-00000" + std::to_string(i) + ".patch", PatchText(PatchTo(7)));
    store.RemoveOldest({});
    EXPECT_LT(FileCount(), 300U);
    EXPECT_GT(FileCount(), 150U);
    for (int i = 0; i < 3; ++i)
        store.RemoveOldest(store.NewFile());
    EXPECT_LE(FileCount(), 20U);
}

TEST_F(TPatchStoreTest, LeavesFilesOfOthersAlone) {
    for (const char *name :
         {"mine-0123456g.patch", "mine-0123456.patch", ".hidden", ".mine-01234567.patch",
          "mine-01234567.patch2", "a.patch", "mine-012345678.patch"})
        Put(name, PatchText(PatchTo(7)));
    for (std::uint8_t i = 4; i < 34; ++i)
        KeepNew(i);
    store.RemoveOldest({});
    EXPECT_EQ(FileCount(), 7U + 19U);
    EXPECT_THAT(Kept().leftAlone, IsEmpty());
}

TEST_F(TPatchStoreTest, NamesFilesThatAreNoPatchesAndLeavesThemAlone) {
    const std::string text = PatchText(PatchTo(7));
    Put("mine-00000000.patch", text.substr(0, text.size() / 2));
    Put("mine-00000001.patch", "");
    Put("mine-00000002.patch", std::string(17 * 1024 * 1024, 'x'));
    for (const fs::directory_entry &entry : fs::directory_iterator(path))
        fs::last_write_time(entry, fs::file_time_type::clock::now() - std::chrono::hours(2000));
    for (std::uint8_t i = 4; i < 19; ++i)
        KeepNew(i);
    const TKeptPatches kept = Kept();
    EXPECT_THAT(kept.patches, SizeIs(15));
    EXPECT_THAT(kept.leftAlone,
                testing::UnorderedElementsAre(
                    HasSubstr("mine-00000000.patch: Line 4 of the patch: the patch ends here"),
                    HasSubstr("mine-00000001.patch: Line 1 of the patch"),
                    HasSubstr("mine-00000002.patch")));
    for (std::uint8_t i = 19; i < 40; ++i)
        KeepNew(i);
    store.RemoveOldest({});
    EXPECT_EQ(FileCount(), 3U + 19U);
}

TEST_F(TPatchStoreTest, NamesAFolderAndLeavesItAlone) {
    KeepNew(7);
    fs::create_directory(path / "mine-00000003.patch");
    EXPECT_THAT(Found(), ElementsAre(PatchTo(7)));
    EXPECT_THAT(Kept().leftAlone, ElementsAre(HasSubstr("mine-00000003.patch")));
    for (std::uint8_t i = 8; i < 40; ++i)
        KeepNew(i);
    store.RemoveOldest({});
    EXPECT_EQ(FileCount(), 19U) << "the folder among them";
    EXPECT_TRUE(fs::exists(path / "mine-00000003.patch"));
}

TEST_F(TPatchStoreTest, SaysWhenTheFolderIsAFile) {
    fs::create_directories(path.parent_path());
    std::ofstream(path) << "x";
    EXPECT_THROW(store.Keep(store.NewFile(), PatchTo(7)), EFileError);
    EXPECT_THROW(Kept(), EFileError);
    EXPECT_THROW(store.RemoveOldest({}), EFileError);
}
} // namespace
