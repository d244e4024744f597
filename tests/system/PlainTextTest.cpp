#include "system/PlainText.h"

#include <gtest/gtest.h>

namespace {

struct TDecoded {
    const char *name;
    std::string bytes;
    std::string utf8;
};

class TToUtf8 : public testing::TestWithParam<TDecoded> {};

TEST_P(TToUtf8, KeepsUtf8AndReadsTheRestAsLatin1) {
    EXPECT_EQ(ToUtf8(GetParam().bytes), GetParam().utf8);
}

const TDecoded cases[] = {
    {"empty", "", ""},
    {"ascii", "Turbo 16V", "Turbo 16V"},
    {"two_bytes", "Z\xC3\xBCndung", "Z\xC3\xBCndung"},
    {"three_bytes", "\xE2\x82\xAC", "\xE2\x82\xAC"},
    {"four_bytes", "\xF0\x9F\x94\xA7", "\xF0\x9F\x94\xA7"},
    {"last_character", "\xF4\x8F\xBF\xBF", "\xF4\x8F\xBF\xBF"},
    {"mark_left_out", "\xEF\xBB\xBFmap", "map"},
    {"only_the_mark", "\xEF\xBB\xBF", ""},
    {"only_the_first_mark", "\xEF\xBB\xBF\xEF\xBB\xBF", "\xEF\xBB\xBF"},
    {"latin1", "Z\xFCndung", "Z\xC3\xBCndung"},
    {"latin1_bounds", "\x80\xBF\xC0\xFF", "\xC2\x80\xC2\xBF\xC3\x80\xC3\xBF"},
    {"mark_before_latin1", "\xEF\xBB\xBF\xFC", "\xC3\xBC"},
    {"one_bad_byte_spoils_all", "\xC3\xBC\xFC", "\xC3\x83\xC2\xBC\xC3\xBC"},
    {"cut_short", "a\xC3", "a\xC3\x83"},
    {"lone_continuation", "\xA9", "\xC2\xA9"},
    {"overlong_two", "\xC0\xAF", "\xC3\x80\xC2\xAF"},
    {"overlong_three", "\xE0\x9F\xBF", "\xC3\xA0\xC2\x9F\xC2\xBF"},
    {"overlong_four", "\xF0\x8F\xBF\xBF", "\xC3\xB0\xC2\x8F\xC2\xBF\xC2\xBF"},
    {"surrogate", "\xED\xA0\x80", "\xC3\xAD\xC2\xA0\xC2\x80"},
    {"beyond_the_last", "\xF4\x90\x80\x80", "\xC3\xB4\xC2\x90\xC2\x80\xC2\x80"},
    {"no_lead", "\xF5\x80\x80\x80", "\xC3\xB5\xC2\x80\xC2\x80\xC2\x80"},
};

INSTANTIATE_TEST_SUITE_P(Bytes, TToUtf8, testing::ValuesIn(cases),
                         [](const auto &test) { return std::string(test.param.name); });

TEST(ToUtf8, KeepsNulBytes) {
    EXPECT_EQ(ToUtf8(std::string("a\0b", 3)), std::string("a\0b", 3));
}

TEST(Trim, TakesBlanksAndControlCharactersOffBothEnds) {
    EXPECT_EQ(Trim(""), "");
    EXPECT_EQ(Trim(" \t\r\n"), "");
    EXPECT_EQ(Trim("a"), "a");
    EXPECT_EQ(Trim("\t a \x01 b \r"), "a \x01 b");
    EXPECT_EQ(Trim(std::string_view("\0x\0", 3)), "x");
    EXPECT_EQ(Trim("\xC2\xA0"), "\xC2\xA0") << "a no-break space stays";
}

TEST(SameName, IgnoresTheCaseOfTheLettersAToZOnly) {
    EXPECT_TRUE(SameName("", ""));
    EXPECT_TRUE(SameName(".SpC", ".sPc"));
    EXPECT_TRUE(SameName("azAZ", "AZaz"));
    EXPECT_FALSE(SameName("a", ""));
    EXPECT_FALSE(SameName("a", "ab"));
    EXPECT_FALSE(SameName("@[`{", "`{@["));
    EXPECT_FALSE(SameName("\xC3\xBC", "\xC3\x9C"));
}

TEST(FirstCharacters, CountsCodePoints) {
    EXPECT_EQ(FirstCharacters("", 3), "");
    EXPECT_EQ(FirstCharacters("abc", 0), "");
    EXPECT_EQ(FirstCharacters("abc", 2), "ab");
    EXPECT_EQ(FirstCharacters("abc", 3), "abc");
    EXPECT_EQ(FirstCharacters("abc", 4), "abc");
    EXPECT_EQ(FirstCharacters("\xC3\xBC\xE2\x82\xAC\xF0\x9F\x94\xA7x", 2), "\xC3\xBC\xE2\x82\xAC");
    EXPECT_EQ(FirstCharacters("\xC3\xBC\xE2\x82\xAC\xF0\x9F\x94\xA7x", 3),
              "\xC3\xBC\xE2\x82\xAC\xF0\x9F\x94\xA7");
}

} // namespace
