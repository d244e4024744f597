// The folder of patches that were never saved.
#include "changes/PatchStore.h"

#include "support/TemporaryFolder.h"
#include "system/Errors.h"

#include <fstream>
#include <sys/stat.h>

#include <gmock/gmock.h>

namespace {
namespace fs = std::filesystem;
using TBytes = std::vector<std::uint8_t>;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const std::string ofImage(64, 'a');

TPatch PatchTo(std::uint8_t byte) {
    return MakePatch("A.BIN", ofImage, TBytes{1, 2, 3}, TBytes{1, byte, 3});
}

class TPatchStoreTest : public testing::Test {
protected:
    std::size_t FileCount() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(path), fs::directory_iterator()));
    }
    /// What another start of the program finds.
    std::vector<TPatch> Found() const {
        std::vector<TPatch> patches;
        for (const TKeptPatch &kept : TPatchStore(path).Of(3, ofImage))
            patches.push_back(kept.patch);
        return patches;
    }

    TTemporaryFolder folder;
    fs::path path = folder / "state" / "ferrolyn";
};

TEST_F(TPatchStoreTest, IsEmptyAndMakesNothingUntilAPatchIsKept) {
    TPatchStore store(path);
    EXPECT_THAT(store.Of(3, ofImage), IsEmpty());
    store.Drop();
    EXPECT_FALSE(fs::exists(path));
}

TEST_F(TPatchStoreTest, KeepsTheLastPatchForTheNextStart) {
    TPatchStore store(path);
    store.Keep(PatchTo(7));
    store.Keep(PatchTo(8));
    EXPECT_THAT(Found(), ElementsAre(PatchTo(8)));
    EXPECT_THAT(store.Of(3, ofImage), IsEmpty()) << "not its own";
    store.Drop();
    EXPECT_THAT(Found(), IsEmpty());
}

TEST_F(TPatchStoreTest, IsReadByItsOwnerAlone) {
    TPatchStore(path).Keep(PatchTo(7));
    struct stat status {};
    ASSERT_EQ(stat(fs::directory_iterator(path)->path().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600U);
}

TEST_F(TPatchStoreTest, FindsThePatchesOfItsImageAlone) {
    TPatchStore(path).Keep(PatchTo(7));
    EXPECT_THAT(TPatchStore(path).Of(4, ofImage), IsEmpty());
    EXPECT_THAT(TPatchStore(path).Of(3, std::string(64, 'b')), IsEmpty());
}

TEST_F(TPatchStoreTest, OfTwoProgramsDoesNotMixTheirPatches) {
    TPatchStore one(path);
    TPatchStore other(path);
    one.Keep(PatchTo(7));
    other.Keep(PatchTo(8));
    one.Drop();
    EXPECT_THAT(Found(), ElementsAre(PatchTo(8)));
}

TEST_F(TPatchStoreTest, ForgetsOneThatItTold) {
    TPatchStore(path).Keep(PatchTo(7));
    const std::vector<TKeptPatch> kept = TPatchStore(path).Of(3, ofImage);
    ASSERT_THAT(kept, SizeIs(1));
    TPatchStore::Forget(kept.front());
    EXPECT_THAT(Found(), IsEmpty());
}

TEST_F(TPatchStoreTest, KeepsTheTwentyNewest) {
    for (int i = 0; i < 25; ++i) {
        TPatchStore(path).Keep(PatchTo(static_cast<std::uint8_t>(10 + i)));
        for (const fs::directory_entry &entry : fs::directory_iterator(path))
            fs::last_write_time(entry, entry.last_write_time() - std::chrono::hours(1));
    }
    const std::vector<TPatch> found = Found();
    ASSERT_THAT(found, SizeIs(TPatchStore::mostPatches));
    EXPECT_EQ(found.front(), PatchTo(34));
    EXPECT_EQ(found.back(), PatchTo(15));
}

TEST_F(TPatchStoreTest, KeepsItsOwnWhenTheClockHasGoneBack) {
    for (int i = 0; i < 20; ++i)
        TPatchStore(path).Keep(PatchTo(7));
    for (const fs::directory_entry &entry : fs::directory_iterator(path))
        fs::last_write_time(entry, entry.last_write_time() + std::chrono::hours(24));
    TPatchStore(path).Keep(PatchTo(8));
    EXPECT_EQ(FileCount(), TPatchStore::mostPatches);
    EXPECT_THAT(Found(), testing::Contains(PatchTo(8)));
}

TEST_F(TPatchStoreTest, LeavesFilesOfOthersAlone) {
    fs::create_directories(path);
    for (const char *name : {"unsaved-0123456789abcdeg.patch", "unsaved-0123.patch", ".hidden",
                             "unsaved-0123456789abcdef.patch2", "mine.patch"})
        std::ofstream(path / name) << "x";
    std::ofstream(path / "unsaved-0123456789abcdef.patch") << "half a pat";
    for (int i = 0; i < 19; ++i)
        TPatchStore(path).Keep(PatchTo(7));
    EXPECT_EQ(FileCount(), 25U) << "a half-written one is no patch to offer, and stays";
    EXPECT_THAT(Found(), SizeIs(19));
}

TEST_F(TPatchStoreTest, SaysWhenTheFolderIsAFile) {
    fs::create_directories(path.parent_path());
    std::ofstream(path) << "x";
    TPatchStore store(path);
    EXPECT_THROW(store.Keep(PatchTo(7)), EFileError);
    EXPECT_THROW(store.Of(3, ofImage), EFileError);
}
} // namespace
