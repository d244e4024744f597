#include "system/StartLock.h"

#include <windows.h>

// A named object of the session instead of a file, called like the file: it is there as long as
// somebody has a handle of it.
TStartLock::TState TStartLock::Try() {
    const HANDLE mutex = CreateMutexW(nullptr, FALSE, file_.filename().c_str());
    const bool held = GetLastError() == ERROR_ALREADY_EXISTS;
    if (!mutex)
        return TState::Unusable;
    if (held) {
        CloseHandle(mutex);
        return TState::Busy;
    }
    handle_ = reinterpret_cast<std::intptr_t>(mutex);
    return TState::Held;
}

void TStartLock::LetGo() {
    if (handle_ == none)
        return;
    CloseHandle(reinterpret_cast<HANDLE>(handle_));
    handle_ = none;
}
