#include "spec/SingleInstance.h"

#include "forms/Paths.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

#include <QDir>
#include <QStandardPaths>

namespace {
constexpr auto mutexName = "SingleInstanceProgramHMutex";
constexpr auto windowClass = "TfrmNotebook";
constexpr auto windowTitle =
    "Ferrolyn "; // the trailing blank is intended: no caption of ours has it
constexpr std::chrono::milliseconds retryPause(20); // between two looks at a lock that is busy

int LockNow(int descriptor) {
    int result = 0;
    do
        result = flock(descriptor, LOCK_EX | LOCK_NB);
    while (result < 0 && errno == EINTR);
    return result;
}

int OpenLock(const std::filesystem::path &file) {
    int descriptor = -1;
    do
        descriptor =
            open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600);
    while (descriptor < 0 && errno == EINTR);
    return descriptor;
}
} // namespace

TStartLock::TState TStartLock::Try() {
    for (;;) {
        const int descriptor = OpenLock(file_);
        if (descriptor < 0)
            return TState::Unusable;
        if (LockNow(descriptor) < 0) {
            const bool busy = errno == EWOULDBLOCK;
            close(descriptor);
            return busy ? TState::Busy : TState::Unusable;
        }
        if (IsInPlace(descriptor)) {
            descriptor_ = descriptor;
            return TState::Held;
        }
        close(descriptor); // its last holder has removed it; the next one is made anew
    }
}

/// Whether an open file is still the one of that name; what cannot be told counts as such.
bool TStartLock::IsInPlace(int descriptor) const {
    struct stat held {};
    struct stat named {};
    if (fstat(descriptor, &held) < 0)
        return true;
    if (stat(file_.c_str(), &named) < 0)
        return errno != ENOENT;
    return held.st_dev == named.st_dev && held.st_ino == named.st_ino;
}

void TStartLock::LetGo() {
    if (descriptor_ < 0)
        return;
    unlink(file_.c_str());
    close(descriptor_);
    descriptor_ = -1;
}

QString SingleInstanceFolder() {
    QString runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (!runtime.isEmpty())
        return runtime;
    QDir cache(QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation));
    cache.mkpath("ferrolyn");
    return cache.filePath("ferrolyn");
}

TSingleInstanceGuard::TSingleInstanceGuard(IWindowFinder &finder, const QString &folder,
                                           std::chrono::milliseconds wait)
    : finder_(finder), lock_(ToPath(QDir(folder).filePath(mutexName))), wait_(wait) {}

TStart TSingleInstanceGuard::Check() {
    if (!Lock())
        return TStart::End;
    if (!WakeRunningCopy())
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
    TStartLock::TState state = lock_.Try();
    while (state == TStartLock::TState::Busy && TClock::now() < end) {
        std::this_thread::sleep_for(retryPause);
        state = lock_.Try();
    }
    return state != TStartLock::TState::Busy;
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
