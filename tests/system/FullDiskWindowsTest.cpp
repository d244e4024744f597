// A save on a full disk. FERROLYN_FULL_DISK names a folder, empty, on a file system of 64 KiB;
// whoever starts the test brings it.
#include "support/Environment.h"
#include "support/TemporaryFolder.h"
#include "system/FileErrors.h"
#include "system/FileWindows.h"

#include <gmock/gmock.h>

namespace {

namespace fs = std::filesystem;
using TBytes = std::vector<std::uint8_t>;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

class TFullDiskTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_FALSE(disk.empty()) << "FERROLYN_FULL_DISK names no folder";
        ASSERT_THAT(Names(), ElementsAre());
    }
    ~TFullDiskTest() override {
        for (const std::string &name : Names())
            fs::remove(disk / name);
    }

    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        std::error_code missing;
        for (const fs::directory_entry &entry : fs::directory_iterator(disk, missing))
            names.push_back(entry.path().filename().string());
        return names;
    }
    /// Leaves no room for a byte.
    void Fill() const {
        std::ofstream stream(disk / "filler", std::ios::binary);
        while (stream << std::string(1024, 'x') << std::flush)
            ;
    }

    const fs::path disk = Variable("FERROLYN_FULL_DISK");
    const fs::path image = disk / "A.BIN";
    const TBytes before = TBytes(0x8000, 1);
    const TBytes after = TBytes(0x8000, 2);
};

TEST_F(TFullDiskTest, KeepsTheOldImageUntilThereIsRoom) {
    WriteFileSafely(image, before);
    Fill();
    EXPECT_EQ(ErrorOf([&] { WriteFileSafely(image, after); }),
              "Cannot write '" + image.string() + "': " + TSystemFailure{ERROR_DISK_FULL}.Reason());
    EXPECT_EQ(GetFile(image), before);
    EXPECT_THAT(Names(), UnorderedElementsAre("A.BIN", "filler"));
    fs::remove(disk / "filler");
    WriteFileSafely(image, after);
    EXPECT_EQ(GetFile(image), after);
    EXPECT_THAT(Names(), ElementsAre("A.BIN"));
}

TEST_F(TFullDiskTest, TakesNoNewImage) {
    Fill();
    EXPECT_EQ(ErrorOf([&] { WriteFileSafely(image, after); }),
              "Cannot write '" + image.string() + "': " + TSystemFailure{ERROR_DISK_FULL}.Reason());
    EXPECT_THAT(Names(), ElementsAre("filler"));
}

} // namespace
