#include "spec/splash.h"

#include "logo/Logo.h"

#include <QFrame>
#include <QImage>
#include <QScreen>
#include <gtest/gtest.h>

namespace {
QString Status(const TfrmSplash &splash) {
    return splash.findChild<QLabel *>("lblStatus")->text();
}
} // namespace

TEST(Splash, IsABorderlessWindowOnTopInTheMiddleOfTheScreen) {
    TfrmSplash splash;
    splash.show();
    EXPECT_EQ(splash.size(), QSize(492, 151));
    EXPECT_EQ(splash.geometry().center(), splash.screen()->geometry().center());
    EXPECT_EQ(splash.windowFlags() & Qt::WindowType_Mask, Qt::SplashScreen);
    EXPECT_TRUE(splash.windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_TRUE(splash.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_FALSE(splash.testAttribute(Qt::WA_QuitOnClose));
}

TEST(Splash, ARaisedPanelWithTheLogoFillsIt) {
    const TfrmSplash splash;
    const auto *panel = splash.findChild<QFrame *>("Panel1");
    ASSERT_TRUE(panel);
    EXPECT_EQ(panel->geometry(), splash.rect());
    EXPECT_EQ(panel->frameShadow(), QFrame::Raised);
    const auto *logo = panel->findChild<QLabel *>("imgLogo");
    ASSERT_TRUE(logo);
    EXPECT_EQ(logo->geometry(), panel->contentsRect());
    EXPECT_TRUE(logo->hasScaledContents());
    EXPECT_EQ(logo->alignment(), Qt::AlignCenter);
    EXPECT_FALSE(logo->pixmap().isNull());
}

TEST(Splash, TheStatusIsWhiteBoldItalicAtTheBottomLeft) {
    const TfrmSplash splash;
    const auto *status = splash.findChild<QLabel *>("lblStatus");
    ASSERT_TRUE(status);
    EXPECT_EQ(status->palette().color(QPalette::WindowText), QColor(Qt::white));
    EXPECT_TRUE(status->font().bold());
    EXPECT_TRUE(status->font().italic());
    EXPECT_FALSE(status->autoFillBackground());
    EXPECT_LT(status->geometry().left(), splash.width() / 8);
    EXPECT_GT(status->geometry().top(), splash.height() * 3 / 4);
}

TEST(Splash, TheLongestStatusFits) {
    TfrmSplash splash;
    splash.show();
    for (int step = 0; step < 25; ++step)
        splash.AnimateStatus();
    const auto *status = splash.findChild<QLabel *>("lblStatus");
    EXPECT_LE(status->sizeHint().width(), status->width());
    EXPECT_LE(status->sizeHint().height(), status->height());
}

TEST(Splash, ShowingSetsTheDefaultText) {
    TfrmSplash splash;
    splash.show();
    EXPECT_EQ(splash.statusText, "Initializing.");
    EXPECT_EQ(Status(splash), "Initializing.");
    EXPECT_EQ(splash.direction, "forward");
}

TEST(Splash, ShowingKeepsAGivenText) {
    TfrmSplash splash;
    splash.statusText = "Wait";
    splash.direction = "back";
    splash.show();
    EXPECT_EQ(Status(splash), "Wait");
    EXPECT_EQ(splash.direction, "forward");
}

TEST(Splash, DotsGrowTo25ShrinkToNoneAndGrowAgain) {
    for (const QString base : {"Initializing.", "x"}) {
        TfrmSplash splash;
        splash.statusText = base;
        splash.show();
        int dots = 0;
        for (int step = 1; step <= 150; ++step) {
            splash.AnimateStatus();
            const bool growing = (step - 1) % 50 < 25;
            dots += growing ? 1 : -1;
            EXPECT_EQ(Status(splash), base + QString(dots, '.')) << "step " << step;
            EXPECT_EQ(splash.direction, growing ? "forward" : "back") << "step " << step;
        }
    }
}

// Run at scales 1, 2 and 3.
TEST(SplashLogo, IsShownAsItWasDrawnForThisScale) {
    TfrmSplash splash;
    const int scale = qRound(splash.devicePixelRatio());
    splash.findChild<QLabel *>("lblStatus")->hide();
    const QImage shown = splash.findChild<QLabel *>("imgLogo")->grab().toImage();
    const QImage drawn = DrawLogo(scale);
    ASSERT_EQ(shown.size(), drawn.size());
    EXPECT_TRUE(shown.convertToFormat(drawn.format()) == drawn);
}

TEST(SplashLogo, ShowsAGlowingMapOnADarkPanel) {
    const QImage picture(":/splash/logo@1x.png");
    EXPECT_LT(picture.pixelColor(5, 145).lightness(), 40); // where the status text goes
    const QColor peak = picture.pixelColor(403, 33);
    EXPECT_GT(peak.lightness(), 120);
    EXPECT_GE(peak.red(), peak.blue());
}
