#include "system/ReadFile.h"

#include "support/Environment.h"
#include "support/TemporaryFolder.h"
#include "system/FileErrors.h"

#include <cstdint>

#include <gmock/gmock.h>

namespace {

namespace fs = std::filesystem;
using TBytes = std::vector<std::uint8_t>;
using testing::HasSubstr;

TEST(ReadWholeFileTest, ReadsWholeFiles) {
    const TTemporaryFolder folder;
    for (const std::size_t length : {0U, 1U, 15U, 100000U}) {
        const TBytes bytes(length, 0x5A);
        PutFile(folder / "a.bin", bytes);
        EXPECT_EQ(ReadWholeFile(folder / "a.bin", 1000000), bytes);
        EXPECT_EQ(ReadWholeFile(folder / "a.bin", length), bytes);
    }
}

TEST(ReadWholeFileTest, RefusesFilesOverTheLimitNamingBoth) {
    const TTemporaryFolder folder;
    PutFile(folder / "a.bin", TBytes(1001));
    const std::string error = ReadError(folder / "a.bin");
    EXPECT_THAT(error, HasSubstr((folder / "a.bin").string()));
    EXPECT_THAT(error, HasSubstr("1001 bytes"));
    EXPECT_THAT(error, HasSubstr("limit of 1000"));
}

TEST(ReadWholeFileTest, RefusesFoldersAndWhatIsNotThere) {
    const TTemporaryFolder folder;
    EXPECT_THAT(ReadError(folder.Path()), HasSubstr(Words(TReason::FolderToRead)));
    EXPECT_THAT(ReadError(folder / "none.bin"), HasSubstr("none.bin': " + Words(TReason::NoFile)));
    EXPECT_THAT(ReadError(folder / "none/a.bin"), HasSubstr(Words(TReason::NoFolder)));
}

// The first line

struct TFirstLine {
    const char *name;
    std::string text;
    std::string line;
};

class TReadFirstLine : public testing::TestWithParam<TFirstLine> {};

TEST_P(TReadFirstLine, IsWhatStandsBeforeTheFirstLineFeed) {
    const TTemporaryFolder folder;
    const auto &[name, text, line] = GetParam();
    PutFile(folder / "a.spc", {text.begin(), text.end()});
    EXPECT_EQ(ReadFirstLine(folder / "a.spc", text.size()), line);
}

/// A line of that length, and another one.
TFirstLine Long(const char *name, std::size_t length) {
    const std::string line(length, 'x');
    return {name, line + "\nsecond\n", line};
}

const TFirstLine firstLines[] = {
    {"empty_file", "", ""},
    {"line_feed_alone", "\n", ""},
    {"empty_line", "\nsecond", ""},
    {"one_line", "first\n", "first"},
    {"two_lines", "first\nsecond\n", "first"},
    {"no_line_feed", "first", "first"},
    {"carriage_return", "first\r\nsecond", "first\r"},
    {"carriage_return_alone", "first\rsecond", "first\rsecond"},
    {"zero_bytes", std::string("a\0b\nc", 5), std::string("a\0b", 3)},
    {"wide_characters", std::string("\xFF\xFE;\0x\0\n\0y\0", 10), std::string("\xFF\xFE;\0x\0", 6)},
    Long("line_feed_last_in_a_step", 4095),
    Long("line_feed_first_in_a_step", 4096),
    Long("two_steps", 8192),
    Long("many_steps", 100000),
    {"step_without_line_feed", std::string(4096, 'x'), std::string(4096, 'x')},
    {"steps_without_line_feed", std::string(10000, 'x'), std::string(10000, 'x')},
};
INSTANTIATE_TEST_SUITE_P(All, TReadFirstLine, testing::ValuesIn(firstLines),
                         [](const auto &test) { return std::string(test.param.name); });

TEST(ReadFirstLineTest, RefusesWhatReadWholeFileRefuses) {
    const TTemporaryFolder folder;
    PutFile(folder / "long", TBytes(1001, '\n'));
    for (const fs::path &file : {folder / "long", folder.Path(), folder / "none"}) {
        const std::string error = ErrorOf([&] { ReadFirstLine(file, 1000); });
        EXPECT_THAT(error, HasSubstr("Cannot read '" + file.string() + "': "));
        EXPECT_EQ(error, ReadError(file));
    }
}

} // namespace
