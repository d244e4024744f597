#include "Pictures.h"

#include "Describe.h"
#include "Driver.h"

#include <algorithm>
#include <iostream>

#include <QApplication>
#include <QFile>
#include <QPainter>
#include <QPixmap>
#include <QScreen>
#include <QTest>

namespace {
constexpr int drawTime = 300; // milliseconds for the window manager and the menus

/// What the user sees: the main window, then the others by name, as the toolkit gives them in an
/// order that changes from run to run.
QList<QWidget *> ShownWindows(QWidget &main) {
    QList<QWidget *> others;
    for (QWidget *window : QApplication::topLevelWidgets())
        if (window != &main && window->isVisible())
            others << window;
    std::sort(others.begin(), others.end(),
              [](const QWidget *a, const QWidget *b) { return a->objectName() < b->objectName(); });
    return QList<QWidget *>{&main} + others;
}

/// The windows out of a picture of the screen, cut to what they take.
QImage CutOut(const QImage &screen, const QList<QWidget *> &windows) {
    QImage picture(screen.size(), QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    QRect all;
    for (const QWidget *window : windows) {
        const QRect place = window->frameGeometry() & screen.rect();
        painter.drawImage(place, screen, place);
        all |= place;
    }
    painter.end();
    return picture.copy(all);
}
} // namespace

TPictures::TPictures(const QDir &folder, const QDir &roms) : folder_(folder), roms_(roms) {
    QFile log(folder_.filePath("log.txt"));
    TDriver::Expect(log.open(QIODevice::WriteOnly), log.fileName() + " can be written");
}

void TPictures::Take(QWidget &main, const QString &name) {
    QTest::qWait(drawTime);
    const QString file = folder_.filePath(name + ".png");
    const QImage screen = main.screen()->grabWindow(0).toImage();
    const QImage picture = CutOut(screen, ShownWindows(main));
    TDriver::Expect(picture.save(file), file + " can be written");
    Log(main, name, picture);
    std::cout << "        picture " << file.toStdString() << std::endl;
}

void TPictures::Log(QWidget &main, const QString &name, const QImage &picture) {
    QString text = QString("%1.png %2 x %3\n").arg(name).arg(picture.width()).arg(picture.height());
    for (const QWidget *window : ShownWindows(main))
        text += Describe(*window);
    text.replace(QDir::toNativeSeparators(roms_.absolutePath()), "ROMS");
    QFile log(folder_.filePath("log.txt"));
    TDriver::Expect(log.open(QIODevice::Append) && log.write((text + '\n').toUtf8()) > 0,
                    log.fileName() + " can be written");
}
