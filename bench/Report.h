// What a measured program tells the benchmark on its standard output: "shown" when its window has
// been shown, then how much memory it holds in KiB. Both measured programs tell it the same way.
#pragma once

#include <chrono>
#include <cstdio>
#include <fstream>
#include <functional>
#include <string>

#include <QCoreApplication>
#include <QTimer>

/// Resident memory of this process in KiB; 0 where the system does not say.
inline long ResidentKiB() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with("VmRSS:"))
            return std::stol(line.substr(line.find(':') + 1));
    return 0;
}

/// To be called right after the window's show(). Half a second later, when all has been painted, it
/// runs `work`, tells the memory and ends the event loop.
inline void TellShown(const std::function<void()> &work) {
    std::puts("shown");
    std::fflush(stdout);
    QTimer::singleShot(std::chrono::milliseconds(500), [work] {
        work();
        std::printf("%ld\n", ResidentKiB());
        std::fflush(stdout);
        QCoreApplication::exit();
    });
}
