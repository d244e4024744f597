// The locale of the C library, which some programs take from the user, has no say in numbers.
#include "model/Numbers.h"
#include "support/ModelFixture.h"

#include <clocale>
#include <cstdio>

#include <gtest/gtest.h>

namespace {

class TGermanLocale : public TModelTest {
protected:
    TGermanLocale() : isSet(std::setlocale(LC_ALL, "German_Germany.1252") != nullptr) {}
    ~TGermanLocale() override { std::setlocale(LC_ALL, "C"); }
    const bool isSet;
};

TEST_F(TGermanLocale, HasAComma) {
    ASSERT_TRUE(isSet);
    EXPECT_STREQ(std::localeconv()->decimal_point, ",");
}

TEST_F(TGermanLocale, HasNoSayInNumbers) {
    EXPECT_EQ(FormatReal("###0.00", 1234.5), "1234.50");
    EXPECT_EQ(FormatReal("0.0", -0.25), "-0.3");
    EXPECT_EQ(TryParseReal("0.125"), 0.125);
    EXPECT_EQ(TryParseReal("1.5e2"), 150);
    EXPECT_EQ(TryParseReal("0,125"), std::nullopt);
}

TEST_F(TGermanLocale, LeavesTheSeparatorToTheProgram) {
    const TSeparatorInForce comma(",");
    EXPECT_EQ(FormatReal("###0.00", 1234.5), "1234,50");
    EXPECT_EQ(TryParseReal("0,125"), 0.125);
    EXPECT_EQ(TryParseReal("0.125"), std::nullopt);
}

} // namespace
