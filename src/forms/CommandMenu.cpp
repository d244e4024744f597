#include "forms/CommandMenu.h"

#include "forms/Commands.h"
#include "forms/Guard.h"
#include "forms/Hint.h"
#include "forms/KelvaneNotebook.h"
#include "forms/PageControl.h"
#include "forms/TEmbedFm.h"

#include <algorithm>

#include <QMenu>
#include <QPainter>
#include <QShortcut>
#include <QStyle>

TCommandMenu::TCommandMenu(TfrmKelvaneNotebook &notebook)
    : QToolButton(&notebook), menu(new QMenu(this)), notebook_(notebook) {
    setObjectName("btnMenu");
    setAutoRaise(true);
    setFocusPolicy(Qt::NoFocus); // its keys open it from anywhere
    setAccessibleName(tr("Menu"));
    SetHint(this, tr("All commands of this page: F10 or Alt+M"));
    menu->setObjectName("mnuCommands");
    menu->setAccessibleName(tr("Menu"));
    menu->setToolTipsVisible(true);
    notebook.PageControl1->setCornerWidget(this, Qt::TopRightCorner);
    ConnectGuarded(this, &QToolButton::clicked, this, [this] { Open(); });
    for (const QKeyCombination keys : {QKeyCombination(Qt::Key_F10), Qt::ALT | Qt::Key_M}) {
        auto *shortcut = new QShortcut(keys, &notebook);
        ConnectGuarded(shortcut, &QShortcut::activated, this, [this] { Open(); });
    }
    ConnectGuarded(menu, &QMenu::aboutToHide, this, [this] { Release(); });
}

std::vector<const QWidget *> TCommandMenu::Panes() const {
    if (notebook_.PageCount() == 0)
        return {&notebook_};
    return {notebook_.CurrentPage(), &notebook_};
}

void TCommandMenu::Open() {
    Fill();
    menu->popup(mapToGlobal(QPoint(width(), height())) - QPoint(menu->sizeHint().width(), 0));
    const QList<QAction *> commands = menu->actions();
    const auto first = std::find_if(commands.begin(), commands.end(), [](const QAction *command) {
        return command->isEnabled() && !command->isSeparator();
    });
    if (first != commands.end())
        menu->setActiveAction(*first);
}

/// Anew each time, since pages come and go.
void TCommandMenu::Fill() {
    menu->clear();
    for (const QWidget *pane : Panes()) {
        UpdateCommands(*pane);
        if (!menu->isEmpty())
            menu->addSeparator();
        menu->addActions(pane->actions());
    }
}

void TCommandMenu::Release() {
    for (const QWidget *pane : Panes())
        EnableCommands(*pane);
}

void TCommandMenu::paintEvent(QPaintEvent *event) {
    QToolButton::paintEvent(event);
    // Three bars, as large as an icon.
    const QRect icon = QStyle::alignedRect({}, Qt::AlignCenter, iconSize(), rect());
    const int thickness = std::max(1, icon.height() / 8);
    const QColor color =
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText);
    QPainter painter(this);
    for (const int middle : {icon.height() / 4, icon.height() / 2, icon.height() * 3 / 4})
        painter.fillRect(icon.x() + thickness, icon.y() + middle - thickness / 2,
                         icon.width() - 2 * thickness, thickness, color);
}
