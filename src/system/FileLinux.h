// An open file on Linux and the failures of the calls on it, for the .cpp files of this room. What
// a failure means is said by ReadFile.h, SafeFile.h and StartLock.h.
#pragma once

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

using TStatus = struct stat;

/// A failed system call.
struct TSystemFailure {
    int code; ///< errno

    std::string Reason() const { return std::generic_category().message(code); }
};

[[noreturn]] inline void Fail(int code) {
    throw TSystemFailure{code};
}

/// The result of a call, which is repeated when a signal interrupts it. Throws TSystemFailure.
template <class TCall>
auto Sure(TCall call) {
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    if (result < 0)
        Fail(errno);
    return result;
}

/// Reads on until `room` is full or the file ends; the number of bytes. Throws TSystemFailure.
inline std::size_t ReadOn(int descriptor, std::span<std::uint8_t> room) {
    std::size_t done = 0;
    while (done < room.size()) {
        const auto rest = room.subspan(done);
        const ssize_t count = Sure([&] { return read(descriptor, rest.data(), rest.size()); });
        if (count == 0)
            break;
        done += static_cast<std::size_t>(count);
    }
    return done;
}

/// A file that is open as long as this object lives. Its operations throw TSystemFailure.
class TOpenFile {
public:
    /// @param mode  permissions of a file that is created
    explicit TOpenFile(const std::filesystem::path &path, int flags, mode_t mode = 0)
        : descriptor_(Sure([&] { return open(path.c_str(), flags | O_CLOEXEC, mode); })) {}
    TOpenFile(const TOpenFile &) = delete;
    TOpenFile &operator=(const TOpenFile &) = delete;
    ~TOpenFile() {
        if (descriptor_ >= 0)
            close(descriptor_);
    }

    int Descriptor() const { return descriptor_; }
    /// The descriptor, which the caller is to close.
    int Release() { return std::exchange(descriptor_, -1); }

    TStatus Status() const {
        TStatus status{};
        Sure([&] { return fstat(descriptor_, &status); });
        return status;
    }

    /// All bytes of a file of the length given; nothing when there are fewer or more.
    std::optional<std::vector<std::uint8_t>> ReadAll(std::size_t length) const {
        std::vector<std::uint8_t> bytes(length + 1); // room for one more shows a file that grows
        if (ReadOn(descriptor_, bytes) != length)
            return std::nullopt;
        bytes.resize(length);
        return bytes;
    }

    /// Holds the file as long as it is open, against every other process and thread. 0, or the
    /// reason: EWOULDBLOCK when it is held already, another one when the file system knows no
    /// locks.
    int TryLock() const {
        try {
            return Sure([&] { return flock(descriptor_, LOCK_EX | LOCK_NB); });
        } catch (const TSystemFailure &failure) {
            return failure.code;
        }
    }

private:
    int descriptor_;
};
