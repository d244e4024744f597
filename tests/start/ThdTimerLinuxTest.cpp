// For Linux alone: the policy by which the system runs a thread is looked up as Linux tells it.
#include "spec/ThdTimer.h"

#include <cstdlib>
#include <filesystem>
#include <sched.h>

#include <gtest/gtest.h>

namespace {
int IdleThreads() {
    int idle = 0;
    for (const auto &task : std::filesystem::directory_iterator("/proc/self/task"))
        idle += sched_getscheduler(std::atoi(task.path().filename().c_str())) == SCHED_IDLE;
    return idle;
}
} // namespace

TEST(ThreadedTimer, ThePriorityReachesTheThread) {
    TThreadedTimer timer;
    const int before = IdleThreads();
    timer.SetPriority(QThread::IdlePriority);
    EXPECT_EQ(IdleThreads(), before + 1);
}
