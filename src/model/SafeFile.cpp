#include "model/SafeFile.h"

#include "model/Errors.h"

#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <optional>
#include <random>
#include <string>
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

TFileHandle Open(const fs::path &file, int flags) {
    const int descriptor = TryOpen(file, flags);
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

std::vector<std::uint8_t> ReadUpTo(const TFileHandle &handle, std::size_t length) {
    std::vector<std::uint8_t> bytes(length);
    std::size_t done = 0;
    while (done < length) {
        const ssize_t count =
            Uninterrupted([&] { return read(handle.Get(), &bytes[done], length - done); });
        if (count < 0)
            Fail(errno);
        if (count == 0)
            break;
        done += static_cast<std::size_t>(count);
    }
    bytes.resize(done);
    return bytes;
}

void WriteAll(const TFileHandle &handle, TBytes bytes) {
    while (!bytes.empty()) {
        const ssize_t count =
            Uninterrupted([&] { return write(handle.Get(), bytes.data(), bytes.size()); });
        if (count < 0)
            Fail(errno);
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
    for (int links = 0; fs::is_symlink(fs::symlink_status(file, error)); ++links) {
        if (links == mostLinks)
            Fail(ELOOP);
        const fs::path target = fs::read_symlink(file, error);
        if (error)
            Fail(error.value());
        file = file.parent_path() / target;
    }
    return file;
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

std::string RandomName() {
    std::random_device source;
    std::string name = ".ferrolyn-";
    for (int i = 0; i < 32; ++i)
        name += "0123456789abcdef"[source() % 16];
    return name + ".tmp";
}

/// A new file beside the target that is gone again unless it is renamed over the target.
class TTemporaryFile {
public:
    TTemporaryFile(const fs::path &target, mode_t mode)
        : path_(target.parent_path() / RandomName()),
          handle_(TryOpen(path_, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, mode)) {
        if (handle_.Get() < 0)
            Fail(errno);
    }
    TTemporaryFile(const TTemporaryFile &) = delete;
    TTemporaryFile &operator=(const TTemporaryFile &) = delete;
    ~TTemporaryFile() {
        if (!path_.empty())
            unlink(path_.c_str());
    }

    const TFileHandle &Handle() const { return handle_; }

    void RenameTo(const fs::path &target) {
        if (rename(path_.c_str(), target.c_str()) < 0)
            Fail(errno);
        path_.clear();
    }

private:
    fs::path path_;
    TFileHandle handle_;
};

/// Gives the file the owner and the exact permissions of the one that it replaces.
void TakeOver(const TFileHandle &handle, const struct stat &old) {
    const struct stat fresh = StatusOf(handle);
    const bool foreign = fresh.st_uid != old.st_uid || fresh.st_gid != old.st_gid;
    // Only an administrator may give files away; for anybody else the saver becomes the owner.
    [[maybe_unused]] const int given = foreign ? fchown(handle.Get(), old.st_uid, old.st_gid) : 0;
    if (fchmod(handle.Get(), old.st_mode & permissionBits) < 0)
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
    TTemporaryFile temporary(target, old ? old->st_mode & 0777 : 0666);
    WriteAll(temporary.Handle(), bytes);
    if (old)
        TakeOver(temporary.Handle(), *old);
    Flush(temporary.Handle());
    temporary.RenameTo(target);
    FlushFolder(target.parent_path());
}

void WriteDevice(const fs::path &target, TBytes bytes) {
    // Without waiting: a pipe that nobody reads is an error, not a hang.
    const TFileHandle handle = Open(target, O_WRONLY | O_NONBLOCK);
    WriteAll(handle, bytes);
    Flush(handle);
}

void Overwrite(const TFileHandle &handle, TBytes bytes) {
    if (lseek(handle.Get(), 0, SEEK_SET) < 0)
        Fail(errno);
    WriteAll(handle, bytes);
    if (ftruncate(handle.Get(), static_cast<off_t>(bytes.size())) < 0)
        Fail(errno);
    Flush(handle);
}

void WriteInPlace(const fs::path &target, TBytes bytes) {
    const TFileHandle handle = Open(target, O_RDWR);
    const std::vector<std::uint8_t> old =
        ReadUpTo(handle, static_cast<std::size_t>(StatusOf(handle).st_size));
    try {
        Overwrite(handle, bytes);
    } catch (const TSystemFailure &failure) {
        try {
            Overwrite(handle, old);
        } catch (const TSystemFailure &) {
            // The first failure is the one that the user has to hear of.
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

[[noreturn]] void ThrowFileError(const char *what, const fs::path &file,
                                 const std::string &reason) {
    throw EFileError(std::string(what) + " '" + file.string() + "': " + reason);
}

std::string ReasonOf(const TSystemFailure &failure) {
    return std::generic_category().message(failure.code);
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
            ThrowFileError("Cannot read", file, "not a regular file");
        const auto length = static_cast<std::uint64_t>(status.st_size);
        if (length > limit)
            ThrowFileError("Cannot read", file,
                           "it has " + std::to_string(length) + " bytes, more than the limit of " +
                               std::to_string(limit));
        return ReadUpTo(handle, static_cast<std::size_t>(length));
    } catch (const TSystemFailure &failure) {
        ThrowFileError("Cannot read", file, ReasonOf(failure));
    }
}

void WriteFileSafely(const fs::path &file, TBytes bytes) {
    try {
        Write(Resolve(file), bytes);
    } catch (const TSystemFailure &failure) {
        ThrowFileError("Cannot write", file, ReasonOf(failure));
    }
}
