// Waiting in the tests of threads: for a condition, never for a time.
#pragma once

#include <chrono>
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

/// Keeps the main thread busy without taking events, by 20 microseconds more at each round of a
/// loop, so that the rounds meet the other threads at different places. No result depends on it.
inline void Dawdle(int round) {
    using std::chrono::steady_clock;
    const auto end = steady_clock::now() + round * std::chrono::microseconds(20);
    while (steady_clock::now() < end) {
    }
}
