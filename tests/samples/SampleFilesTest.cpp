#include "samples/SampleFiles.h"

#include "support/TemporaryFolder.h"

#include <fstream>
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;
namespace fs = std::filesystem;

namespace {

std::string Bytes(const fs::path &path) {
    const std::vector<std::uint8_t> bytes = GetFile(path);
    return {bytes.begin(), bytes.end()};
}

class TSampleFolder : public testing::Test {
protected:
    const TTemporaryFolder temporary_;
    const fs::path folder_ = temporary_.Path();
    std::ostringstream out_;
    std::ostringstream err_;
};

TEST(SampleFiles, AreTheCommittedFilesByteForByte) {
    const std::vector<TSampleFile> files = SampleFiles();
    ASSERT_EQ(files.size(), 4U);
    for (const TSampleFile &file : files) {
        const std::string committed = Bytes(fs::path(FERROLYN_SOURCE_DIR) / "samples" / file.name);
        EXPECT_TRUE(committed == file.bytes) << file.name;
    }
}

TEST(SampleFiles, DifferBetweenTheImages) {
    const std::vector<TSampleFile> files = SampleFiles();
    EXPECT_EQ(files[0].bytes.size(), 32768U);
    EXPECT_EQ(files[1].bytes.size(), 65536U);
    EXPECT_NE(files[0].bytes, files[1].bytes.substr(0, files[0].bytes.size()));
}

TEST_F(TSampleFolder, ReceivesEveryFileAndALineAboutEach) {
    const fs::path folder = folder_ / "made" / "on the way";
    ASSERT_TRUE(WriteSampleFiles(folder, out_, err_)) << err_.str();

    EXPECT_EQ(err_.str(), "");
    for (const TSampleFile &file : SampleFiles()) {
        EXPECT_TRUE(Bytes(folder / file.name) == file.bytes) << file.name;
        EXPECT_THAT(out_.str(), HasSubstr("wrote " + (folder / file.name).string() + " (" +
                                          std::to_string(file.bytes.size()) + " bytes)\n"));
    }
}

TEST_F(TSampleFolder, ReplacesOlderFiles) {
    std::ofstream(folder_ / "FERRO32K.SPC") << std::string(5000, 'x');
    ASSERT_TRUE(WriteSampleFiles(folder_, out_, err_));
    EXPECT_TRUE(Bytes(folder_ / "FERRO32K.SPC") == SampleFiles()[2].bytes);
}

TEST_F(TSampleFolder, ThatIsAFileIsNamedInTheError) {
    const fs::path blocked = folder_ / "file";
    std::ofstream(blocked) << "in the way";
    EXPECT_FALSE(WriteSampleFiles(blocked, out_, err_));
    EXPECT_THAT(err_.str(), HasSubstr("cannot create " + blocked.string() + ": "));
    EXPECT_EQ(out_.str(), "");
}

TEST_F(TSampleFolder, WithAFolderInTheWayStopsThereAndNamesIt) {
    fs::create_directory(folder_ / "FERRO64K.BIN");
    EXPECT_FALSE(WriteSampleFiles(folder_, out_, err_));
    EXPECT_THAT(err_.str(), HasSubstr("cannot write " + (folder_ / "FERRO64K.BIN").string()));
    EXPECT_TRUE(fs::exists(folder_ / "FERRO32K.BIN"));
    EXPECT_FALSE(fs::exists(folder_ / "FERRO32K.SPC"));
}

} // namespace
