// Turning the mouse wheel over a control.
#pragma once

#include <QApplication>
#include <QWheelEvent>
#include <QWidget>
#include <QtTest/qtestspontaneevent.h>

/// Turns the wheel over the middle of `control` by eighths of a degree; away from the user is
/// positive. What the control does not take goes to its parents. True when somebody took it.
inline bool WheelOver(QWidget &control, int angle) {
    const QPointF at = control.rect().center();
    QWheelEvent event(at, control.mapToGlobal(at), {}, {0, angle}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event); // only what comes from outside goes on to parents
    QCoreApplication::instance()->notify(&control, &event);
    return event.isAccepted();
}
