// How the program names itself to the desktop.

#include "spec/Application.h"

#include <QGuiApplication>
#include <QIcon>
#include <QImage>
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
