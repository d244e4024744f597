#include "spec/ThdTimer.h"

#include "start/IdleThreads.h"
#include "start/WaitFor.h"
#include "support/FakeDialogs.h"

#include <memory>
#include <stdexcept>
#include <thread>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <gtest/gtest.h>

namespace {
constexpr std::uint16_t longest = 65535;

/// A timer of 1 ms whose ticks are counted: the yardstick for "meanwhile nothing happened".
struct TCountingTimer {
    TThreadedTimer timer;
    int ticks = 0;

    explicit TCountingTimer(std::uint16_t interval = 1) {
        timer.SetInterval(interval);
        timer.SetOnTimer([this] { ++ticks; });
    }
    [[nodiscard]] bool WaitForTicks(int count) {
        const int goal = ticks + count;
        return WaitFor([&] { return ticks >= goal; });
    }
};

} // namespace

TEST(ThreadedTimer, StartsEnabledWithOneSecondAndNoHandler) {
    const TThreadedTimer timer;
    EXPECT_TRUE(timer.Enabled());
    EXPECT_EQ(timer.Interval(), 1000);
    EXPECT_EQ(timer.Priority(), QThread::NormalPriority);
    EXPECT_FALSE(timer.Running());
}

struct TRuleCase {
    const char *name;
    std::uint16_t interval;
    bool enabled;
    bool handler;
    bool runs;
};

class ThreadedTimerRule : public testing::TestWithParam<TRuleCase> {};

TEST_P(ThreadedTimerRule, RunsOnlyWithIntervalEnabledAndHandler) {
    const TRuleCase &rule = GetParam();
    int ticks = 0;
    TThreadedTimer timer;
    timer.SetEnabled(rule.enabled);
    timer.SetInterval(rule.interval);
    if (rule.handler)
        timer.SetOnTimer([&ticks] { ++ticks; });
    EXPECT_EQ(timer.Running(), rule.runs);
    TCountingTimer meanwhile;
    ASSERT_TRUE(meanwhile.WaitForTicks(20));
    if (rule.runs)
        EXPECT_TRUE(WaitFor([&] { return ticks > 0; }));
    else
        EXPECT_EQ(ticks, 0);
}

INSTANTIATE_TEST_SUITE_P(Table, ThreadedTimerRule,
                         testing::Values(TRuleCase{"All", 1, true, true, true},
                                         TRuleCase{"IntervalZero", 0, true, true, false},
                                         TRuleCase{"Disabled", 1, false, true, false},
                                         TRuleCase{"NoHandler", 1, true, false, false},
                                         TRuleCase{"Nothing", 0, false, false, false}),
                         [](const auto &rule) { return rule.param.name; });

TEST(ThreadedTimer, TicksAgainAndAgainInTheMainThread) {
    const auto mainThread = std::this_thread::get_id();
    int ticks = 0;
    TThreadedTimer timer;
    timer.SetInterval(1);
    timer.SetOnTimer([&] {
        EXPECT_EQ(std::this_thread::get_id(), mainThread);
        ++ticks;
    });
    EXPECT_TRUE(WaitFor([&] { return ticks >= 50; }));
}

TEST(ThreadedTimer, SettingTheCurrentValueDoesNotStartTheIntervalAnew) {
    TCountingTimer timer(100);
    TThreadedTimer setter;
    setter.SetInterval(1);
    setter.SetOnTimer([&] {
        timer.timer.SetEnabled(true);
        timer.timer.SetInterval(100);
        timer.timer.SetPriority(QThread::NormalPriority);
    });
    EXPECT_TRUE(timer.WaitForTicks(2));
}

TEST(ThreadedTimer, SettingNoHandlerAgainChangesNothing) {
    TThreadedTimer timer;
    timer.SetOnTimer({});
    EXPECT_FALSE(timer.Running());
}

TEST(ThreadedTimer, AShorterIntervalTakesEffectAtOnce) {
    TCountingTimer timer(longest);
    timer.timer.SetInterval(1);
    EXPECT_TRUE(timer.WaitForTicks(3));
}

TEST(ThreadedTimer, NoTickComesAfterItWasSwitchedOff) {
    TCountingTimer meanwhile;
    for (int round = 0; round < 100; ++round) {
        TCountingTimer timer;
        Dawdle(round); // in some rounds the tick is on its way already
        timer.timer.SetEnabled(false);
        ASSERT_TRUE(meanwhile.WaitForTicks(2));
        EXPECT_EQ(timer.ticks, 0);
        timer.timer.SetEnabled(true);
        ASSERT_TRUE(timer.WaitForTicks(1));
    }
}

