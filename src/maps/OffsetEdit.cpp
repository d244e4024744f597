#include "maps/OffsetEdit.h"

#include <QEvent>
#include <QKeyEvent>

namespace {
constexpr int boxRoom = 24; // pixels, beside the longest offset
} // namespace

TOffsetEdit::TOffsetEdit(QWidget *parent, const QString &name) : TExitEdit(parent) {
    setObjectName(name);
    setFixedWidth(fontMetrics().horizontalAdvance("$FFFFFFFF") + boxRoom);
    SetWritable(false);
}

void TOffsetEdit::SetWritable(bool writable) {
    setReadOnly(!writable);
    TakeThemeColors();
}

void TOffsetEdit::TakeThemeColors() {
    QPalette colors;
    if (isReadOnly()) {
        colors.setColor(QPalette::Text, colors.color(QPalette::ButtonText));
        colors.setColor(QPalette::Base, colors.color(QPalette::Button));
    }
    setPalette(colors);
}

void TOffsetEdit::changeEvent(QEvent *event) {
    TExitEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        TakeThemeColors();
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
