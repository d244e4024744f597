#include "spec/IniFile.h"

#include "model/ROMTypes.h"
#include "specfile/TextFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;

namespace {

struct TRead {
    const char *name;
    std::string text;
    std::string value; // of [Main] key, "none" where it is missing
};

class TIniRead : public testing::TestWithParam<TRead> {};

TEST_P(TIniRead, FindsTheValue) {
    EXPECT_EQ(TIniFile(GetParam().text).ReadString("Main", "key", "none"), GetParam().value);
}

const TRead reads[] = {
    {"empty_file", "", "none"},
    {"only_a_line_feed", "\n", "none"},
    {"plain", "[Main]\nkey=1\n", "1"},
    {"no_line_feed_at_the_end", "[Main]\nkey=1", "1"},
    {"crlf", "[Main]\r\nkey=1\r\n", "1"},
    {"mixed_line_ends", "[Other]\r\n[Main]\nkey=1\r\n", "1"},
    {"any_case", "[mAIN]\nKEY=Val\n", "Val"},
    {"byte_order_mark", "\xEF\xBB\xBF[Main]\nkey=1\n", "1"},
    {"latin1", "[Main]\nkey=\xFC\n", "\xC3\xBC"},
    {"utf8", "[Main]\nkey=\xC3\xBC\n", "\xC3\xBC"},
    {"blanks_round_everything", " [ Main ] \n\t key \t=  a b \t\n", "a b"},
    {"text_behind_the_header", "[Main] ; see [Other]\nkey=1\n", "1"},
    {"empty_value", "[Main]\nkey=\n", ""},
    {"empty_value_at_the_end", "[Main]\nkey=", ""},
    {"blank_value", "[Main]\nkey= \t\n", ""},
    {"equals_in_the_value", "[Main]\nkey=a=b\n", "a=b"},
    {"double_quotes", "[Main]\nkey=\" a \"\n", " a "},
    {"single_quotes", "[Main]\nkey=' a '\n", " a "},
    {"one_pair_only", "[Main]\nkey=\"'a'\"\n", "'a'"},
    {"unequal_quotes", "[Main]\nkey=\"a'\n", "\"a'"},
    {"one_quote", "[Main]\nkey=\"\n", "\""},
    {"empty_quotes", "[Main]\nkey=\"\"\n", ""},
    {"quote_in_the_middle", "[Main]\nkey=a\"b\"\n", "a\"b\""},
    {"comment_line", "[Main]\n;key=1\n", "none"},
    {"comment_line_behind_blanks", "[Main]\n ; key=1\n", "none"},
    {"semicolon_in_a_value", "[Main]\nkey=1 ; one\n", "1 ; one"},
    {"commented_header", ";[Main]\nkey=1\n", "none"},
    {"key_before_any_section", "key=1\n[Main]\n", "none"},
    {"key_of_another_section", "[Main]\n[Other]\nkey=1\n", "none"},
    {"first_key_wins", "[Main]\nkey=1\nKey=2\n", "1"},
    {"first_section_wins", "[Main]\nkey=1\n[MAIN]\nkey=2\n", "1"},
    {"second_section_of_a_name_is_not_read", "[Main]\n[Main]\nkey=2\n", "none"},
    {"header_without_bracket", "[Main\nkey=1\n", "none"},
    {"bracket_alone", "[\n]\n[Main]\nkey=1\n", "1"},
    {"line_without_equals", "[Main]\nkey\nkey=1\n", "1"},
    {"longer_key", "[Main]\nkeys=1\n", "none"},
    {"shorter_key", "[Main]\nke=1\n", "none"},
    {"value_that_looks_like_a_header", "[Main]\nkey=[x]\n", "[x]"},
    {"nul_inside", std::string("[Main]\nkey=a\0b\n", 15), std::string("a\0b", 3)},
    {"nul_bytes_only", std::string(64, '\0'), "none"},
    {"nul_line", std::string("\0\0\n[Main]\nkey=1\n\0", 17), "1"},
};

INSTANTIATE_TEST_SUITE_P(Texts, TIniRead, testing::ValuesIn(reads),
                         [](const auto &test) { return std::string(test.param.name); });

TEST(IniFile, DefaultConstructedIsEmpty) {
    EXPECT_EQ(TIniFile().ReadString("Main", "key", "none"), "none");
}

TEST(IniFile, EmptySectionAndKeyNamesAreNames) {
    const TIniFile ini("[]\n=1\n");
    EXPECT_EQ(ini.ReadString("", "", "none"), "1");
    EXPECT_EQ(ini.ReadString("Main", "", "none"), "none");
}

TEST(IniFile, ReadsALineOfAMebibyte) {
    const std::string longValue(1024 * 1024, 'x');
    const TIniFile ini("[Main]\nkey=" + longValue + "\nnext=1\n");
    EXPECT_EQ(ini.ReadString("Main", "key", ""), longValue);
    EXPECT_EQ(ini.ReadString("Main", "next", ""), "1");
}

TEST(IniFile, FindsTheFirstAndTheLastOfTenThousandKeys) {
    std::string text = "[Main]\n";
    for (int i = 0; i < 10000; ++i)
        text += "key" + std::to_string(i) + "=" + std::to_string(i) + "\n";
    const TIniFile ini(text);
    EXPECT_EQ(ini.ReadString("main", "key0", ""), "0");
    EXPECT_EQ(ini.ReadString("main", "KEY9999", ""), "9999");
    EXPECT_EQ(ini.ReadString("main", "key10000", "none"), "none");
}

struct TInteger {
    std::string value;
    std::int32_t number;
};

class TIniInteger : public testing::TestWithParam<TInteger> {};

TEST_P(TIniInteger, IsReadLeniently) {
    const TIniFile ini("[Main]\nkey=" + GetParam().value + "\n");
    EXPECT_EQ(ini.ReadInteger("Main", "key", -1), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(Values, TIniInteger,
                         testing::Values(TInteger{"0", 0}, TInteger{"32768", 32768},
                                         TInteger{"-5", -5}, TInteger{"$8000", 0x8000},
                                         TInteger{"0x8000", 0x8000}, TInteger{"\"$10\"", 16},
                                         TInteger{"$FFFFFFFF", -1}, TInteger{"", -1},
                                         TInteger{"abc", -1}, TInteger{"1.5", -1},
                                         TInteger{"12 3", -1}, TInteger{"99999999999", -1}));

TEST(IniFile, GivesTheFallbackForAMissingInteger) {
    EXPECT_EQ(TIniFile("[Main]\n").ReadInteger("Main", "key", 7), 7);
}

using TIniFiles = TTextFolder;

TEST_F(TIniFiles, LoadReadsTheFile) {
    const auto path = Write("a.spc", "; label\r\n\r\n[Main]\r\n  key = 1 \r\njunk\r\n");
    EXPECT_EQ(TIniFile::Load(path).ReadString("Main", "key", ""), "1");
}

TEST_F(TIniFiles, AFileThatHasGoneReadsAsDefaults) {
    EXPECT_EQ(TIniFile::Load(folder_ / "gone.spc").ReadString("Main", "key", "none"), "none");
    EXPECT_EQ(TIniFile::Load(folder_ / "no" / "folder.spc").ReadString("Main", "key", "none"),
              "none");
}

TEST_F(TIniFiles, AFolderIsAFileError) {
    EXPECT_THROW(TIniFile::Load(folder_), EFileError);
}

TEST_F(TIniFiles, OneByteOverTheLimitIsRefusedByName) {
    const auto path = Write("big.spc", "[Main]\nkey=1\n");
    std::filesystem::resize_file(path, maxIniFileSize);
    EXPECT_EQ(TIniFile::Load(path).ReadString("Main", "key", ""), "1");
    std::filesystem::resize_file(path, maxIniFileSize + 1);
    try {
        TIniFile::Load(path);
        FAIL() << "loaded";
    } catch (const EFileError &error) {
        EXPECT_THAT(error.what(), HasSubstr("big.spc"));
    }
}

} // namespace
