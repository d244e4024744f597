// Linux alone: names that are no UTF-8, symbolic links, and pipes that have names like files.
#include "spec/IniFile.h"
#include "specfile/SpecFolder.h"

#include <sys/stat.h>

#include <gmock/gmock.h>

using testing::ElementsAre;
namespace fs = std::filesystem;

namespace {

using TIniFiles = TTextFolder;

TEST_F(TIniFiles, APipeIsAFileErrorAndNeverBlocks) {
    const auto pipe = folder_ / "pipe.spc";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_THROW(TIniFile::Load(pipe), EFileError);
}

TEST_F(TSpecScanTest, ShowsAFileNameThatIsNotUtf8AsLatin1) {
    Write("Z\xFCndung.spc", "[Main]\n");
    EXPECT_THAT(Labels(ScanSpecFiles(folder_)), ElementsAre("Z\xC3\xBCndung.spc"));
}

TEST_F(TSpecScanTest, TakesLinksToRegularFilesAndNoPipes) {
    Write("a.spc", ";a.spc");
    ASSERT_EQ(mkfifo((folder_ / "j.spc").c_str(), 0600), 0);
    fs::create_symlink(folder_ / "nowhere", folder_ / "k.spc");
    fs::create_symlink(folder_ / "a.spc", folder_ / "l.spc");
    EXPECT_THAT(Labels(ScanSpecFiles(folder_)), ElementsAre("a.spc", "a.spc"));
}

} // namespace
