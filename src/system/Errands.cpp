#include "system/Errands.h"

#include <utility>

TErrands::~TErrands() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    sent_.notify_one();
    if (thread_.joinable())
        thread_.join();
}

bool TErrands::Send(const std::string &name, std::function<void()> errand,
                    std::chrono::milliseconds patience) {
    std::unique_lock lock(mutex_);
    std::erase_if(waiting_, [&](const TErrand &waiting) { return waiting.name == name; });
    if (!thread_.joinable())
        thread_ = std::thread([this] { Work(); });
    const std::uint64_t number = ++lastSent_;
    waiting_.push_back({name, std::move(errand), number});
    sent_.notify_one();
    return done_.wait_for(lock, patience, [&] { return lastDone_ >= number; });
}

void TErrands::Finish() {
    std::unique_lock lock(mutex_);
    done_.wait(lock, [this] { return lastDone_ == lastSent_; });
}

void TErrands::Work() {
    std::unique_lock lock(mutex_);
    for (;;) {
        sent_.wait(lock, [this] { return ending_ || !waiting_.empty(); });
        if (waiting_.empty())
            return;
        TErrand errand = std::move(waiting_.front());
        waiting_.pop_front();
        lock.unlock();
        errand.run();
        errand.run = nullptr; // what it holds goes before anybody hears that it is done
        lock.lock();
        lastDone_ = errand.number;
        done_.notify_all();
    }
}
