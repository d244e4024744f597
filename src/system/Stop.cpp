#include "system/Stop.h"

void TStop::Request() {
    const std::lock_guard lock(mutex_);
    requested_ = true;
    if (!waker_)
        return;
    // Who has asked already and does not wait yet holds the mutex; it would miss the notification.
    const std::lock_guard waiting(waker_->waitingMutex_);
    waker_->changed_.notify_all();
}

TStop::TWaker::TWaker(TStop &stop, std::mutex &mutex, std::condition_variable &changed)
    : stop_(stop), waitingMutex_(mutex), changed_(changed) {
    const std::lock_guard lock(stop_.mutex_);
    stop_.waker_ = this;
}

TStop::TWaker::~TWaker() {
    const std::lock_guard lock(stop_.mutex_);
    stop_.waker_ = nullptr;
}

void TStoppableThread::End() {
    stop_.Request();
    if (thread_.joinable())
        thread_.join();
}
