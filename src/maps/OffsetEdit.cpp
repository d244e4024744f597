#include "maps/OffsetEdit.h"

TOffsetEdit::TOffsetEdit(QWidget *parent, const QString &name) : TExitEdit(parent) {
    setObjectName(name);
    setAccessibleName(tr("offset"));
    SetWritable(false);
}

void TOffsetEdit::SetWritable(bool writable) {
    setReadOnly(!writable);
    QPalette colors;
    if (!writable)
        colors.setColor(QPalette::Base, colors.color(QPalette::Button));
    setPalette(colors);
}

void TOffsetEdit::mouseDoubleClickEvent(QMouseEvent *event) {
    emit DoubleClicked();
    TExitEdit::mouseDoubleClickEvent(event);
}
