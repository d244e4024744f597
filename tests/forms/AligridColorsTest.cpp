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

TEST(ReadableOn, IsAlwaysReadable) {
    for (int red = 0; red < 256; red += 15)
        for (int green = 0; green < 256; green += 15)
            for (int blue = 0; blue < 256; blue += 15) {
                const QColor background(red, green, blue);
                EXPECT_GE(Contrast(ReadableOn(background), background), 4.58)
                    << background.name().toStdString();
            }
}

TEST(Contrast, IsThatOfTheGuidelines) {
    EXPECT_DOUBLE_EQ(Contrast(Qt::black, Qt::white), 21);
    EXPECT_DOUBLE_EQ(Contrast(Qt::white, Qt::black), 21);
    EXPECT_DOUBLE_EQ(Contrast(Qt::red, Qt::red), 1);
    EXPECT_NEAR(Contrast(Qt::red, Qt::white), 4.00, 0.005);
    EXPECT_NEAR(Contrast(Qt::blue, Qt::white), 8.59, 0.005);
    EXPECT_NEAR(Contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.005);
}

TEST(Legible, KeepsWhatCanBeRead) {
    EXPECT_EQ(Legible(Qt::blue, Qt::white), QColor(Qt::blue));
    EXPECT_EQ(Legible(Qt::red, Qt::white, leastLineContrast), QColor(Qt::red));
    EXPECT_EQ(Legible(Qt::black, Qt::white), QColor(Qt::black));
}

TEST(Legible, KeepsTheHueOfWhatCannot) {
    for (const QColor background : {QColor(Qt::white), QColor(Qt::black), QColor(0x1b, 0x1e, 0x20),
                                    QColor(Qt::yellow), QColor(128, 128, 128)})
        for (const QColor color : {QColor(Qt::blue), QColor(Qt::red), QColor(0, 128, 0)}) {
            const QColor legible = Legible(color, background);
            EXPECT_GE(Contrast(legible, background), leastTextContrast)
                << color.name().toStdString() << " on " << background.name().toStdString();
            if (legible.saturation() > 0) {
                EXPECT_NEAR(legible.hue(), color.hue(), 3) << color.name().toStdString();
            }
        }
}

TEST(Blended, MixesByShare) {
    EXPECT_EQ(Blended(Qt::white, Qt::black, 1), QColor(Qt::white));
    EXPECT_EQ(Blended(Qt::white, Qt::black, 0), QColor(Qt::black));
    EXPECT_EQ(Blended(QColor(100, 0, 200), QColor(0, 100, 0), 0.25), QColor(25, 75, 50));
}
} // namespace
