#include "spec/ThdTimer.h"

#include "system/ThreadPriority.h"

#include <chrono>
#include <utility>

TTimerThread::TTimerThread(TThreadedTimer &owner)
    : owner_(owner), thread_([this](const std::stop_token &stop) { Execute(stop); }) {}

void TTimerThread::SetInterval(std::uint16_t interval) {
    const std::lock_guard lock(mutex_);
    if (std::exchange(interval_, interval) == interval)
        return;
    ++changes_;
    changed_.notify_all();
}

void TTimerThread::SetPriority(QThread::Priority priority) {
    SetIdlePriority(thread_, priority == QThread::IdlePriority);
}

void TTimerThread::Execute(const std::stop_token &stop) {
    while (SleepInterval(stop))
        handOver_.Run(stop, [&timer = owner_] { timer.Tick(); });
}

/// True after one whole undisturbed interval, false when asked to stop.
bool TTimerThread::SleepInterval(const std::stop_token &stop) {
    std::unique_lock lock(mutex_);
    while (changed_.wait(lock, stop, [this] { return interval_ != 0; })) {
        const auto disturbed = [this, before = changes_] { return changes_ != before; };
        const bool woken =
            changed_.wait_for(lock, stop, std::chrono::milliseconds(interval_), disturbed);
        if (stop.stop_requested())
            return false;
        if (!woken)
            return true;
    }
    return false;
}

TThreadedTimer::TThreadedTimer(QObject *parent) : QObject(parent), timerThread_(*this) {}

TThreadedTimer::~TThreadedTimer() {
    SetEnabled(false);
}

void TThreadedTimer::SetEnabled(bool enabled) {
    if (std::exchange(enabled_, enabled) != enabled)
        Update();
}

void TThreadedTimer::SetInterval(std::uint16_t interval) {
    if (std::exchange(interval_, interval) != interval)
        Update();
}

void TThreadedTimer::SetOnTimer(std::function<void()> onTimer) {
    // Handlers cannot be compared; only no handler equals no handler.
    if (!onTimer && !onTimer_)
        return;
    onTimer_ = std::move(onTimer);
    Update();
}

void TThreadedTimer::SetPriority(QThread::Priority priority) {
    if (std::exchange(priority_, priority) == priority)
        return;
    timerThread_.SetPriority(priority);
    Update();
}

bool TThreadedTimer::Running() const {
    return interval_ != 0 && enabled_ && onTimer_;
}

void TThreadedTimer::Update() {
    timerThread_.SetInterval(Running() ? interval_ : 0);
}

void TThreadedTimer::Tick() {
    if (!Running())
        return;                    // suspended while the tick was on its way
    const auto handler = onTimer_; // the handler may replace itself or destroy this timer
    handler();
}
