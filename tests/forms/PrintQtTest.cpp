// A failed comparison of the toolkit's values says what they are.
#include <QColor>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QStringList>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

using testing::PrintToString;

TEST(PrintQt, TextsAreReadable) {
    EXPECT_EQ(PrintToString(QString("Fuel \"PT\"\n")), R"("Fuel \"PT\"\n")");
    EXPECT_EQ(PrintToString(QString()), R"("")");
    EXPECT_NE(PrintToString(QString("Übernehmen")).find("Übernehmen"), std::string::npos);
    EXPECT_EQ(PrintToString(QStringList({"one", "two"})), R"({ "one", "two" })");
}

TEST(PrintQt, ColoursAndPlacesAreReadable) {
    EXPECT_EQ(PrintToString(QColor(1, 2, 255)), "QColor(ARGB 1, 0.00392157, 0.00784314, 1)");
    EXPECT_EQ(PrintToString(QPoint(3, -4)), "QPoint(3,-4)");
    EXPECT_EQ(PrintToString(QSize(5, 6)), "QSize(5, 6)");
    EXPECT_EQ(PrintToString(QRect(1, 2, 3, 4)), "QRect(1,2 3x4)");
}

TEST(PrintQt, FailuresShowBothTexts) {
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(QString("blue"), QString("red")), "\"blue\"");
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(QString("blue"), QString("red")), "\"red\"");
}
