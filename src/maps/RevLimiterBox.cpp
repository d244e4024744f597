#include "maps/RevLimiterBox.h"

#include "forms/AligridColors.h"
#include "forms/Hint.h"

#include <limits>

#include <QKeyEvent>
#include <QWheelEvent>

namespace {
constexpr int step = 40;       // rpm, one count
constexpr int buttonRoom = 48; // pixels, beside the digits
} // namespace

TRevLimiterBox::TRevLimiterBox(QWidget *parent)
    : QSpinBox(parent), label(new QLabel(tr("Max RPM"), parent)) {
    setObjectName("spnRevLimiter");
    label->setObjectName("Label1");
    label->setBuddy(this);
    setAccessibleName(label->text());
    SetHint(this, tr("The engine speed of the rev limiter, in steps of 40 rpm"));
    setSingleStep(step);
    // Both bounds 0 mean unbounded: an entry beyond 10,200 rpm wraps like any other.
    setRange(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
    setFixedWidth(fontMetrics().horizontalAdvance("-000000") + buttonRoom);
    setFocusPolicy(Qt::StrongFocus); // not by the wheel
}

void TRevLimiterBox::SetPresent(bool present) {
    setVisible(present);
    label->setVisible(present);
}

void TRevLimiterBox::SetTextColor(TColor color) {
    color_ = color;
    QPalette colors;
    if (color != clWindowText)
        colors.setColor(QPalette::Text,
                        Legible(PaintedColor(color, colors), colors.color(QPalette::Base)));
    setPalette(colors);
}

bool TRevLimiterBox::event(QEvent *event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto &key = *static_cast<QKeyEvent *>(event);
        if (key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo)) {
            event->ignore();
            return true;
        }
    }
    return QSpinBox::event(event);
}

void TRevLimiterBox::wheelEvent(QWheelEvent *event) {
    if (hasFocus())
        QSpinBox::wheelEvent(event);
    else
        event->ignore();
}

void TRevLimiterBox::changeEvent(QEvent *event) {
    QSpinBox::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        SetTextColor(color_);
}
