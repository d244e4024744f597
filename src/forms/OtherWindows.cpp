#include "forms/OtherWindows.h"

#include "forms/Guard.h"
#include "forms/TabOrder.h"

#include <QApplication>
#include <QShortcut>
#include <QVariant>
#include <QWidget>

namespace {
constexpr auto stopProperty = "stopOnF6";

QList<QWidget *> Stops(const QWidget &window, QWidget &pages) {
    QList<QWidget *> stops{&pages};
    for (QWidget *widget : window.findChildren<QWidget *>())
        if (widget->isVisible() && widget->property(stopProperty).isValid())
            stops << widget;
    return stops;
}

/// That in which the user works; the pages for any other window.
qsizetype CurrentStop(const QList<QWidget *> &stops) {
    const QWidget *focus = QApplication::focusWidget();
    if (!focus)
        focus = QApplication::activeWindow();
    for (qsizetype i = 0; i < stops.size(); ++i)
        if (stops[i] == focus || stops[i]->isAncestorOf(focus))
            return i;
    return 0;
}

void GoTo(QWidget &stop) {
    QWidget *control = stop.focusWidget();
    if (!control || !control->isVisible())
        control = stop.property(stopProperty).value<QWidget *>();
    if (!control)
        control = FirstInTabOrder(stop);
    stop.window()->activateWindow();
    (control ? control : &stop)->setFocus(Qt::ShortcutFocusReason);
}
} // namespace

void StopOnF6(QWidget &tool, QWidget *usual) {
    tool.setProperty(stopProperty, QVariant::fromValue(usual));
}

void GoRoundOnF6(QWidget &window, QWidget &pages) {
    auto *key = new QShortcut(Qt::Key_F6, &window);
    key->setContext(Qt::ApplicationShortcut);
    key->setAutoRepeat(false); // a key held down is one wish
    ConnectGuarded(key, &QShortcut::activated, &window, [&window, &pages] {
        const QList<QWidget *> stops = Stops(window, pages);
        if (stops.size() > 1)
            GoTo(*stops[(CurrentStop(stops) + 1) % stops.size()]);
    });
}