TEST(ThreadedTimer, MaySwitchItselfOffInItsHandler) {
    TCountingTimer meanwhile;
    int ticks = 0;
    TThreadedTimer timer;
    timer.SetInterval(1);
    timer.SetOnTimer([&] {
        ++ticks;
        timer.SetOnTimer({});
    });
    ASSERT_TRUE(WaitFor([&] { return ticks > 0; }));
    ASSERT_TRUE(meanwhile.WaitForTicks(20));
    EXPECT_EQ(ticks, 1);
    EXPECT_FALSE(timer.Running());
}

TEST(ThreadedTimer, WaitsWhileItsHandlerShowsABox) {
    TCountingTimer meanwhile;
    int ticks = 0;
    bool boxClosed = false;
    TThreadedTimer timer;
    timer.SetInterval(1);
    timer.SetOnTimer([&] {
        if (++ticks > 1)
            return;
        EXPECT_TRUE(meanwhile.WaitForTicks(20));
        EXPECT_EQ(ticks, 1);
        boxClosed = true;
    });
    ASSERT_TRUE(WaitFor([&] { return ticks >= 2; }));
    EXPECT_TRUE(boxClosed);
}

TEST(ThreadedTimer, AnExceptionIsShownAndTheTimerGoesOn) {
    TFakeDialogs dialogs;
    TThreadedTimer timer;
    timer.SetInterval(1);
    timer.SetOnTimer([] { throw std::runtime_error("tick failed"); });
    ASSERT_TRUE(WaitFor([&] { return dialogs.messages.size() >= 3; }));
    EXPECT_EQ(dialogs.messages.front(), "tick failed");
}

TEST(ThreadedTimer, KeepsTickingAtEveryPriority) {
    TCountingTimer timer;
    for (const auto priority :
         {QThread::IdlePriority, QThread::LowestPriority, QThread::LowPriority,
          QThread::NormalPriority, QThread::HighPriority, QThread::HighestPriority,
          QThread::TimeCriticalPriority, QThread::InheritPriority}) {
        timer.timer.SetPriority(priority);
        EXPECT_EQ(timer.timer.Priority(), priority);
        EXPECT_TRUE(timer.WaitForTicks(2));
    }
}

TEST(ThreadedTimer, ThePriorityReachesTheThread) {
    TThreadedTimer timer;
    const auto before = IdleThreads();
    timer.SetPriority(QThread::IdlePriority);
    EXPECT_EQ(IdleThreads(), before + 1);
}

// Ends at hard moments. None of them may hang, wait for the interval, or touch freed memory.

TEST(ThreadedTimerEnd, DoesNotWaitForTheInterval) {
    QElapsedTimer clock;
    clock.start();
    for (int round = 0; round < 100; ++round) {
        const TCountingTimer timer(longest);
        Dawdle(round);
    }
    EXPECT_LT(clock.elapsed(), longest);
}

TEST(ThreadedTimerEnd, WhileATickIsOnItsWay) {
    for (int round = 0; round < 150; ++round) {
        const TCountingTimer timer(1);
        Dawdle(round); // the main thread takes no events, so every tick stays on its way
        EXPECT_EQ(timer.ticks, 0);
    }
    QCoreApplication::processEvents();
}

TEST(ThreadedTimerEnd, InItsOwnHandler) {
    for (int round = 0; round < 100; ++round) {
        auto timer = std::make_unique<TThreadedTimer>();
        timer->SetInterval(1);
        timer->SetOnTimer([&timer] { timer.reset(); });
        ASSERT_TRUE(WaitFor([&] { return !timer; }));
    }
}

TEST(ThreadedTimerEnd, InsideABoxThatItsHandlerShows) {
    for (int round = 0; round < 100; ++round) {
        auto timer = std::make_unique<TThreadedTimer>();
        bool handlerEnded = false;
        timer->SetInterval(1);
        timer->SetOnTimer([&timer, &handlerEnded] {
            QEventLoop box;
            QTimer::singleShot(0, &box, [&] {
                timer.reset();
                box.quit();
            });
            box.exec();
            handlerEnded = true;
        });
        ASSERT_TRUE(WaitFor([&] { return handlerEnded; }));
        EXPECT_FALSE(timer);
    }
}

TEST(ThreadedTimerEnd, WithItsParent) {
    int ticks = 0;
    for (int round = 0; round < 50; ++round) {
        QObject window;
        auto *timer = new TThreadedTimer(&window);
        timer->SetInterval(1);
        timer->SetOnTimer([&ticks] { ++ticks; });
        Dawdle(round);
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(ticks, 0) << "a tick after the timer's end";
}
