#include "system/Stop.h"

#include <gtest/gtest.h>

namespace {
/// Waits for the request alone.
void WaitForStop(TStop &stop) {
    std::mutex mutex;
    std::condition_variable changed;
    const TStop::TWaker waker(stop, mutex, changed);
    std::unique_lock lock(mutex);
    changed.wait(lock, [&] { return stop.Requested(); });
}
} // namespace

TEST(Stop, IsNotRequestedAtFirstAndThenForGood) {
    TStop stop;
    EXPECT_FALSE(stop.Requested());
    stop.Request();
    stop.Request();
    EXPECT_TRUE(stop.Requested());
    WaitForStop(stop);
}

// The thread may not have begun, may wait, or stand between its question and its wait.
TEST(Stop, EndsAThreadAtAnyMoment) {
    for (int round = 0; round < 1000; ++round) {
        bool ended = false;
        TStoppableThread thread([&ended](TStop &stop) {
            WaitForStop(stop);
            ended = true;
        });
        thread.End();
        EXPECT_TRUE(ended);
    }
}

TEST(Stop, MeetsAThreadThatStopsWaitingMeanwhile) {
    for (int round = 0; round < 1000; ++round) {
        std::mutex mutex;
        std::condition_variable changed;
        std::atomic<bool> waits = false;
        TStoppableThread thread([&](TStop &stop) {
            const TStop::TWaker waker(stop, mutex, changed);
            std::unique_lock lock(mutex);
            waits = true;
            changed.wait(lock, [&] { return !waits || stop.Requested(); });
        });
        while (!waits)
            std::this_thread::yield();
        {
            const std::lock_guard lock(mutex);
            waits = false;
        }
        changed.notify_all();
        thread.End(); // while the waker goes
    }
}

TEST(Stop, OfNoThreadIsHarmless) {
    TStoppableThread none;
    none.End();
    TStoppableThread ended([](TStop &) {});
    ended.End();
    ended.End();
}
