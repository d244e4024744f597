// Linux alone: permission bits, and pipes that have names like files, folders of any
// age.
#include "changes/PatchStoreFixture.h"

#include <sys/stat.h>

#include <gmock/gmock.h>

namespace {
namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::SizeIs;

unsigned RightsOf(const fs::path &file) {
    struct stat status {};
    EXPECT_EQ(stat(file.c_str(), &status), 0);
    return status.st_mode & 0777U;
}

TEST_F(TPatchStoreTest, IsForItsOwnerAlone) {
    EXPECT_EQ(RightsOf(KeepNew(7)), 0600U);
    EXPECT_EQ(RightsOf(path), 0700U);
    EXPECT_EQ(RightsOf(path.parent_path()) & 0700U, 0700U);
}

TEST_F(TPatchStoreTest, NamesWhatIsNoPatchAndLeavesItAlone) {
    const std::string text = PatchText(PatchTo(7));
    Put("mine-00000000.patch", text.substr(0, text.size() / 2));
    Put("mine-00000001.patch", "");
    Put("mine-00000002.patch", std::string(17 * 1024 * 1024, 'x'));
    fs::create_directory(path / "mine-00000003.patch");
    ASSERT_EQ(mkfifo((path / "mine-00000004.patch").c_str(), 0600), 0);
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
                    HasSubstr("mine-00000002.patch"), HasSubstr("mine-00000003.patch"),
                    HasSubstr("mine-00000004.patch")));
    for (std::uint8_t i = 19; i < 40; ++i)
        KeepNew(i);
    store.RemoveOldest({});
    EXPECT_EQ(FileCount(), 5U + 19U);
}
} // namespace
