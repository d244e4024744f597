// A timer that ticks from a worker thread: the worker sleeps, the main thread runs the handler
// while the worker waits. The period is therefore the interval plus the time that the handler
// takes.
#pragma once

#include "spec/MainThreadCall.h"

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <thread>

#include <QObject>
#include <QThread>

class TThreadedTimer;

/// The sleeping thread of one timer. Created suspended; stopped and joined by its destructor, which
/// waits neither for the interval nor for a tick.
class TTimerThread {
public:
    explicit TTimerThread(TThreadedTimer &owner);

    /// Lets the thread sleep and tick, every `interval` milliseconds. The interval starts anew when
    /// the thread was suspended or slept for another one.
    void Resume(std::uint16_t interval);
    /// Wakes a sleeping thread and holds it until Resume.
    void Suspend();
    /// Sets the thread's scheduling as far as the platform allows it; otherwise does nothing.
    void SetPriority(QThread::Priority priority);

private:
    void SetPace(bool suspended, std::uint16_t interval);
    void Execute(const std::stop_token &stop);
    bool SleepInterval(const std::stop_token &stop);

    TThreadedTimer &owner_;
    TMainThreadCall handOver_;
    std::mutex mutex_; ///< guards the four fields below
    std::condition_variable_any changed_;
    bool suspended_ = true;
    std::uint16_t interval_ = 0;
    std::uint64_t pace_ = 0; ///< counts the changes of suspended_ and interval_
    std::jthread thread_;    ///< last: it ends before anything that it uses
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
