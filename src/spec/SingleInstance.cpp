#include "spec/SingleInstance.h"

#include "forms/Paths.h"

#include <thread>

#include <QDir>
#include <QStandardPaths>

namespace {
constexpr auto mutexName = "SingleInstanceProgramHMutex";
constexpr auto wantedClass = "TfrmNotebook";
constexpr auto wantedTitle = "Ferrolyn "; // no caption of ours ends so: docs/peculiarities.md
constexpr std::chrono::milliseconds retryPause(20); // between two looks at a lock that is busy

/// Whether a running copy was found; one without an application window is left as it is.
bool WakeRunningCopy(IWindowFinder &finder) {
    const TWindowId window = finder.Find(wantedClass, wantedTitle);
    if (!window)
        return false;
    if (const TWindowId owner = finder.OwnerOf(window)) {
        if (finder.IsMinimised(owner))
            finder.ShowNormal(owner);
        else
            finder.BringToForeground(owner);
    }
    return true;
}
} // namespace

QString SingleInstanceFolder() {
    QString runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (!runtime.isEmpty())
        return runtime;
    QDir cache(QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation));
    cache.mkpath("ferrolyn");
    return cache.filePath("ferrolyn");
}

TSingleInstanceGuard::TSingleInstanceGuard(const QString &folder, std::chrono::milliseconds wait)
    : lock_(ToPath(QDir(folder).filePath(mutexName))), wait_(wait) {}

TStart TSingleInstanceGuard::Check(IWindowFinder &finder) {
    if (!Lock())
        return TStart::End;
    if (!WakeRunningCopy(finder))
        return TStart::Go;
    Release();
    return TStart::End;
}

void TSingleInstanceGuard::Release() {
    lock_.LetGo();
}

/// False only when another process kept the lock for the whole wait.
bool TSingleInstanceGuard::Lock() {
    using TClock = std::chrono::steady_clock;
    const TClock::time_point end = TClock::now() + wait_;
    while (lock_.Try() == TStartLock::TState::Busy) {
        if (TClock::now() >= end)
            return false;
        std::this_thread::sleep_for(retryPause);
    }
    return true;
}
