#include "forms/CommandMenu.h"

#include "forms/Commands.h"
#include "forms/Guard.h"
#include "forms/Hint.h"
#include "forms/KelvaneNotebook.h"
#include "forms/PageControl.h"
#include "forms/TEmbedFm.h"

#include <QMenu>
#include <QShortcut>

TCommandMenu::TCommandMenu(TfrmKelvaneNotebook &notebook)
    : QToolButton(&notebook), menu(new QMenu(this)), notebook_(notebook) {
    setObjectName("btnMenu");
    setText(QString(QChar(0x2261))); // three bars
    setAutoRaise(true);
    setFocusPolicy(Qt::NoFocus); // its keys open it from anywhere
    setAccessibleName(tr("Menu"));
    SetHint(this, tr("Menu (F10)|All commands of this page: F10 or Alt+M"));
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

void TCommandMenu::Open() {
    Fill();
    menu->popup(mapToGlobal(QPoint(width(), height())) - QPoint(menu->sizeHint().width(), 0));
    menu->setActiveAction(menu->actions().value(0));
}

/// Anew each time, since pages come and go.
void TCommandMenu::Fill() {
    menu->clear();
    const TEmbeddedForm &page = *notebook_.CurrentPage();
    for (const QWidget *pane : std::initializer_list<const QWidget *>{&page, &notebook_}) {
        UpdateCommands(*pane);
        if (!menu->isEmpty())
            menu->addSeparator();
        menu->addActions(pane->actions());
    }
}

void TCommandMenu::Release() {
    EnableCommands(*notebook_.CurrentPage());
    EnableCommands(notebook_);
}
