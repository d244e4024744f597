#include "maps/OffsetEdit.h"

#include <QKeyEvent>

TOffsetEdit::TOffsetEdit(QWidget *parent, const QString &name) : TExitEdit(parent) {
    setObjectName(name);
    setAccessibleName(tr("offset"));
    setAccessibleDescription(tr("A double-click or F2 makes it writable"));
    SetWritable(false);
}

void TOffsetEdit::SetWritable(bool writable) {
    setReadOnly(!writable);
    QPalette colors;
    if (!writable)
        colors.setColor(QPalette::Base, colors.color(QPalette::Button));
    setPalette(colors);
}

void TOffsetEdit::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_F2)
        emit DoubleClicked();
    else
        TExitEdit::keyPressEvent(event);
}

void TOffsetEdit::mouseDoubleClickEvent(QMouseEvent *event) {
    emit DoubleClicked();
    TExitEdit::mouseDoubleClickEvent(event);
}
