// What a control shows of itself: its text, and the states that are not the usual ones.
#pragma once

#include "forms/TEmbedFm.h"

#include <QString>
#include <QVariant>
#include <QWidget>

inline QString TextOf(const QObject &control) {
    for (const char *property : {"currentText", "text", "title"})
        if (const QVariant text = control.property(property); text.isValid())
            return text.toString();
    return "(no text)";
}

/// Hidden by word, itself or one of its parents up to `form`.
inline bool IsHiddenIn(const QWidget *widget, const QObject &form) {
    for (; widget && widget != &form; widget = widget->parentWidget())
        if (widget->isHidden() && !qobject_cast<const TEmbeddedForm *>(widget))
            return widget->testAttribute(Qt::WA_WState_ExplicitShowHide);
    return false;
}

/// As letters: d disabled, h hidden, c checked, r read-only.
inline QString StatesOf(const QObject &control, const QObject &form) {
    QString states;
    if (!control.property("enabled").toBool())
        states += 'd';
    if (const auto *widget = qobject_cast<const QWidget *>(&control))
        if (IsHiddenIn(widget, form))
            states += 'h';
    if (control.inherits("QAbstractButton") && control.property("checked").toBool())
        states += 'c';
    if (control.property("readOnly").toBool())
        states += 'r';
    return states;
}
