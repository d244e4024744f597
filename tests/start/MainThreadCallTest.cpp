#include "spec/MainThreadCall.h"

#include "start/WaitFor.h"
#include "support/FakeDialogs.h"

#include <atomic>
#include <memory>
#include <stdexcept>
#include <thread>
#include <vector>

#include <QCoreApplication>
#include <gtest/gtest.h>

namespace {
/// A worker that makes one hand-over and tells how it went.
struct TWorker {
    enum TOutcome { Waiting, Ran, GaveUp };
    std::atomic<TOutcome> outcome = Waiting;
    TStoppableThread thread;

    TWorker(TMainThreadCall &call, std::function<void()> work)
        : thread([this, &call, work = std::move(work)](TStop &stop) {
              outcome = call.Run(stop, work) ? Ran : GaveUp;
          }) {}
    void GiveUp() { thread.End(); }
};
} // namespace

TEST(MainThreadCall, RunsInTheMainThreadWhileTheWorkerWaits) {
    TMainThreadCall call;
    const auto mainThread = std::this_thread::get_id();
    std::thread::id ranIn;
    TWorker::TOutcome during = TWorker::GaveUp;
    TWorker *seen = nullptr;
    TWorker worker(call, [&] {
        ranIn = std::this_thread::get_id();
        during = seen->outcome;
    });
    seen = &worker;
    ASSERT_TRUE(WaitFor([&] { return worker.outcome == TWorker::Ran; }));
    EXPECT_EQ(ranIn, mainThread);
    EXPECT_EQ(during, TWorker::Waiting);
}

TEST(MainThreadCall, HandsOverOneAfterTheOther) {
    TMainThreadCall call;
    std::vector<int> order;
    std::atomic<bool> ended = false;
    const TStoppableThread worker([&](TStop &stop) {
        for (int i = 0; i < 100; ++i)
            call.Run(stop, [&order, i] { order.push_back(i); });
        ended = true;
    });
    ASSERT_TRUE(WaitFor([&] { return ended.load(); }));
    ASSERT_EQ(order.size(), 100U);
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(order[static_cast<std::size_t>(i)], i);
}

TEST(MainThreadCall, WorkThatWasGivenUpNeverRuns) {
    for (int i = 0; i < 200; ++i) {
        TMainThreadCall call;
        bool ran = false;
        TWorker worker(call, [&ran] { ran = true; });
        Dawdle(i);
        worker.GiveUp();
        QCoreApplication::processEvents();
        EXPECT_EQ(worker.outcome, TWorker::GaveUp);
        EXPECT_FALSE(ran);
    }
}

TEST(MainThreadCall, AStopBeforehandGivesUpAtOnce) {
    TMainThreadCall call;
    TStop stop;
    stop.Request();
    bool ran = false;
    EXPECT_FALSE(call.Run(stop, [&ran] { ran = true; }));
    QCoreApplication::processEvents();
    EXPECT_FALSE(ran);
}

TEST(MainThreadCall, AGivenUpCallDoesNotDisturbTheNext) {
    TMainThreadCall call;
    bool firstRan = false;
    int secondRuns = 0;
    TWorker first(call, [&firstRan] { firstRan = true; });
    first.GiveUp();
    TWorker second(call, [&secondRuns] { ++secondRuns; });
    ASSERT_TRUE(WaitFor([&] { return second.outcome == TWorker::Ran; }));
    QCoreApplication::processEvents();
    EXPECT_FALSE(firstRan);
    EXPECT_EQ(secondRuns, 1);
}

TEST(MainThreadCall, RunningWorkGoesOnWhenItsWorkerGivesUp) {
    TMainThreadCall call;
    TWorker *seen = nullptr;
    bool reachedItsEnd = false;
    TWorker worker(call, [&] {
        seen->GiveUp(); // would never return if the worker waited on
        reachedItsEnd = true;
    });
    seen = &worker;
    ASSERT_TRUE(WaitFor([&] { return reachedItsEnd; }));
    EXPECT_EQ(worker.outcome, TWorker::GaveUp);
}

TEST(MainThreadCall, WorkThatWaitsInALoopOfItsOwnDoesNotHoldUpOtherWorkers) {
    for (int round = 0; round < 100; ++round) {
        TMainThreadCall firstCall;
        TMainThreadCall secondCall;
        int begun = 0;
        const auto meeting = [&begun] {
            ++begun;
            EXPECT_TRUE(WaitFor([&begun] { return begun == 2; }));
        };
        TWorker first(firstCall, meeting);
        TWorker second(secondCall, meeting);
        Dawdle(round); // both are queued before the main thread takes the first
        ASSERT_TRUE(WaitFor(
            [&] { return first.outcome == TWorker::Ran && second.outcome == TWorker::Ran; }));
    }
}

TEST(MainThreadCall, MayBeDestroyedByTheWorkThatItRuns) {
    for (int i = 0; i < 100; ++i) {
        auto call = std::make_unique<TMainThreadCall>();
        TWorker *seen = nullptr;
        TWorker worker(*call, [&] {
            seen->GiveUp();
            call.reset();
        });
        seen = &worker;
        ASSERT_TRUE(WaitFor([&] { return !call; }));
        EXPECT_EQ(worker.outcome, TWorker::GaveUp);
    }
}

TEST(MainThreadCall, AnExceptionIsShownAndEndsTheWork) {
    TFakeDialogs dialogs;
    TMainThreadCall call;
    TWorker worker(call, [] { throw std::runtime_error("no more iron"); });
    ASSERT_TRUE(WaitFor([&] { return worker.outcome == TWorker::Ran; }));
    EXPECT_EQ(dialogs.messages, QStringList{"no more iron"});
}
