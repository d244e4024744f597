#include "system/Texts.h"

#include <gtest/gtest.h>

namespace {
TEST(Texts, AreEnglishWithoutATranslator) {
    EXPECT_EQ(Translated("Model", "Error saving data map data"), "Error saving data map data");
}

TEST(Texts, AreTheTranslatorsOtherwise) {
    const TTextTranslator old = SetTextTranslator([](const char *context, const char *english) {
        return std::string(context) + "/" + english;
    });
    EXPECT_EQ(Translated("Model", "a text"), "Model/a text");
    SetTextTranslator(old);
    EXPECT_EQ(Translated("Model", "a text"), "a text");
}

TEST(Texts, AreFilledOnce) {
    EXPECT_EQ(Filled("x=%1 y=%2", {"3", "4"}), "x=3 y=4");
    EXPECT_EQ(Filled("%2 before %1", {"one", "two"}), "two before one");
    EXPECT_EQ(Filled("'%1'", {"%1 %2"}), "'%1 %2'");
    EXPECT_EQ(Filled("%1%1", {"a"}), "aa");
}

TEST(Texts, KeepMarksWithoutAnArgument) {
    EXPECT_EQ(Filled("100 % of %2 and %", {"a"}), "100 % of %2 and %");
    EXPECT_EQ(Filled("%0 %x %", {"a"}), "%0 %x %");
    EXPECT_EQ(Filled("", {"a"}), "");
}
} // namespace
