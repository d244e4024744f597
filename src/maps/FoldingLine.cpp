#include "maps/FoldingLine.h"

#include <algorithm>

#include <QEvent>

TFoldingLine::TFoldingLine(QWidget *parent)
    : QWidget(parent),
      lines_(new QBoxLayout(QBoxLayout::LeftToRight, this)),
      start_(new QHBoxLayout),
      end_(new QHBoxLayout) {
    lines_->setContentsMargins(0, 0, 0, 0);
    // The window may get narrower than the layout, which would fold only then.
    lines_->setSizeConstraint(QLayout::SetNoConstraint);
    auto *start = new QHBoxLayout;
    start->addLayout(start_);
    start->addStretch(1);
    auto *end = new QHBoxLayout;
    end->addStretch(1);
    end->addLayout(end_);
    lines_->addLayout(start);
    lines_->addLayout(end);
}

QSize TFoldingLine::minimumSizeHint() const {
    const int width = std::max(start_->minimumSize().width(), end_->minimumSize().width());
    return {width, lines_->minimumSize().height()};
}

int TFoldingLine::UnfoldedWidth() const {
    return start_->minimumSize().width() + lines_->spacing() + end_->minimumSize().width();
}

void TFoldingLine::Fold() {
    const auto direction =
        width() < UnfoldedWidth() ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight;
    if (direction == lines_->direction())
        return;
    lines_->setDirection(direction);
    updateGeometry();
}

void TFoldingLine::resizeEvent(QResizeEvent *event) {
    QWidget::resizeEvent(event);
    Fold();
}

bool TFoldingLine::event(QEvent *event) {
    // Controls came, went or changed their size.
    if (event->type() == QEvent::LayoutRequest)
        Fold();
    return QWidget::event(event);
}
