#include "system/FileLinux.h"
#include "system/StartLock.h"

namespace {
/// Whether an open file is still the one of that name; what cannot be told counts as such.
bool IsInPlace(const TOpenFile &file, const std::filesystem::path &name) {
    struct stat held {};
    struct stat named {};
    if (fstat(file.Descriptor(), &held) < 0)
        return true;
    if (stat(name.c_str(), &named) < 0)
        return errno != ENOENT;
    return held.st_dev == named.st_dev && held.st_ino == named.st_ino;
}
} // namespace

TStartLock::TState TStartLock::Try() {
    try {
        for (;;) {
            TOpenFile file(file_, O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK, 0600);
            if (const int reason = file.TryLock())
                return reason == EWOULDBLOCK ? TState::Busy : TState::Unusable;
            if (IsInPlace(file, file_)) {
                handle_ = file.Release();
                return TState::Held;
            }
            // Its last holder has removed it; the next one is made anew.
        }
    } catch (const TSystemFailure &) {
        return TState::Unusable;
    }
}

void TStartLock::LetGo() {
    if (handle_ == none)
        return;
    unlink(file_.c_str());
    close(static_cast<int>(handle_));
    handle_ = none;
}
