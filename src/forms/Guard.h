// The edge between event handlers and the toolkit: an error that reaches it is shown once and goes
// no further. Every connected handler runs inside Guarded, because nothing may be thrown through
// the toolkit.
#pragma once

#include <utility>

#include <QObject>

/// Shows the error that is being handled, whatever its type, in the application's message box.
/// To be called inside a catch block only.
void ShowCurrentError();

/// Runs `handler`; an exception out of it is shown and swallowed. True when it ended without one.
template <class Handler>
bool Guarded(Handler &&handler) {
    try {
        std::forward<Handler>(handler)();
        return true;
    } catch (...) {
        ShowCurrentError();
        return false;
    }
}

/// Connects a signal to a handler that runs inside Guarded. The connection ends with `context`.
template <class Sender, class Signal, class Handler>
QMetaObject::Connection ConnectGuarded(Sender *sender, Signal signal, QObject *context,
                                       Handler handler) {
    return QObject::connect(sender, signal, context,
                            [handler](auto &&...) mutable { Guarded([&] { handler(); }); });
}
