// Waiting in the tests of threads: for a condition, never for a time.
#pragma once

#include <thread>

#include <QCoreApplication>
#include <QDeadlineTimer>

/// Lets the main thread take its events until `condition` holds; false after half a minute, which
/// only a failing test waits.
template <class Condition>
[[nodiscard]] bool WaitFor(Condition condition) {
    const QDeadlineTimer ceiling(30000);
    while (!condition()) {
        if (ceiling.hasExpired())
            return false;
        QCoreApplication::processEvents();
        std::this_thread::yield();
    }
    return true;
}

/// Lets other threads get some way on while the main thread takes no events, further at each round
/// of a loop.
inline void Dawdle(int round) {
    for (int spin = 0; spin < round * 15; ++spin)
        std::this_thread::yield();
}
