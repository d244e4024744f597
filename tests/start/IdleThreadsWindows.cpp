#include "start/IdleThreads.h"
#include "support/ThreadsWindows.h"

#include <algorithm>

namespace {
bool IsIdle(DWORD thread) {
    const HANDLE handle = OpenThread(THREAD_QUERY_INFORMATION, FALSE, thread);
    const int priority = GetThreadPriority(handle);
    CloseHandle(handle);
    return priority == THREAD_PRIORITY_IDLE;
}
} // namespace

std::ptrdiff_t IdleThreads() {
    const std::vector<DWORD> threads = ThreadsOfThisProcess();
    return std::count_if(threads.begin(), threads.end(), IsIdle);
}
