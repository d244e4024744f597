// The guard at the very start of the program: lets one copy at a time come up and ends this one
// when a running copy is found. Needs no application object.
#pragma once

#include "system/StartLock.h"
#include "system/WindowFinder.h"

#include <chrono>

#include <QString>

/// What a process does after its guard: come up, or end at once without a word.
enum class TStart { Go, End };

/// The folder of the lock file: the user's runtime folder, or else a private one below the user's
/// cache folder, which is created. It may still turn out to be unusable.
QString SingleInstanceFolder();

class TSingleInstanceGuard {
public:
    /// @param folder  where the lock file lies
    /// @param wait    for another copy that is just coming up
    explicit TSingleInstanceGuard(const QString &folder = SingleInstanceFolder(),
                                  std::chrono::milliseconds wait = std::chrono::seconds(10));

    /// Waits for the lock, then looks for a running copy; one that is found is shown or brought to
    /// the foreground. Go: the lock is held until Release. End: it is not held.
    /// A lock file that cannot be made counts as a lock.
    TStart Check(IWindowFinder &finder);
    /// Lets the next copy in. To be called once the main window exists; harmless when not held. The
    /// destructor does it at the latest.
    void Release();

private:
    bool Lock();

    TStartLock lock_;
    std::chrono::milliseconds wait_;
};
