#include "forms/PlainScroll.h"

#include <QScrollArea>

QScrollArea *MakePlainScroll(QWidget *content, QWidget *parent) {
    auto *scroll = new QScrollArea(parent);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::ClickFocus); // Tab goes to what is in it
    scroll->setWidget(content);
    scroll->viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
    return scroll;
}
