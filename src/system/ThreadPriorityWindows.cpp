#include "system/ThreadPriority.h"

#include <pthread.h>
#include <windows.h>

void SetIdlePriority(std::thread &thread, bool idle) {
    const auto handle = static_cast<HANDLE>(pthread_gethandle(thread.native_handle()));
    SetThreadPriority(handle, idle ? THREAD_PRIORITY_IDLE : THREAD_PRIORITY_NORMAL);
}
