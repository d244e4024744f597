// For Windows alone: the priority of a thread is looked up as Windows tells it.
#include "spec/ThdTimer.h"

#include <gtest/gtest.h>

// The second wants the first one's types.
// clang-format off
#include <windows.h>
#include <tlhelp32.h>
// clang-format on

namespace {
bool IsIdle(DWORD thread) {
    const HANDLE handle = OpenThread(THREAD_QUERY_INFORMATION, FALSE, thread);
    const int priority = GetThreadPriority(handle);
    CloseHandle(handle);
    return priority == THREAD_PRIORITY_IDLE;
}

/// Of this process.
int IdleThreads() {
    int idle = 0;
    const HANDLE threads = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    THREADENTRY32 entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = Thread32First(threads, &entry); more; more = Thread32Next(threads, &entry))
        idle += entry.th32OwnerProcessID == GetCurrentProcessId() && IsIdle(entry.th32ThreadID);
    CloseHandle(threads);
    return idle;
}
} // namespace

TEST(ThreadedTimer, ThePriorityReachesTheThread) {
    TThreadedTimer timer;
    const int before = IdleThreads();
    timer.SetPriority(QThread::IdlePriority);
    EXPECT_EQ(IdleThreads(), before + 1);
    timer.SetPriority(QThread::NormalPriority);
    EXPECT_EQ(IdleThreads(), before);
}
