#include "model/SafeFile.h"

#include "model/Errors.h"
#include "model/Texts.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace {

namespace fs = std::filesystem;
using TBytes = std::span<const std::uint8_t>;

constexpr mode_t permissionBits = 07777;

/// A failed system call; becomes an EFileError where the file's name is known.
struct TSystemFailure {
    int code;
    bool spoilt = false; ///< the old contents are lost, and the new ones are not all there
};

[[noreturn]] void Fail(int code) {
    throw TSystemFailure{code};
}

class TFileHandle {
public:
    explicit TFileHandle(int descriptor) : descriptor_(descriptor) {}
    TFileHandle(TFileHandle &&other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
    TFileHandle(const TFileHandle &) = delete;
    TFileHandle &operator=(const TFileHandle &) = delete;
    TFileHandle &operator=(TFileHandle &&) = delete;
    ~TFileHandle() {
        if (descriptor_ >= 0)
            close(descriptor_);
    }
    int Get() const { return descriptor_; }

private:
    int descriptor_;
};

/// Repeats a call that a signal interrupted.
template <typename TCall>
auto Uninterrupted(TCall call) {
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

int TryOpen(const fs::path &file, int flags, mode_t mode = 0) {
    return Uninterrupted([&] { return open(file.c_str(), flags | O_CLOEXEC, mode); });
}

TFileHandle Open(const fs::path &file, int flags, mode_t mode = 0) {
    const int descriptor = TryOpen(file, flags, mode);
    if (descriptor < 0)
        Fail(errno);
    return TFileHandle(descriptor);
}

struct stat StatusOf(const TFileHandle &handle) {
    struct stat status {};
    if (fstat(handle.Get(), &status) < 0)
        Fail(errno);
    return status;
}

/// All bytes of a file of the length given; nothing when there are fewer or more.
std::optional<std::vector<std::uint8_t>> ReadExactly(const TFileHandle &handle,
                                                     std::size_t length) {
    // Room for one more shows a file that grows.
    std::vector<std::uint8_t> bytes(length + 1);
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t count =
            Uninterrupted([&] { return read(handle.Get(), &bytes[done], bytes.size() - done); });
        if (count < 0)
            Fail(errno);
        if (count == 0)
            break;
        done += static_cast<std::size_t>(count);
    }
    if (done != length)
        return std::nullopt;
    bytes.resize(length);
    return bytes;
}

void WriteAll(const TFileHandle &handle, TBytes bytes) {
    while (!bytes.empty()) {
        const ssize_t count =
            Uninterrupted([&] { return write(handle.Get(), bytes.data(), bytes.size()); });
        if (count < 0)
            Fail(errno);
        if (count == 0)
            Fail(EIO); // a file system that takes nothing and names no reason
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
}

void Flush(const TFileHandle &handle) {
    // Devices have nothing to flush and say so with EINVAL.
    if (Uninterrupted([&] { return fsync(handle.Get()); }) < 0 && errno != EINVAL)
        Fail(errno);
}

/// The file that `file` stands for once symbolic links are followed, whether it exists or not.
fs::path Resolve(fs::path file) {
    constexpr int mostLinks = 40;
    std::error_code error;
    for (int links = 0;; ++links) {
        const fs::file_type type = fs::symlink_status(file, error).type();
        if (type == fs::file_type::none)
            Fail(error.value()); // taken for a plain file, a link would be replaced
        if (type != fs::file_type::symlink)
            return file;
        if (links == mostLinks)
            Fail(ELOOP);
        const fs::path target = fs::read_symlink(file, error);
        if (error)
            Fail(error.value());
        file = file.parent_path() / target;
    }
}

/// The target as it stands now; nothing when there is none yet.
std::optional<struct stat> ExistingTarget(const fs::path &file) {
    struct stat status {};
    if (stat(file.c_str(), &status) < 0) {
        if (errno == ENOENT)
            return std::nullopt;
        Fail(errno);
    }
    if (S_ISDIR(status.st_mode))
        Fail(EISDIR);
    // Renaming over a write-protected file would succeed; its owner did not mean that.
    if (faccessat(AT_FDCWD, file.c_str(), W_OK, AT_EACCESS) < 0)
        Fail(errno);
    return status;
}

constexpr std::string_view temporaryPrefix = ".ferrolyn-";
constexpr std::string_view temporarySuffix = ".tmp";
constexpr std::string_view digits = "0123456789abcdef";
constexpr std::size_t randomDigits = 32;

std::string RandomName() {
    std::random_device source;
    std::string name(temporaryPrefix);
    for (std::size_t i = 0; i < randomDigits; ++i)
        name += digits[source() % digits.size()];
    return name.append(temporarySuffix);
}

bool IsRandomName(std::string_view name) {
    if (name.size() != temporaryPrefix.size() + randomDigits + temporarySuffix.size() ||
        !name.starts_with(temporaryPrefix) || !name.ends_with(temporarySuffix))
        return false;
    name.remove_prefix(temporaryPrefix.size());
    return name.find_first_not_of(digits) == randomDigits;
}

/// Holds the file as long as it is open, against every other process and thread. False when it is
/// held already, or when the file system knows no locks.
bool Hold(const TFileHandle &handle) {
    return Uninterrupted([&] { return flock(handle.Get(), LOCK_EX | LOCK_NB); }) == 0;
}

void RemoveIfNobodyHolds(const fs::path &file) {
    const int descriptor = TryOpen(file, O_WRONLY | O_NOFOLLOW | O_NONBLOCK);
    if (descriptor < 0)
        return;
    const TFileHandle handle(descriptor);
    struct stat status {};
    if (fstat(handle.Get(), &status) == 0 && S_ISREG(status.st_mode) &&
        status.st_uid == geteuid() && Hold(handle))
        unlink(file.c_str());
}

/// Removes the temporary files of this user's saves that were killed. No failure here hinders a
/// save.
void RemoveRemains(const fs::path &folder) {
    std::error_code error;
    for (fs::directory_iterator file(folder.empty() ? "." : folder, error), end;
         !error && file != end; file.increment(error))
        if (IsRandomName(file->path().filename().native()))
            RemoveIfNobodyHolds(file->path());
}

/// Whether another save took this new file for a remain before it was held.
bool IsLost(const TFileHandle &handle) {
    const bool held = Hold(handle);
    struct stat status {};
    return (!held && errno == EWOULDBLOCK) ||
           (fstat(handle.Get(), &status) == 0 && status.st_nlink == 0);
}

struct TNamedFile {
    fs::path path;
    TFileHandle handle;
};

/// A new file that is held while it is open, so that no other save takes it for a remain.
TNamedFile CreateHeld(const fs::path &folder, mode_t mode) {
    constexpr int mostTries = 100;
    for (int tries = 0; tries < mostTries; ++tries) {
        const fs::path path = folder / RandomName();
        TFileHandle handle = Open(path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, mode);
        if (!IsLost(handle))
            return {path, std::move(handle)};
        unlink(path.c_str());
    }
    Fail(EAGAIN);
}

/// A new file beside the target that is gone again unless it is renamed over the target.
class TTemporaryFile {
public:
    TTemporaryFile(const fs::path &target, mode_t mode)
        : file_(CreateHeld(target.parent_path(), mode)) {}
    TTemporaryFile(const TTemporaryFile &) = delete;
    TTemporaryFile &operator=(const TTemporaryFile &) = delete;
    ~TTemporaryFile() {
        if (!file_.path.empty())
            unlink(file_.path.c_str());
    }

    const TFileHandle &Handle() const { return file_.handle; }

    void RenameTo(const fs::path &target) {
        if (rename(file_.path.c_str(), target.c_str()) < 0)
            Fail(errno);
        file_.path.clear();
    }

private:
    TNamedFile file_;
};

/// Gives the file the owner and the permissions of the one that it replaces. Only an administrator
/// may give files away: for anybody else the saver becomes the owner. A group that cannot be kept
/// must not let another one in.
void TakeOver(const TFileHandle &handle, const struct stat &old) {
    const struct stat fresh = StatusOf(handle);
    const auto give = [&](uid_t owner) {
        return Uninterrupted([&] { return fchown(handle.Get(), owner, old.st_gid); }) == 0;
    };
    constexpr auto sameOwner = static_cast<uid_t>(-1);
    const bool kept = (fresh.st_uid == old.st_uid && fresh.st_gid == old.st_gid) ||
                      give(old.st_uid) || fresh.st_gid == old.st_gid || give(sameOwner);
    const mode_t mode = old.st_mode & permissionBits;
    const mode_t forOthers = mode & S_IRWXO;
    const mode_t groupless =
        (mode & ~mode_t{S_ISGID | S_IRWXG}) | (mode & S_IRWXG & forOthers << 3);
    if (Uninterrupted([&] { return fchmod(handle.Get(), kept ? mode : groupless); }) < 0)
        Fail(errno);
}

/// Makes the rename last over a power cut. The new contents are complete in any case, so a folder
/// that cannot be flushed is no failure of the save.
void FlushFolder(const fs::path &folder) {
    const int descriptor = TryOpen(folder.empty() ? "." : folder, O_RDONLY | O_DIRECTORY);
    if (descriptor < 0)
        return;
    const TFileHandle handle(descriptor);
    Uninterrupted([&] { return fsync(handle.Get()); });
}

void Replace(const fs::path &target, const std::optional<struct stat> &old, TBytes bytes) {
    RemoveRemains(target.parent_path());
    // Until it has its owner and group, a file that replaces another is the saver's alone.
    TTemporaryFile temporary(target, old ? 0600 : 0666);
    WriteAll(temporary.Handle(), bytes);
    if (old)
        TakeOver(temporary.Handle(), *old);
    Flush(temporary.Handle());
    temporary.RenameTo(target);
    FlushFolder(target.parent_path());
}

void WriteDevice(const fs::path &target, TBytes bytes) {
    // Without waiting: a pipe that nobody reads is an error, not a hang.
    const TFileHandle handle = Open(target, O_WRONLY | O_NONBLOCK | O_NOFOLLOW);
    WriteAll(handle, bytes);
    Flush(handle);
}

void Overwrite(const TFileHandle &handle, TBytes bytes) {
    if (lseek(handle.Get(), 0, SEEK_SET) < 0)
        Fail(errno);
    WriteAll(handle, bytes);
    const auto length = static_cast<off_t>(bytes.size());
    if (Uninterrupted([&] { return ftruncate(handle.Get(), length); }) < 0)
        Fail(errno);
    Flush(handle);
}

void WriteInPlace(const fs::path &target, TBytes bytes) {
    const TFileHandle handle = Open(target, O_RDWR | O_NOFOLLOW);
    const auto old = ReadExactly(handle, static_cast<std::size_t>(StatusOf(handle).st_size));
    if (!old)
        Fail(EIO); // what cannot be put back must not be written over
    try {
        Overwrite(handle, bytes);
    } catch (const TSystemFailure &failure) {
        try {
            Overwrite(handle, *old);
        } catch (const TSystemFailure &) {
            throw TSystemFailure{failure.code, true}; // the first reason is the one to tell
        }
        throw failure;
    }
}

/// Whether a failure says that the folder, not the file, refuses the new file or the rename.
bool FolderRefuses(int code) {
    return code == EACCES || code == EPERM || code == EROFS || code == EBUSY;
}

void Write(const fs::path &target, TBytes bytes) {
    if (target.empty())
        Fail(ENOENT);
    const std::optional<struct stat> old = ExistingTarget(target);
    if (old && !S_ISREG(old->st_mode)) {
        WriteDevice(target, bytes);
        return;
    }
    try {
        Replace(target, old, bytes);
    } catch (const TSystemFailure &failure) {
        if (!old || !FolderRefuses(failure.code))
            throw;
        WriteInPlace(target, bytes);
    }
}

[[noreturn]] void ThrowCannotRead(const fs::path &file, const std::string &reason) {
    throw EFileError(
        Filled(Translated("SafeFile", "Cannot read '%1': %2"), {file.string(), reason}));
}

std::string ReasonOf(const TSystemFailure &failure) {
    std::string reason = std::generic_category().message(failure.code);
    if (!failure.spoilt)
        return reason;
    return Filled(Translated("SafeFile", "%1; the old contents could not be put back"), {reason});
}

} // namespace

std::vector<std::uint8_t> ReadWholeFile(const fs::path &file, std::uint64_t limit) {
    try {
        // Without waiting, so that opening a pipe cannot hang; it is refused below.
        const TFileHandle handle = Open(file, O_RDONLY | O_NONBLOCK);
        const struct stat status = StatusOf(handle);
        if (S_ISDIR(status.st_mode))
            Fail(EISDIR);
        if (!S_ISREG(status.st_mode))
            ThrowCannotRead(file, Translated("SafeFile", "not a regular file"));
        const auto length = static_cast<std::uint64_t>(status.st_size);
        if (length > limit)
            ThrowCannotRead(
                file, Filled(Translated("SafeFile", "it has %1 bytes, more than the limit of %2"),
                             {std::to_string(length), std::to_string(limit)}));
        const auto bytes = ReadExactly(handle, static_cast<std::size_t>(length));
        if (!bytes)
            ThrowCannotRead(file, Translated("SafeFile", "its length changed while it was read"));
        return *bytes;
    } catch (const TSystemFailure &failure) {
        ThrowCannotRead(file, ReasonOf(failure));
    }
}

void WriteFileSafely(const fs::path &file, TBytes bytes) {
    try {
        Write(Resolve(file), bytes);
    } catch (const TSystemFailure &failure) {
        throw EFileError(Filled(Translated("SafeFile", "Cannot write '%1': %2"),
                                {file.string(), ReasonOf(failure)}));
    }
}
