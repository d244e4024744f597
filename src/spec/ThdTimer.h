// A timer that ticks from a worker thread: the worker sleeps, the main thread runs the handler
// while the worker waits. The period is therefore the interval plus the time that the handler
// takes.
#pragma once

#include "spec/MainThreadCall.h"

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>

#include <QObject>
#include <QThread>

class TThreadedTimer;

/// The sleeping thread of one timer. Created suspended; stopped and joined by its destructor, which
/// waits neither for the interval nor for a tick.
class TTimerThread {
public:
    explicit TTimerThread(TThreadedTimer &owner);

    /// Lets the thread sleep and tick, every `interval` milliseconds; 0 suspends it, out of its
    /// sleep too. The interval starts anew when the thread slept for another one.
    void SetInterval(std::uint16_t interval);
    /// The idle priority lets the thread run only when no other wants to. The others are one: a
    /// program without special rights cannot tell its threads apart further.
    void SetPriority(QThread::Priority priority);

private:
    void Execute(TStop &stop);
    bool SleepInterval(TStop &stop);

    TThreadedTimer &owner_;
    TMainThreadCall handOver_;
    std::mutex mutex_; ///< guards the three fields below
    std::condition_variable changed_;
    std::uint16_t interval_ = 0; ///< 0: suspended
    std::uint64_t changes_ = 0;  ///< of interval_
    TStoppableThread thread_;    ///< last: it ends before anything that it uses
};

/// Belongs to the main thread, which alone calls it. May be destroyed at any moment, also by its
/// own handler or while its handler shows a message box.
class TThreadedTimer : public QObject {
    Q_OBJECT
public:
    explicit TThreadedTimer(QObject *parent = nullptr);
    ~TThreadedTimer() override;

    bool Enabled() const { return enabled_; }
    std::uint16_t Interval() const { return interval_; }
    QThread::Priority Priority() const { return priority_; }

    /// The timer runs while it is enabled, its interval is not 0 and it has a handler. Changes take
    /// effect at once; setting the current value changes nothing.
    void SetEnabled(bool enabled);
    /// @param interval  milliseconds; 0: the timer does not run
    void SetInterval(std::uint16_t interval);
    /// The handler is called in the main thread; its exceptions are shown. An empty one: the timer
    /// does not run.
    void SetOnTimer(std::function<void()> onTimer);
    void SetPriority(QThread::Priority priority);

    /// Whether the thread is sleeping or ticking now, that is: not suspended.
    bool Running() const;

private:
    friend class TTimerThread;
    void Update();
    void Tick();

    bool enabled_ = true;
    std::uint16_t interval_ = 1000;
    std::function<void()> onTimer_;
    QThread::Priority priority_ = QThread::NormalPriority;
    TTimerThread timerThread_;
};
