#include "maps/ExitEdit.h"

#include "forms/MousePress.h"

#include <QFocusEvent>

TExitEdit::TExitEdit(QWidget *parent) : QLineEdit(parent) {
    setLayoutDirection(Qt::LeftToRight); // "$" and signs stand before their number everywhere
    connect(this, &QLineEdit::returnPressed, this, &TExitEdit::Left);
}

void TExitEdit::focusOutEvent(QFocusEvent *event) {
    QLineEdit::focusOutEvent(event);
    const Qt::FocusReason reason = event->reason();
    // When a page is hidden the toolkit moves the focus on as if by Tab.
    if (!isVisible())
        return;
    if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
        reason == Qt::MouseFocusReason || reason == Qt::ShortcutFocusReason) {
        const TMousePress press;
        emit Left();
    }
}
