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

TEST_F(TPatchStoreTest, NamesFoldersAndPipesAndLeavesThemAlone) {
    fs::create_directories(path / "mine-00000000.patch");
    ASSERT_EQ(mkfifo((path / "mine-00000001.patch").c_str(), 0600), 0);
    for (const fs::directory_entry &entry : fs::directory_iterator(path))
        fs::last_write_time(entry, fs::file_time_type::clock::now() - std::chrono::hours(2000));
    for (std::uint8_t i = 2; i < 17; ++i)
        KeepNew(i);
    EXPECT_THAT(Kept().leftAlone, testing::UnorderedElementsAre(HasSubstr("mine-00000000.patch"),
                                                                HasSubstr("mine-00000001.patch")));
    for (std::uint8_t i = 17; i < 38; ++i)
        KeepNew(i);
    store.RemoveOldest({});
    EXPECT_EQ(FileCount(), 2U + 19U);
}
} // namespace
