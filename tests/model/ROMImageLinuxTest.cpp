// Linux alone: pipes and devices that have names like files.
#include "model/ROMImageFixture.h"

#include <sys/stat.h>

#include <gmock/gmock.h>

namespace {

using testing::HasSubstr;

TEST_F(TROMImageTest, AFailedLoadOfAPipeOrDeviceChangesNothing) {
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_THAT(LoadError(folder / "pipe"), HasSubstr("not a regular file"));
    EXPECT_THAT(LoadError("/dev/zero"), HasSubstr("not a regular file"));
}

TEST_F(TROMImageTest, AFailedSaveToAFullDeviceKeepsTheModifiedFlag) {
    Image().size = 5;
    for (const bool modified : {true, false}) {
        Image().modified = modified;
        EXPECT_THROW(Image().SaveToFile("/dev/full"), EFileError);
        EXPECT_EQ(Image().modified, modified);
    }
}

} // namespace
