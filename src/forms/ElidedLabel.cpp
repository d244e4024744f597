#include "forms/ElidedLabel.h"

#include "forms/Hint.h"

#include <QStyle>
#include <QStylePainter>

TElidedLabel::TElidedLabel(QWidget *parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

void TElidedLabel::ShowText(const QString &text) {
    setText(text);
    SetPlainToolTip(*this, ShownText() == text ? QString() : text);
}

QString TElidedLabel::ShownText() const {
    return fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width());
}

void TElidedLabel::paintEvent(QPaintEvent *) {
    QStylePainter painter(this);
    const int flags =
        int(QStyle::visualAlignment(layoutDirection(), alignment())) | Qt::TextSingleLine;
    painter.drawItemText(contentsRect(), flags, palette(), isEnabled(), ShownText(),
                         foregroundRole());
}
