#include "model/Numbers.h"

#include "support/ModelFixture.h"
#include "system/Errors.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>

#include <gtest/gtest.h>

namespace {

constexpr std::int32_t lowest = std::numeric_limits<std::int32_t>::min();

/// The text of the conversion error that `convert` throws; empty when it throws none.
template <class TConvert>
std::string ConvertErrorOf(TConvert convert) {
    try {
        convert();
    } catch (const EConvertError &error) {
        return error.what();
    }
    return "";
}

struct TNumbersTest : TModelTest {};

TEST_F(TNumbersTest, RoundsToNearestWithTiesToEven) {
    const struct {
        double value;
        std::int32_t rounded;
    } cases[] = {{0.0, 0},
                 {0.5, 0},
                 {1.5, 2},
                 {2.5, 2},
                 {162.5, 162},
                 {162.75, 163},
                 {-0.5, 0},
                 {-1.5, -2},
                 {-2.5, -2},
                 {-0.51, -1},
                 {2147483647.4, highest},
                 {-2147483648.5, lowest}};
    for (const auto &[value, rounded] : cases)
        EXPECT_EQ(Round(value), rounded) << value;
}

TEST_F(TNumbersTest, RefusesToRoundBeyond32Bits) {
    const double infinite = std::numeric_limits<double>::infinity();
    for (const double value :
         {2147483647.5, 2147483648.0, -2147483649.0, 1e300, infinite, -infinite, std::nan("")}) {
        EXPECT_EQ(TryRound(value), std::nullopt) << value;
        EXPECT_THROW(Round(value), ERangeError) << value;
    }
}

TEST_F(TNumbersTest, ReadsRealNumbers) {
    const struct {
        const char *text;
        double value;
    } cases[] = {{"0", 0.0},       {"0.65", 0.65},     {" 12.7\t", 12.7}, {"+5", 5.0},
                 {"-3.25", -3.25}, {".5", 0.5},        {"5.", 5.0},       {"1e3", 1000.0},
                 {"1E-2", 0.01},   {"-2.5e+1", -25.0}, {"007", 7.0}};
    for (const auto &[text, value] : cases)
        EXPECT_EQ(TryParseReal(text), std::optional(value)) << text;
}

TEST_F(TNumbersTest, ReadsWhatIsTooSmallForADoubleAs0) {
    const std::string zeros(400, '0');
    for (const std::string &text :
         {std::string("1e-400"), std::string("-1e-400"), std::string("2.4e-324"),
          "0." + zeros + "1", "1" + zeros + "e-800", "0." + zeros + zeros + "9e+400",
          std::string("1e-99999999999999999999"), std::string("0e-400")})
        EXPECT_EQ(TryParseReal(text), std::optional(0.0)) << text;
    EXPECT_EQ(TryParseReal("5e-324"), std::numeric_limits<double>::denorm_min());
    EXPECT_EQ(TryParseReal("0." + zeros + "1e+401"), std::optional(1.0)) << "not small at all";
    EXPECT_EQ(TryParseReal("0e99999999999999999999"), std::optional(0.0));
}

TEST_F(TNumbersTest, RefusesWhatIsTooLargeForADouble) {
    const std::string zeros(400, '0');
    for (const std::string &text :
         {std::string("1e400"), std::string("-1e400"), std::string("1.8e308"), "1" + zeros,
          "1" + zeros + ".5", "0." + zeros + "1e800", "1" + zeros + zeros + "e-400",
          std::string("1e99999999999999999999")})
        EXPECT_EQ(TryParseReal(text), std::nullopt) << text;
    EXPECT_EQ(TryParseReal("1.7976931348623157e308"), std::numeric_limits<double>::max());
}

TEST_F(TNumbersTest, RefusesWhatIsNoRealNumber) {
    for (const char *text : {"",      " ",   ".",   "-",    "+",        "e5",   "1e",  "1e+",
                             "abc",   "nan", "inf", "-INF", "infinity", "0x10", "$10", "1,000",
                             "1.2.3", "1 2", "- 1", "--1",  "12%",      "1e999"}) {
        EXPECT_EQ(TryParseReal(text), std::nullopt) << text;
        EXPECT_EQ(ConvertErrorOf([&] { ParseReal(text); }),
                  "'" + std::string(text) + "' is not a valid floating point value");
    }
}

TEST_F(TNumbersTest, TheSeparatorRulesReadingAndShowing) {
    EXPECT_EQ(SetDecimalSeparator(","), ".");
    EXPECT_EQ(TryParseReal("0,65"), std::optional(0.65));
    EXPECT_EQ(TryParseReal("0.65"), std::nullopt);
    EXPECT_EQ(FormatReal("###0.00", 1.5), "1,50");
    EXPECT_EQ(SetDecimalSeparator("\u066B"), ",");
    EXPECT_EQ(TryParseReal("0\u066B65"), std::optional(0.65));
    EXPECT_EQ(FormatReal("###0.0", 0.5), "0\u066B5");
}

TEST_F(TNumbersTest, ReadsIntegers) {
    const struct {
        const char *text;
        std::int32_t value;
    } cases[] = {{"0", 0},
                 {"-0", 0},
                 {"  42", 42},
                 {"+7", 7},
                 {"007", 7},
                 {"2147483647", highest},
                 {"-2147483648", lowest},
                 {"$0", 0},
                 {"$601c", 0x601C},
                 {"$601C", 0x601C},
                 {"-$10", -16},
                 {"$7FFFFFFF", highest},
                 {"$80000000", lowest},
                 {"$FFFFFFFF", -1}};
    for (const auto &[text, value] : cases) {
        EXPECT_EQ(TryParseInteger(text), std::optional(value)) << text;
        EXPECT_EQ(ParseInteger(text), value) << text;
        EXPECT_EQ(ParseIntegerOr(text, 99), value) << text;
    }
}

TEST_F(TNumbersTest, RefusesWhatIsNoInteger) {
    for (const char *text : {"", " ", "abc", "1.0", "12 ", "$", "$G", "$123456789", "--1", "+-1",
                             "2147483648", "-2147483649", "99999999999999999999", "1e3", "$-1"}) {
        EXPECT_EQ(TryParseInteger(text), std::nullopt) << text;
        EXPECT_EQ(ConvertErrorOf([&] { ParseInteger(text); }),
                  "'" + std::string(text) + "' is not a valid integer value");
        EXPECT_EQ(ParseIntegerOr(text, -1), -1) << text;
    }
}

TEST_F(TNumbersTest, OnlyTheLenientFormTakesTheOtherHexMark) {
    EXPECT_EQ(TryParseInteger("0x10"), std::nullopt);
    EXPECT_EQ(ParseIntegerOr("0x10", -1), 16);
    EXPECT_EQ(ParseIntegerOr("0XfF", -1), 255);
    EXPECT_EQ(ParseIntegerOr("0x", -1), -1);
    EXPECT_EQ(ParseIntegerOr("0x123456789", -1), -1);
}

TEST_F(TNumbersTest, FormatsByPicture) {
    const struct {
        const char *picture;
        double value;
        const char *text;
    } cases[] = {{"##0", 0.0, "0"},
                 {"##0", 131.0, "131"},
                 {"##0", 1234.0, "1234"},
                 {"####0", 10200.0, "10200"},
                 {"###0.00", 1.0, "1.00"},
                 {"###0.00", 131 / 128.0, "1.02"},
                 {"###0.00", 0.125, "0.13"},
                 {"###0.00", -0.125, "-0.13"},
                 {"###0.00", 1.005, "1.01"},
                 {"###0.00", 9.995, "10.00"},
                 {"###0.0", 30.745, "30.7"},
                 {"###0.0", 0.25, "0.3"},
                 {"###0.0", -8.255, "-8.3"},
                 {"###0.0", -0.04, "0.0"},
                 {"##0", -0.4, "0"},
                 {"##0", 0.5, "1"},
                 {"##0", 99.5, "100"},
                 {"##0", 0.0001, "0"},
                 {"###0.00", 0.001, "0.00"},
                 {"###0.00", 1e-300, "0.00"},
                 {"##0", 1e20, "100000000000000000000"},
                 {"##0", -25.0, "-25"},
                 {"000", 7.0, "007"},
                 {"0.##", 1.5, "1.5"},
                 {"0.##", 2.0, "2"},
                 {"#.0", 0.5, ".5"},
                 {"##0", HUGE_VAL, "INF"},
                 {"##0", -HUGE_VAL, "-INF"}};
    for (const auto &[picture, value, text] : cases)
        EXPECT_EQ(FormatReal(picture, value), text) << picture << " " << value;
    EXPECT_EQ(FormatReal("##0", std::nan("")), "NAN");
    EXPECT_EQ(FormatReal("##0", -0.0), "0");
}

TEST_F(TNumbersTest, FormatsOffsets) {
    const struct {
        std::int32_t offset;
        const char *text;
    } cases[] = {{0, "$0000"},      {0x24, "$0024"},        {0x601C, "$601C"},
                 {0xFFFF, "$FFFF"}, {0x10000, "$10000"},    {0xFFFFF, "$FFFFF"},
                 {-1, "$FFFFFFFF"}, {highest, "$7FFFFFFF"}, {lowest, "$80000000"}};
    for (const auto &[offset, text] : cases) {
        EXPECT_EQ(FormatOffset(offset), text);
        EXPECT_EQ(ParseInteger(text), offset) << text;
    }
}

} // namespace
