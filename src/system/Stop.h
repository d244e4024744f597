// Asking a thread to stop, and waking it where it waits. In place of std::stop_callback, and of
// what the standard library builds on it: where that has no futex, as on Windows, a thread that
// removes a callback while it runs may miss its end and wait forever. So may one at a std::barrier.
#pragma once

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

/// A request to stop, which is never taken back. Any thread may make it and ask for it.
class TStop {
public:
    TStop() = default;
    TStop(const TStop &) = delete;
    TStop &operator=(const TStop &) = delete;

    /// Wakes the thread that waits; later calls are harmless.
    void Request();
    bool Requested() const { return requested_; }

    /// While it lives, a request wakes who waits at `changed` under `mutex`, whose condition asks
    /// for Requested(). One at a time; made and destroyed while `mutex` is not held.
    class TWaker {
    public:
        TWaker(TStop &stop, std::mutex &mutex, std::condition_variable &changed);
        TWaker(const TWaker &) = delete;
        TWaker &operator=(const TWaker &) = delete;
        ~TWaker();

    private:
        friend class TStop;
        TStop &stop_;
        std::mutex &waitingMutex_;
        std::condition_variable &changed_;
    };

private:
    std::mutex mutex_; ///< guards waker_, and keeps it alive while it wakes
    TWaker *waker_ = nullptr;
    std::atomic<bool> requested_ = false;
};

/// A thread that is asked to stop and joined by its destructor at the latest.
class TStoppableThread {
public:
    TStoppableThread() = default; ///< none, as if it had ended
    /// @param work  is told of the request by its argument
    explicit TStoppableThread(std::function<void(TStop &)> work)
        : thread_([this, run = std::move(work)] { run(stop_); }) {}
    TStoppableThread(const TStoppableThread &) = delete;
    TStoppableThread &operator=(const TStoppableThread &) = delete;
    ~TStoppableThread() { End(); }

    /// Asks it to stop and waits for its end; harmless when it has ended so.
    void End();
    std::thread &Thread() { return thread_; }

private:
    TStop stop_;
    std::thread thread_;
};
