#include "spec/ThdTimer.h"

#include <chrono>
#include <utility>

#if __has_include(<pthread.h>)
#include <pthread.h>
#include <sched.h>
#endif

namespace {
#if __has_include(<pthread.h>)
/// A priority between the lowest and the time-critical one, spread over the range of `policy`.
int ScaledPriority(QThread::Priority priority, int policy) {
    const int lowest = sched_get_priority_min(policy);
    const int highest = sched_get_priority_max(policy);
    const int steps = QThread::TimeCriticalPriority - QThread::LowestPriority;
    return lowest + (priority - QThread::LowestPriority) * (highest - lowest) / steps;
}

void ApplyPriority(pthread_t thread, QThread::Priority priority) {
    int policy = SCHED_OTHER;
#ifdef SCHED_IDLE
    if (priority == QThread::IdlePriority)
        policy = SCHED_IDLE;
#endif
    sched_param parameters{};
    if (priority >= QThread::LowestPriority && priority <= QThread::TimeCriticalPriority)
        parameters.sched_priority = ScaledPriority(priority, policy);
    // A refusal is no failure: the priority is a wish.
    pthread_setschedparam(thread, policy, &parameters);
}
#else
void ApplyPriority(std::jthread::native_handle_type, QThread::Priority) {}
#endif
} // namespace

TTimerThread::TTimerThread(TThreadedTimer &owner)
    : owner_(owner), thread_([this](const std::stop_token &stop) { Execute(stop); }) {}

void TTimerThread::Resume(std::uint16_t interval) {
    SetPace(false, interval);
}

void TTimerThread::Suspend() {
    SetPace(true, 0);
}

void TTimerThread::SetPace(bool suspended, std::uint16_t interval) {
    const std::lock_guard lock(mutex_);
    if (suspended == suspended_ && interval == interval_)
        return;
    suspended_ = suspended;
    interval_ = interval;
    ++pace_;
    changed_.notify_all();
}

void TTimerThread::SetPriority(QThread::Priority priority) {
    ApplyPriority(thread_.native_handle(), priority);
}

void TTimerThread::Execute(const std::stop_token &stop) {
    while (SleepInterval(stop))
        handOver_.Run(stop, [&timer = owner_] { timer.Tick(); });
}

/// True after one whole undisturbed interval, false when asked to stop.
bool TTimerThread::SleepInterval(const std::stop_token &stop) {
    std::unique_lock lock(mutex_);
    while (changed_.wait(lock, stop, [this] { return !suspended_; })) {
        const auto disturbed = [this, pace = pace_] { return pace_ != pace; };
        const bool woken =
            changed_.wait_for(lock, stop, std::chrono::milliseconds(interval_), disturbed);
        if (stop.stop_requested())
            return false;
        if (!woken)
            return true;
    }
    return false;
}

TThreadedTimer::TThreadedTimer(QObject *parent) : QObject(parent), timerThread_(*this) {
    timerThread_.SetPriority(priority_);
}

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
    if (Running())
        timerThread_.Resume(interval_);
    else
        timerThread_.Suspend();
}

void TThreadedTimer::Tick() {
    if (!Running())
        return;                    // suspended while the tick was on its way
    const auto handler = onTimer_; // the handler may replace itself or destroy this timer
    handler();
}
