#include "spec/SplashScreen.h"

#include "start/WaitFor.h"

#include <memory>
#include <thread>

#include <QApplication>
#include <gtest/gtest.h>

namespace {
TfrmSplash *Window() {
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (auto *splash = qobject_cast<TfrmSplash *>(window))
            return splash;
    }
    return nullptr;
}

bool WaitForWindow(bool there) {
    return WaitFor([there] { return (Window() != nullptr) == there; });
}

QString Status() {
    return Window()->findChild<QLabel *>("lblStatus")->text();
}
} // namespace

TEST(SplashScreen, ShowsItsWindowAndAnimatesIt) {
    const TSplashScreen splash;
    ASSERT_TRUE(WaitForWindow(true));
    EXPECT_TRUE(Window()->isVisible());
    EXPECT_EQ(Window()->objectName(), "frmSplash");
    EXPECT_TRUE(WaitFor([] { return Status() == "Initializing..."; }));
}

TEST(SplashScreen, TerminateClosesTheWindowAndMayBeRepeated) {
    TSplashScreen splash;
    ASSERT_TRUE(WaitForWindow(true));
    splash.Terminate();
    EXPECT_TRUE(Window()) << "closed by a hand-over, not by the call";
    ASSERT_TRUE(WaitForWindow(false));
    splash.Terminate();
    QCoreApplication::processEvents();
    EXPECT_FALSE(Window());
}

TEST(SplashScreen, TerminatedBeforeItsWindowWasMadeStillEnds) {
    TSplashScreen splash;
    splash.Terminate();
    ASSERT_TRUE(WaitForWindow(true));
    EXPECT_TRUE(WaitForWindow(false));
}

TEST(SplashScreenEnd, BeforeTheWindowIsThere) {
    for (int round = 0; round < 100; ++round) {
        const TSplashScreen splash;
        Dawdle(round);
    }
    QCoreApplication::processEvents();
    EXPECT_FALSE(Window());
}

TEST(SplashScreenEnd, WithTheWindowShown) {
    for (int round = 0; round < 10; ++round) {
        const auto splash = std::make_unique<TSplashScreen>();
        ASSERT_TRUE(WaitForWindow(true));
    }
    EXPECT_FALSE(Window());
}

TEST(SplashScreenEnd, WithTheClosingHandOverOnItsWay) {
    for (int round = 0; round < 10; ++round) {
        TSplashScreen splash;
        ASSERT_TRUE(WaitForWindow(true));
        splash.Terminate();
        Dawdle(round * 5);
    }
    EXPECT_FALSE(Window());
}
