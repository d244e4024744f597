// A lock that one holder at a time has, in this process or another, while the program comes up. Who
// waits for it and what follows is SingleInstance.h's.
#pragma once

#include <cstdint>
#include <filesystem>
#include <utility>

/// A file that is held. What is in it does not matter; the system takes it from a process that
/// ends, however it ends.
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
    std::filesystem::path file_;
    static constexpr std::intptr_t none = -1;
    std::intptr_t handle_ = none; ///< the system's, of the open file; none while it is not held
};
