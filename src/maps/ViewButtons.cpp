#include "maps/ViewButtons.h"

#include "forms/Access.h"
#include "forms/Hint.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {
constexpr int gapBeforeZoom = 10; // on top of the layout's own spacing
} // namespace

TViewButtons::TViewButtons(QWidget *parent)
    : QWidget(parent),
      btnLeft(NewButton(this, "btnLeft", Qt::LeftArrow, tr("Turn left"))),
      btnUp(NewButton(this, "btnUp", Qt::UpArrow, tr("Tilt up"))),
      btnDown(NewButton(this, "btnDown", Qt::DownArrow, tr("Tilt down"))),
      btnRight(NewButton(this, "btnRight", Qt::RightArrow, tr("Turn right"))),
      udZoom(new QWidget(this)),
      udZoomUp(NewButton(udZoom, "udZoomUp", Qt::UpArrow, tr("Zoom in"))),
      udZoomDown(NewButton(udZoom, "udZoomDown", Qt::DownArrow, tr("Zoom out"))) {
    setLayoutDirection(Qt::LeftToRight); // the left arrow stays at the left
    udZoom->setObjectName("udZoom");
    SetRole(*udZoom, QAccessible::Grouping, tr("Zoom"));
    SetRole(*this, QAccessible::Grouping, tr("View"));
    LayOut();
}

QToolButton *TViewButtons::NewButton(QWidget *parent, const char *name, Qt::ArrowType arrow,
                                     const QString &hint) {
    auto *button = new QToolButton(parent);
    button->setObjectName(name);
    button->setArrowType(arrow);
    button->setAutoRepeat(true);
    button->setAccessibleName(hint);
    SetHint(button, hint);
    return button;
}

void TViewButtons::LayOut() {
    const int side = 2 * fontMetrics().height();
    auto *pair = new QVBoxLayout(udZoom);
    pair->setContentsMargins(0, 0, 0, 0);
    pair->setSpacing(0);
    for (QToolButton *button : {udZoomUp, udZoomDown}) {
        button->setFixedSize(side, side / 2);
        pair->addWidget(button);
    }
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    for (QToolButton *button : {btnLeft, btnUp, btnDown, btnRight}) {
        button->setFixedSize(side, side);
        row->addWidget(button);
    }
    row->addSpacing(gapBeforeZoom);
    row->addWidget(new QLabel(tr("Zoom"), this));
    row->addWidget(udZoom);
}
