#include "system/ThreadPriority.h"

#include <pthread.h>
#include <sched.h>

void SetIdlePriority(std::thread &thread, bool idle) {
    const sched_param none{}; // neither policy knows degrees
    pthread_setschedparam(thread.native_handle(), idle ? SCHED_IDLE : SCHED_OTHER, &none);
}
