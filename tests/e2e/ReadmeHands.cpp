#include "ReadmeHands.h"

#include "forms/PageControl.h"
#include "forms/TEmbedFm.h"

#include <QAction>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>

namespace {
[[noreturn]] void Missing(const QString &what) {
    throw std::runtime_error(("there is no " + what).toStdString());
}

QString Plain(QString caption) {
    return caption.replace("&&", "\1").remove('&').replace('\1', '&');
}

template <class Control>
std::vector<Control *> Visible(const QWidget &page, const QString &caption) {
    std::vector<Control *> found;
    for (auto *control : page.findChildren<Control *>())
        if (control->isVisible() && control->isEnabled() && Plain(control->text()) == caption)
            found.push_back(control);
    return found;
}

/// Whether the middle of `control` is as high as a part of `other`.
bool StandsBeside(const QWidget &control, const QWidget &other) {
    const int y = control.mapToGlobal(control.rect().center()).y();
    const int top = other.mapToGlobal(QPoint()).y();
    return y >= top && y < top + other.height();
}

void PressOnly(const std::vector<QPushButton *> &buttons, const QString &caption) {
    if (buttons.size() != 1)
        Missing("single button " + caption + " to press");
    QTest::mouseClick(buttons.front(), Qt::LeftButton);
}

QAction *ItemOf(const QMenu &menu, const QString &caption) {
    for (QAction *item : menu.actions())
        if (Plain(item->text()) == caption)
            return item;
    return nullptr;
}
} // namespace

QWidget &TReadmeHands::Page() const {
    return *session_.window->GetPage(session_.window->PageControl1->currentIndex());
}

void TReadmeHands::Press(const QString &caption) {
    std::vector<QPushButton *> buttons = Visible<QPushButton>(Page(), caption);
    if (buttons.size() > 1 && grid_)
        std::erase_if(buttons, [&](auto *button) { return !StandsBeside(*button, *grid_); });
    PressOnly(buttons, caption);
}

void TReadmeHands::Press(const QString &caption, const QWidget &window) {
    PressOnly(Visible<QPushButton>(window, caption), caption);
}

void TReadmeHands::Check(const QString &caption) {
    const auto boxes = Visible<QCheckBox>(Page(), caption);
    if (boxes.size() != 1 || boxes.front()->isChecked())
        Missing("box " + caption + " to check");
    QTest::mouseClick(boxes.front(), Qt::LeftButton, {}, QPoint(8, boxes.front()->height() / 2));
}

void TReadmeHands::Choose(const QString &caption) {
    const auto items = Visible<QRadioButton>(Page(), caption);
    if (items.size() != 1)
        Missing("item " + caption + " to choose");
    QTest::mouseClick(items.front(), Qt::LeftButton, {}, QPoint(10, 10));
}

void TReadmeHands::ChooseInMenu(const QString &item) {
    for (const QMenu *each : Page().findChildren<QMenu *>())
        if (QAction *const chosen = ItemOf(*each, item))
            return chosen->trigger();
    Missing("menu item " + item);
}

void TReadmeHands::ChooseInMenu(const QString &menu, const QString &item) {
    menu_ = menu;
    for (const QMenu *each : Page().findChildren<QMenu *>()) {
        QAction *const below = ItemOf(*each, menu);
        if (QAction *chosen = below && below->menu() ? ItemOf(*below->menu(), item) : nullptr)
            return chosen->trigger();
    }
    Missing("menu item " + menu + ", " + item);
}

void TReadmeHands::ChooseInWindowMenu(const QString &item) {
    QTest::mouseClick(&FindControl<QToolButton>(*session_.window, "btnMenu"), Qt::LeftButton);
    auto &menu = FindControl<QMenu>(*session_.window, "mnuCommands");
    QAction *chosen = ItemOf(menu, item);
    menu.close();
    if (!chosen)
        Missing("menu item " + item);
    chosen->trigger();
}

void TReadmeHands::Type(const QString &text, const QString &rpm, const QString &load,
                        const QString &shown) {
    const QString page = Page().objectName();
    for (auto *grid : Page().findChildren<TStringAlignGrid *>())
        for (int row = 1; row < grid->RowCount(); ++row)
            for (int column = 1; column < grid->ColCount(); ++column)
                if (grid->isVisible() && grid->Cell(column, 0) == rpm &&
                    grid->Cell(0, row) == load + '%' && grid->Cell(column, row) == shown) {
                    grid_ = grid;
                    cell_ = {column, row};
                    session_.TypeInto(*grid, cell_, text);
                    return;
                }
    Missing("cell at " + rpm + " rpm and " + load + " % that shows " + shown);
}

void TReadmeHands::PressEnterOn(const QString &list) {
    QTest::keyClick(&FindControl<QTreeWidget>(Page(), list), Qt::Key_Return);
}

void TReadmeHands::ClickByte(int offset) {
    TStringAlignGrid &grid = Contents();
    const QModelIndex cell = grid.model()->index(offset / 16, offset % 16); // without the headers
    grid.scrollTo(cell, QAbstractItemView::PositionAtCenter);
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, grid.visualRect(cell).center());
    if (grid.Row() != offset / 16 + 1 || grid.Col() != offset % 16 + 1)
        Missing("byte " + QString::number(offset, 16) + " to click");
}

bool TReadmeHands::Shows(const QString &text) const {
    const auto has = [&](const auto &controls, const char *property) {
        return std::any_of(controls.begin(), controls.end(), [&](const QObject *control) {
            return Plain(control->property(property).toString()) == text;
        });
    };
    const QTabBar &tabs = *session_.window->PageControl1->tabBar();
    for (int tab = 0; tab < tabs.count(); ++tab)
        if (Plain(tabs.tabText(tab)) == text)
            return true;
    return has(Page().findChildren<QAbstractButton *>(), "text") ||
           has(Page().findChildren<QGroupBox *>(), "title") ||
           has(Page().findChildren<QLabel *>(), "text") ||
           has(Page().findChildren<QAction *>(), "text");
}
