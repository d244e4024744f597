// A thread that does one errand after another, so that whoever sends it need not wait for a slow
// disk. What the errands are is others' business.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

/// All is called by one thread, but for the errands.
class TErrands {
public:
    TErrands() = default;
    TErrands(const TErrands &) = delete;
    TErrands &operator=(const TErrands &) = delete;
    /// Lets the thread do what still waits, then ends it.
    ~TErrands();

    /// Sends an errand, which must not throw; the thread begins with the first. One of the same
    /// name that still waits is left out.
    /// @param patience  how long to wait at most until it is done; whether it is
    bool Send(const std::string &name, std::function<void()> errand,
              std::chrono::milliseconds patience);
    /// Waits until all are done.
    void Finish();

private:
    struct TErrand {
        std::string name;
        std::function<void()> run;
        std::uint64_t number;
    };
    void Work();

    std::mutex mutex_;
    std::condition_variable sent_;
    std::condition_variable done_;
    std::deque<TErrand> waiting_;
    std::uint64_t lastSent_ = 0;
    std::uint64_t lastDone_ = 0;
    bool ending_ = false;
    std::thread thread_;
};
