#include "spec/ThdTimer.h"

#include "system/ThreadPriority.h"

#include <chrono>
#include <utility>

TTimerThread::TTimerThread(TThreadedTimer &owner)
    : owner_(owner), thread_([this](TStop &stop) { Execute(stop); }) {}

void TTimerThread::SetInterval(std::uint16_t interval) {
    const std::lock_guard lock(mutex_);
    if (std::exchange(interval_, interval) == interval)
        return;
    ++changes_;
    changed_.notify_all();
}

void TTimerThread::SetPriority(QThread::Priority priority) {
    SetIdlePriority(thread_.Thread(), priority == QThread::IdlePriority);
}

void TTimerThread::Execute(TStop &stop) {
    while (SleepInterval(stop))
        handOver_.Run(stop, [&timer = owner_] { timer.Tick(); });
}

/// True after one whole undisturbed interval, false when asked to stop.
bool TTimerThread::SleepInterval(TStop &stop) {
    const TStop::TWaker waker(stop, mutex_, changed_);
    std::unique_lock lock(mutex_);
    bool undisturbed = false;
    while (!undisturbed && !stop.Requested()) {
        changed_.wait(lock, [&] { return interval_ != 0 || stop.Requested(); });
        const auto disturbed = [&, before = changes_] {
            return changes_ != before || stop.Requested();
        };
        undisturbed = !changed_.wait_for(lock, std::chrono::milliseconds(interval_), disturbed);
    }
    return undisturbed;
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
