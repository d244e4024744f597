#include "specfile/SpecFolder.h"

#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;
namespace fs = std::filesystem;

namespace {

// Labels by the first line. The file is E2A.SPC throughout.

struct TFirstLine {
    const char *name;
    std::string text;
    std::vector<std::string> labels;
};

class TSpecLabel : public TTextFolder, public testing::WithParamInterface<TFirstLine> {};

TEST_P(TSpecLabel, ComesFromTheFirstLine) {
    Write("E2A.SPC", GetParam().text);
    const TSpecScan scan = ScanSpecFiles(folder_);
    EXPECT_EQ(Labels(scan), GetParam().labels);
    EXPECT_FALSE(scan.moreRemain);
}

const std::string forty = "1234567890123456789012345678901234567890";

const TFirstLine firstLines[] = {
    {"comment", "; Turbo\n[Main]\n", {"Turbo"}},
    {"no_line_feed", ";Turbo", {"Turbo"}},
    {"crlf", "; Turbo\r\n[Main]\r\n", {"Turbo"}},
    {"blanks_before_and_behind", ";   Turbo 16V   \n", {"Turbo 16V"}},
    {"blanks_before_the_comment", " \t ; Turbo\n", {"Turbo"}},
    {"one_semicolon_only_goes", ";; Turbo\n", {"; Turbo"}},
    {"bare_text_is_the_label", "Turbo\n", {"Turbo"}},
    {"key_line_is_the_label", "pt_offset=1\n", {"pt_offset=1"}},
    {"section_shows_the_file_name", "[Main]\n; Turbo\n", {"E2A.SPC"}},
    {"section_behind_blanks", "  [Main]\n", {"E2A.SPC"}},
    {"open_bracket_is_enough", "[\n", {"E2A.SPC"}},
    {"bracket_in_a_comment", ";[Main]\n", {"[Main]"}},
    {"semicolon_alone", ";\n[Main]\n", {""}},
    {"semicolon_and_blanks", ";  \n", {""}},
    {"empty_file", "", {}},
    {"empty_first_line", "\n; Turbo\n", {}},
    {"blank_first_line", " \t \r\n; Turbo\n", {}},
    {"forty_characters", "; " + forty + "\n", {forty}},
    {"cut_to_forty", "; " + forty + "x\n", {forty}},
    {"trimmed_before_it_is_cut", ";       " + forty + "x\n", {forty}},
    {"not_trimmed_again_when_cut", "; " + forty.substr(1) + " x\n", {forty.substr(1) + " "}},
    {"characters_not_bytes", "; \xC3\xBC" + forty + "\n", {"\xC3\xBC" + forty.substr(0, 39)}},
    {"latin1", "; Z\xFCndung\n", {"Z\xC3\xBCndung"}},
    {"utf8", "; Z\xC3\xBCndung\n", {"Z\xC3\xBCndung"}},
    {"latin1_in_later_lines", "; Z\xC3\xBCndung\n; \xFC\n", {"Z\xC3\xBCndung"}},
    {"utf8_in_later_lines", "; Z\xFCndung\n; \xC3\xBC\n", {"Z\xC3\xBCndung"}},
    {"utf16",
     std::string("\xFF\xFE;\0 \0T\0\n\0", 10),
     {std::string("\xC3\xBF\xC3\xBE;\0 \0T", 9)}},
    {"byte_order_mark", "\xEF\xBB\xBF; Turbo\n", {"Turbo"}},
    {"byte_order_mark_and_section", "\xEF\xBB\xBF[Main]\n", {"E2A.SPC"}},
    {"byte_order_mark_alone", "\xEF\xBB\xBF\n; Turbo\n", {}},
    {"nul_bytes", std::string(100, '\0'), {}},
    {"a_mebibyte", ";" + std::string(1024 * 1024, 'x'), {std::string(40, 'x')}},
};

INSTANTIATE_TEST_SUITE_P(Lines, TSpecLabel, testing::ValuesIn(firstLines),
                         [](const auto &test) { return std::string(test.param.name); });

TEST_F(TSpecScanTest, CutsALongFileName) {
    const std::string name = forty + "x.spc";
    Write(name, "[Main]\n");
    EXPECT_THAT(Labels(ScanSpecFiles(folder_)), ElementsAre(forty));
}

// Intended: the ";" is taken off whatever the label came from.
TEST_F(TSpecScanTest, TakesTheSemicolonOffAFileNameToo) {
    Write("; E2A.spc", "[Main]\n");
    EXPECT_THAT(Labels(ScanSpecFiles(folder_)), ElementsAre("E2A.spc"));
}

TEST_F(TSpecScanTest, TakesRegularFilesOfAnyLetterCaseOnly) {
    for (const char *name : {"a.spc", "b.SPC", "c.sPc", "d.x.Spc", ".spc"})
        Write(name, ";" + std::string(name));
    for (const char *name : {"e.spcx", "f.spc.bak", "gspc", "h.txt", "spc"})
        Write(name, ";wrong");
    fs::create_directory(folder_ / "i.spc");
    EXPECT_THAT(Labels(ScanSpecFiles(folder_)),
                UnorderedElementsAre("a.spc", "b.SPC", "c.sPc", "d.x.Spc", ".spc"));
}

TEST_F(TSpecScanTest, GivesThePathBelowTheFolder) {
    const fs::path path = Write("a.spc", "; A\n");
    const TSpecScan scan = ScanSpecFiles(folder_);
    ASSERT_EQ(scan.entries.size(), 1U);
    EXPECT_EQ(scan.entries[0].path, path);
}

TEST_F(TSpecScanTest, KeepsTheFileSystemsOrder) {
    for (const char *name : {"m.spc", "a.spc", "z.spc", "b.spc", "k.spc"})
        Write(name, "; " + std::string(name));
    std::vector<std::string> order;
    for (const auto &file : fs::directory_iterator(folder_))
        order.push_back(file.path().filename().string());
    EXPECT_EQ(Labels(ScanSpecFiles(folder_)), order);
}

TEST_F(TSpecScanTest, OfAFolderWithoutSpecFilesIsEmpty) {
    Write("a.bin", "; A\n");
    EXPECT_THAT(ScanSpecFiles(folder_).entries, IsEmpty());
}

TEST_F(TSpecScanTest, OfAFolderThatCannotBeReadIsEmpty) {
    EXPECT_THAT(ScanSpecFiles(folder_ / "gone").entries, IsEmpty());
    EXPECT_FALSE(ScanSpecFiles(folder_ / "gone").moreRemain);
    EXPECT_THAT(ScanSpecFiles(Write("a.spc", "; A\n")).entries, IsEmpty());
}

TEST_F(TSpecScanTest, SkipsAFileThatCannotBeRead) {
    Write("a.spc", "; A\n");
    // Too large to be a spec file; a file without read permission is none for the superuser.
    fs::resize_file(Write("b.spc", "; B\n"), maxIniFileSize + 1);
    EXPECT_THAT(Labels(ScanSpecFiles(folder_)), ElementsAre("A"));
}

struct TCount {
    int files;
    std::size_t listed;
    bool moreRemain;
};

class TSpecCount : public TTextFolder, public testing::WithParamInterface<TCount> {};

TEST_P(TSpecCount, IsLimited) {
    for (int i = 0; i < GetParam().files; ++i)
        Write(std::to_string(i) + ".spc", "; label");
    const TSpecScan scan = ScanSpecFiles(folder_);
    EXPECT_EQ(scan.entries.size(), GetParam().listed);
    EXPECT_EQ(scan.moreRemain, GetParam().moreRemain);
}

INSTANTIATE_TEST_SUITE_P(Files, TSpecCount,
                         testing::Values(TCount{0, 0, false}, TCount{1, 1, false},
                                         TCount{20, 20, false}, TCount{21, 21, false},
                                         TCount{22, 21, true}, TCount{40, 21, true}),
                         [](const auto &test) { return std::to_string(test.param.files); });

TEST_F(TSpecScanTest, DoesNotCountFolders) {
    // Folders before and behind the files, whichever way the file system goes.
    for (int i = 0; i < 100; ++i)
        fs::create_directory(folder_ / (std::to_string(i) + ".spc"));
    for (int i = 0; i < 21; ++i)
        Write("file" + std::to_string(i) + ".spc", "; label");
    for (int i = 100; i < 200; ++i)
        fs::create_directory(folder_ / (std::to_string(i) + ".spc"));
    const TSpecScan scan = ScanSpecFiles(folder_);
    EXPECT_EQ(scan.entries.size(), 21U);
    EXPECT_FALSE(scan.moreRemain) << "nothing remains that could be listed by its name";
}

// With 22 files of which one is empty, all 21 others are listed. Whether the flag is set depends on
// where the empty one stands: files behind the last entry are not opened.
TEST_F(TSpecScanTest, LooksNoFurtherThanTheLastEntry) {
    for (int i = 0; i < 22; ++i)
        Write(std::to_string(i) + ".spc", "; label");
    std::vector<fs::path> order;
    for (const auto &file : fs::directory_iterator(folder_))
        order.push_back(file.path());

    fs::resize_file(order.front(), 0);
    EXPECT_EQ(ScanSpecFiles(folder_).entries.size(), 21U);
    EXPECT_FALSE(ScanSpecFiles(folder_).moreRemain);

    Write(order.front(), "; label");
    fs::resize_file(order.back(), 0);
    EXPECT_EQ(ScanSpecFiles(folder_).entries.size(), 21U);
    EXPECT_TRUE(ScanSpecFiles(folder_).moreRemain);
}

} // namespace
