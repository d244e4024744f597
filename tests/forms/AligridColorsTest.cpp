#include "forms/AligridColors.h"

#include "forms/AligridTypes.h"

#include <gtest/gtest.h>

namespace {
QPalette TestPalette() {
    QPalette palette;
    palette.setColor(QPalette::Base, QColor(10, 20, 30));
    palette.setColor(QPalette::Text, QColor(40, 50, 60));
    palette.setColor(QPalette::Button, QColor(70, 80, 90));
    palette.setColor(QPalette::Highlight, QColor(110, 120, 130));
    return palette;
}

struct TCase {
    TColor color;
    QRgb painted;
};

class TPaintedColorTest : public testing::TestWithParam<TCase> {};

TEST_P(TPaintedColorTest, IsPainted) {
    EXPECT_EQ(PaintedColor(GetParam().color, TestPalette()).rgb(), GetParam().painted);
}

INSTANTIATE_TEST_SUITE_P(
    Colors, TPaintedColorTest,
    testing::Values(TCase{clBlack, qRgb(0, 0, 0)}, TCase{clWhite, qRgb(255, 255, 255)},
                    TCase{clRed, qRgb(255, 0, 0)}, TCase{clGreen, qRgb(0, 128, 0)},
                    TCase{clBlue, qRgb(0, 0, 255)}, TCase{0x123456, qRgb(0x56, 0x34, 0x12)},
                    // any other top byte is left out
                    TCase{0x0100FFFF, qRgb(0xFF, 0xFF, 0)}, TCase{0x01FEFFFF, qRgb(255, 255, 254)},
                    TCase{0xFF0000FF, qRgb(255, 0, 0)}, TCase{clWindow, qRgb(10, 20, 30)},
                    TCase{clWindowText, qRgb(40, 50, 60)}, TCase{clBtnFace, qRgb(70, 80, 90)},
                    TCase{clHighlight, qRgb(35, 45, 55)}, TCase{0x80000077, qRgb(40, 50, 60)}));

TEST(ReadableOn, IsTheColourWithMoreContrast) {
    EXPECT_EQ(ReadableOn(Qt::white), QColor(Qt::black));
    EXPECT_EQ(ReadableOn(Qt::yellow), QColor(Qt::black));
    EXPECT_EQ(ReadableOn(QColor(0, 255, 0)), QColor(Qt::black));
    EXPECT_EQ(ReadableOn(Qt::blue), QColor(Qt::white));
    EXPECT_EQ(ReadableOn(QColor(128, 0, 128)), QColor(Qt::white));
    EXPECT_EQ(ReadableOn(Qt::black), QColor(Qt::white));
}

TEST(Blended, MixesByShare) {
    EXPECT_EQ(Blended(Qt::white, Qt::black, 1), QColor(Qt::white));
    EXPECT_EQ(Blended(Qt::white, Qt::black, 0), QColor(Qt::black));
    EXPECT_EQ(Blended(QColor(100, 0, 200), QColor(0, 100, 0), 0.25), QColor(25, 75, 50));
}
} // namespace
