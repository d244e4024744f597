#include "Driver.h"

#include <cstdlib>
#include <iostream>

#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

namespace {
constexpr int waitLimit = 10000;  // milliseconds
constexpr int tourLimit = 180000; // milliseconds

/// For failures inside the event loop, which no exception may leave.
[[noreturn]] void EndTour(const QString &reason) {
    std::cerr << "tour failed: " << reason.toStdString() << std::endl;
    std::_Exit(1);
}

int clicks = 0;

void ClickAt(QWidget *control, Qt::MouseButton button, Qt::KeyboardModifiers held = {},
             QPoint at = {}) {
    ++clicks;
    QTest::mouseClick(control, button, held, at);
}

/// The edit of a dialog that asks for a text; ends the tour when it is another dialog.
QLineEdit &EditOf(const QDialog &dialog, const QString &name = {}) {
    if (auto *edit = dialog.findChild<QLineEdit *>(name))
        return *edit;
    QStringList texts;
    for (const QLabel *label : dialog.findChildren<QLabel *>())
        texts << label->text();
    EndTour("a dialog that does not ask for a text: " + texts.join(", "));
}

QAction *ItemOf(const QMenu &menu, const QString &text) {
    for (QAction *action : menu.actions())
        if (action->text().remove('&') == text)
            return action;
    throw ETourFailed(("no menu item " + text).toStdString());
}

QMenu *OpenedMenu() {
    return qobject_cast<QMenu *>(QApplication::activePopupWidget());
}
} // namespace

void TDriver::LimitTime() {
    QTimer::singleShot(tourLimit, qApp,
                       [] { EndTour(QString("not done after %1 seconds").arg(tourLimit / 1000)); });
}

void TDriver::Step(const QString &text) {
    static int step = 0;
    std::cout << "step " << ++step << ": " << text.toStdString() << std::endl;
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
    ClickAt(&control, Qt::LeftButton);
}

int TDriver::Clicks() {
    return clicks;
}

void TDriver::SelectTab(const QString &caption) {
    auto &tabs = Find<QTabWidget>("PageControl1");
    for (int i = 0; i < tabs.count(); ++i)
        if (tabs.tabText(i) == caption) {
            ClickAt(tabs.tabBar(), Qt::LeftButton, {}, tabs.tabBar()->tabRect(i).center());
            WaitFor([&] { return tabs.currentIndex() == i; }, "tab " + caption + " is shown");
            return;
        }
    throw ETourFailed(("no tab " + caption).toStdString());
}

void TDriver::ChooseItem(const QString &group, const QString &text) {
    for (QRadioButton *item : Find<QWidget>(group).findChildren<QRadioButton *>())
        if (item->text().remove('&') == text) {
            ClickAt(item, Qt::LeftButton, {}, QPoint(12, item->height() / 2));
            return;
        }
    throw ETourFailed(("no item " + text + " in " + group).toStdString());
}

void TDriver::WhenAsked(const std::function<void(QDialog &)> &answer) {
    auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
    if (dialog && dialog->isVisible())
        answer(*dialog);
    else
        QTimer::singleShot(20, qApp, [answer] { WhenAsked(answer); });
}

void TDriver::ConfirmFile(QDialog &dialog, const QString &fileName) {
    auto &fileDialog = dynamic_cast<QFileDialog &>(dialog);
    QLineEdit &edit = EditOf(dialog, "fileNameEdit");
    fileDialog.setDirectory(QFileInfo(fileName).path());
    // While the folder is still being read the dialog goes back to the file that it knew before.
    const bool typed = QTest::qWaitFor(
        [&] {
            if (fileDialog.selectedFiles() == QStringList(QDir::fromNativeSeparators(fileName)))
                return true;
            edit.selectAll();
            QTest::keyClicks(&edit, QFileInfo(fileName).fileName());
            return false;
        },
        waitLimit);
    if (!typed)
        EndTour("the file dialog does not take " + fileName);
    const QDialogButtonBox::StandardButton confirm =
        fileDialog.acceptMode() == QFileDialog::AcceptOpen ? QDialogButtonBox::Open
                                                           : QDialogButtonBox::Save;
    ClickAt(dialog.findChild<QDialogButtonBox *>()->button(confirm), Qt::LeftButton);
}

void TDriver::ConfirmText(QDialog &dialog, const QString &text) {
    EditOf(dialog).setText(text);
    ClickAt(dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
}

void TDriver::ClickAndChooseFile(QWidget &control, const QString &fileName) {
    QTimer::singleShot(0, qApp, [fileName] {
        WhenAsked([fileName](QDialog &dialog) { ConfirmFile(dialog, fileName); });
    });
    Click(control);
}

void TDriver::ClickAndSaveSpec(QWidget &control, const QString &fileName, const QString &label) {
    QTimer::singleShot(0, qApp, [=] {
        WhenAsked([=](QDialog &file) {
            ConfirmFile(file, fileName);
            QTimer::singleShot(0, qApp,
                               [=] { WhenAsked([=](QDialog &box) { ConfirmText(box, label); }); });
        });
    });
    Click(control);
}

void TDriver::ChooseInWindowMenu(const QString &text) {
    Click(Find<QWidget>("btnMenu"));
    WaitFor([] { return OpenedMenu(); }, "the menu opens");
    QMenu &menu = *OpenedMenu();
    ClickAt(&menu, Qt::LeftButton, {}, menu.actionGeometry(ItemOf(menu, text)).center());
    WaitFor([] { return !OpenedMenu(); }, "the menu closes");
}

void TDriver::OpenMenu(QWidget &area, QPoint at, const QStringList &path) {
    QCursor::setPos(area.mapToGlobal(at)); // where the menu pops up
    ClickAt(&area, Qt::RightButton, {}, at);
    WaitFor([] { return OpenedMenu(); }, "the menu opens");
    const QMenu *menu = OpenedMenu();
    for (const QString &text : path) {
        WaitFor([menu] { return OpenedMenu() == menu; }, "the menu of " + text + " opens");
        QAction *item = ItemOf(*menu, text);
        OpenedMenu()->setActiveAction(item); // opens what is below it
        menu = item->menu();
    }
}

void TDriver::TriggerMenu() {
    QTest::keyClick(OpenedMenu(), Qt::Key_Enter);
    WaitFor([] { return !OpenedMenu(); }, "the menu closes");
}
