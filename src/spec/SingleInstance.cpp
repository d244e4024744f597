#include "spec/SingleInstance.h"

#include <QDir>
#include <QStandardPaths>

namespace {
constexpr auto mutexName = "SingleInstanceProgramHMutex";
constexpr auto windowClass = "TfrmNotebook";
constexpr auto windowTitle =
    "Ferrolyn "; // the trailing blank is intended: no caption of ours has it
} // namespace

QString SingleInstanceFolder() {
    const QString runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (!runtime.isEmpty())
        return runtime;
    QDir cache(QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation));
    cache.mkpath("ferrolyn");
    return cache.filePath("ferrolyn");
}

TSingleInstanceGuard::TSingleInstanceGuard(IWindowFinder &finder, const QString &folder,
                                           std::chrono::milliseconds wait)
    : finder_(finder), lock_(QDir(folder).filePath(mutexName)), wait_(wait) {
    // A slow start is no reason to take the lock away; the lock of a crashed process is taken
    // anyway.
    lock_.setStaleLockTime(0);
}

TStart TSingleInstanceGuard::Check() {
    if (!Lock())
        return TStart::End;
    if (!WakeRunningCopy())
        return TStart::Go;
    Release();
    return TStart::End;
}

void TSingleInstanceGuard::Release() {
    lock_.unlock();
}

/// False only when another process kept the lock for the whole wait.
bool TSingleInstanceGuard::Lock() {
    return lock_.tryLock(static_cast<int>(wait_.count())) ||
           lock_.error() != QLockFile::LockFailedError;
}

/// Whether a running copy was found; one without an application window is left as it is.
bool TSingleInstanceGuard::WakeRunningCopy() {
    const TWindowId window = finder_.Find(windowClass, windowTitle);
    if (!window)
        return false;
    if (const TWindowId owner = finder_.OwnerOf(window)) {
        if (finder_.IsMinimised(owner))
            finder_.ShowNormal(owner);
        else
            finder_.BringToForeground(owner);
    }
    return true;
}
