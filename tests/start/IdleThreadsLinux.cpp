#include "start/IdleThreads.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sched.h>

std::ptrdiff_t IdleThreads() {
    const std::filesystem::directory_iterator tasks("/proc/self/task");
    return std::count_if(begin(tasks), end(tasks), [](const auto &task) {
        return sched_getscheduler(std::atoi(task.path().filename().c_str())) == SCHED_IDLE;
    });
}
