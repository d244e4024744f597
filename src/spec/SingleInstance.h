// The guard at the very start of the program: lets one copy at a time come up and ends this one
// when a running copy is found. Needs no application object.
#pragma once

#include "spec/WindowFinder.h"

#include <chrono>
#include <filesystem>

#include <QString>

/// What a process does after its guard: come up, or end at once without a word.
enum class TStart { Go, End };

/// The folder of the lock file: the user's runtime folder, or else a private one below the user's
/// cache folder, which is created. It may still turn out to be unusable.
QString SingleInstanceFolder();

/// A file that one holder at a time has, in this process or another. What is in it does not matter;
/// the system takes it from a process that ends, however it ends.
class TStartLock {
public:
    enum class TState { Held, Busy, Unusable };

    explicit TStartLock(std::filesystem::path file) : file_(std::move(file)) {}
    TStartLock(const TStartLock &) = delete;
    TStartLock &operator=(const TStartLock &) = delete;
    ~TStartLock() { LetGo(); }

    /// Takes the lock without waiting. Busy: another holder has it. Unusable: the file cannot be
    /// made or locked, or something else lies in its place. To be called while it is not held.
    TState Try();
    /// Removes the file and lets the next holder in; harmless when not held.
    void LetGo();

private:
    bool IsInPlace(int descriptor) const;

    std::filesystem::path file_;
    int descriptor_ = -1;
};

class TSingleInstanceGuard {
public:
    /// @param finder  lent until Check has returned
    /// @param folder  where the lock file lies
    /// @param wait    for another copy that is just coming up
    explicit TSingleInstanceGuard(IWindowFinder &finder,
                                  const QString &folder = SingleInstanceFolder(),
                                  std::chrono::milliseconds wait = std::chrono::seconds(10));

    /// Waits for the lock, then looks for a running copy; one that is found is shown or brought to
    /// the foreground. Go: the lock is held until Release. End: it is not held.
    /// A lock file that cannot be made counts as a lock.
    TStart Check();
    /// Lets the next copy in. To be called once the main window exists; harmless when not held. The
    /// destructor does it at the latest.
    void Release();

private:
    bool Lock();
    bool WakeRunningCopy();

    IWindowFinder &finder_;
    TStartLock lock_;
    std::chrono::milliseconds wait_;
};
