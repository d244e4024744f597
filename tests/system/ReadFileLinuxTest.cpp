// Linux alone: pipes and devices that have names like files, and permission bits.
#include "support/TemporaryFolder.h"
#include "system/ChildLinux.h"

#include <gmock/gmock.h>

namespace {

namespace fs = std::filesystem;
using TBytes = std::vector<std::uint8_t>;
using testing::HasSubstr;

TEST(ReadWholeFileTest, RefusesWhatIsNoRegularFile) {
    const TTemporaryFolder folder;
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_THAT(ReadError(folder / "pipe"), HasSubstr("pipe': not a regular file"));
    EXPECT_THAT(ReadError("/dev/zero"), HasSubstr("not a regular file"));
}

TEST(ReadWholeFileTest, RefusesToReadWithoutPermission) {
    const TTemporaryFolder folder;
    GiveAway(folder.Path(), 0755);
    PutFile(folder / "a.bin", TBytes(3));
    GiveAway(folder / "a.bin", geteuid() == 0 ? 0600 : 0000);
    EXPECT_THAT(ErrorInChild([&] { ReadWholeFile(folder / "a.bin", 1000); }),
                HasSubstr(Reason(EACCES)));
}

TEST(ReadFirstLineTest, RefusesPipesAndDevicesAsReadWholeFileDoes) {
    const TTemporaryFolder folder;
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    for (const fs::path &file : {folder / "pipe", fs::path("/dev/zero")}) {
        const std::string error = ErrorOf([&] { ReadFirstLine(file, 1000); });
        EXPECT_THAT(error, HasSubstr("Cannot read '" + file.string() + "': "));
        EXPECT_EQ(error, ReadError(file));
    }
}

} // namespace
