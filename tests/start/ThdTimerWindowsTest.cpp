// For Windows alone: elsewhere a plain user's thread that is idle may have to stay so.
#include "spec/ThdTimer.h"
#include "start/IdleThreads.h"

#include <gtest/gtest.h>

TEST(ThreadedTimer, AThreadThatWasIdleBecomesNormal) {
    TThreadedTimer timer;
    const auto before = IdleThreads();
    timer.SetPriority(QThread::IdlePriority);
    timer.SetPriority(QThread::NormalPriority);
    EXPECT_EQ(IdleThreads(), before);
}
