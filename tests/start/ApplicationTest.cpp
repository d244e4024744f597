// How the program names itself to the desktop, and that it ends with its last window.

#include "spec/Application.h"

#include "spec/splash.h"

#include <chrono>

#include <QApplication>
#include <QIcon>
#include <QImage>
#include <QTimer>
#include <gtest/gtest.h>

TEST(Application, NamesItsDesktopEntry) {
    SetUpApplication();
    EXPECT_EQ(QGuiApplication::desktopFileName(), "org.ferrolyn.Ferrolyn");
}

TEST(Application, WindowsCarryTheIconInEverySizeOfADesktop) {
    SetUpApplication();
    const QIcon icon = QGuiApplication::windowIcon();
    for (const int size : {16, 32, 48, 64, 128}) {
        const QImage picture = icon.pixmap(size).toImage();
        ASSERT_EQ(picture.size(), QSize(size, size));
        EXPECT_NE(picture.pixelColor(size / 2, size / 2).alpha(), 0) << size;
    }
}

TEST(Application, EndsWithItsLastWindowThoughTheSplashComesUpBehindIt) {
    SetUpApplication();
    QWidget window;
    TfrmSplash splash;
    QTimer::singleShot(0, &window, [&] {
        window.show();
        window.close();
        splash.show();
    });
    QTimer::singleShot(std::chrono::seconds(30), &window, [] { QCoreApplication::exit(1); });
    EXPECT_EQ(QApplication::exec(), 0);
}
