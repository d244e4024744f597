#include "Driver.h"

#include <cstdlib>
#include <iostream>

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

namespace {
constexpr int waitLimit = 10000; // milliseconds
constexpr int tourLimit = 60000; // milliseconds

void ConfirmFileDialog(const QString &fileName) {
    auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
    if (!dialog) {
        QTimer::singleShot(20, qApp, [fileName] { ConfirmFileDialog(fileName); });
        return;
    }
    dialog->findChild<QLineEdit *>("fileNameEdit")->setText(fileName);
    const QDialogButtonBox::StandardButton confirm = dialog->acceptMode() == QFileDialog::AcceptOpen
                                                         ? QDialogButtonBox::Open
                                                         : QDialogButtonBox::Save;
    QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->button(confirm), Qt::LeftButton);
}

/// A dialog that nobody answers would wait for ever.
void LimitTime() {
    QTimer::singleShot(tourLimit, qApp, [] {
        std::cerr << "tour failed: not done after " << tourLimit / 1000 << " seconds" << std::endl;
        std::_Exit(1);
    });
}
} // namespace

TDriver::TDriver(QWidget &window, const QDir &pictures) : window_(window), pictures_(pictures) {
    LimitTime();
}

void TDriver::Step(const QString &text) {
    std::cout << "step " << ++step_ << ": " << text.toStdString() << std::endl;
}

void TDriver::Expect(bool condition, const QString &what) {
    if (!condition)
        throw ETourFailed(("not as expected: " + what).toStdString());
}

void TDriver::WaitFor(const std::function<bool()> &condition, const QString &what) {
    Expect(QTest::qWaitFor(condition, waitLimit), what);
}

void TDriver::Missing(const QString &name, QWidget &root) {
    QStringList names;
    for (const QWidget *child : root.findChildren<QWidget *>())
        if (!child->objectName().isEmpty())
            names << child->objectName();
    throw ETourFailed(("no control " + name + "; there are: " + names.join(", ")).toStdString());
}

void TDriver::Click(QWidget &control) {
    Expect(control.isVisible() && control.isEnabled(), control.objectName() + " can be clicked");
    QTest::mouseClick(&control, Qt::LeftButton);
}

void TDriver::SelectTab(const QString &caption) {
    auto &tabs = Find<QTabWidget>("PageControl1");
    for (int i = 0; i < tabs.count(); ++i)
        if (tabs.tabText(i) == caption) {
            QTest::mouseClick(tabs.tabBar(), Qt::LeftButton, {},
                              tabs.tabBar()->tabRect(i).center());
            WaitFor([&] { return tabs.currentIndex() == i; }, "tab " + caption + " is shown");
            return;
        }
    throw ETourFailed(("no tab " + caption).toStdString());
}

void TDriver::ChooseItem(const QString &group, const QString &text) {
    for (QRadioButton *item : Find<QWidget>(group).findChildren<QRadioButton *>())
        if (item->text().remove('&') == text) {
            QTest::mouseClick(item, Qt::LeftButton, {}, QPoint(12, item->height() / 2));
            return;
        }
    throw ETourFailed(("no item " + text + " in " + group).toStdString());
}

void TDriver::ClickAndChooseFile(QWidget &control, const QString &fileName) {
    QTimer::singleShot(0, qApp, [fileName] { ConfirmFileDialog(fileName); });
    Click(control);
}

void TDriver::Picture(const QString &name) {
    QTest::qWait(100); // let the window manager draw its frame
    const QString file = pictures_.filePath(name + ".png");
    Expect(window_.screen()->grabWindow(0).save(file), "picture " + file + " can be written");
    std::cout << "        picture " << file.toStdString() << std::endl;
}
