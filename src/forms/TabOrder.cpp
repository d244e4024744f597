#include "forms/TabOrder.h"

#include <algorithm>
#include <iterator>

#include <QWidget>

void SetTabSequence(std::initializer_list<QWidget *> controls) {
    QWidget *before = nullptr;
    for (QWidget *control : controls) {
        if (before)
            QWidget::setTabOrder(before, control);
        before = control;
    }
}

void MoveToTabEnd(QWidget &window, std::initializer_list<QWidget *> controls) {
    const auto moves = [&controls](const QWidget *control) {
        return std::find(controls.begin(), controls.end(), control) != controls.end();
    };
    QWidget *last = window.previousInFocusChain();
    while (last != &window && (last->focusPolicy() == Qt::NoFocus || moves(last)))
        last = last->previousInFocusChain();
    // From behind, because the toolkit moves no control that comes next anyhow, if only because the
    // first control of a window follows its last one.
    for (auto control = std::rbegin(controls); control != std::rend(controls); ++control)
        QWidget::setTabOrder(last, *control);
}

QWidget *FirstInTabOrder(QWidget &pane) {
    QWidget *control = &pane;
    do {
        const bool inside = control == &pane || pane.isAncestorOf(control);
        if (inside && control->focusPolicy() & Qt::TabFocus && control->isVisible() &&
            control->isEnabled())
            return control;
        control = control->nextInFocusChain();
    } while (control != &pane);
    return nullptr;
}
