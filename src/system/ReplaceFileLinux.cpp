#include "system/FileLinux.h"
#include "system/Refusal.h"
#include "system/ReplaceFile.h"
#include "system/TemporaryName.h"

namespace {

namespace fs = std::filesystem;
using TBytes = std::span<const std::uint8_t>;

/// Takes a step that may go wrong without the save going wrong; whether it went well.
template <class TStep>
bool IfPossible(TStep step) {
    try {
        step();
        return true;
    } catch (const TSystemFailure &) {
        return false;
    }
}

void WriteAll(const TOpenFile &file, TBytes bytes) {
    while (!bytes.empty()) {
        const ssize_t count =
            Sure([&] { return write(file.Descriptor(), bytes.data(), bytes.size()); });
        if (count == 0)
            Fail(EIO); // a file system that takes nothing and names no reason
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
}

void Flush(const TOpenFile &file) {
    Sure([&] {
        // Devices have nothing to flush and say so with EINVAL.
        const int result = fsync(file.Descriptor());
        return result < 0 && errno == EINVAL ? 0 : result;
    });
}

/// The file that `file` stands for once symbolic links are followed, whether it exists or not.
fs::path Resolve(fs::path file) {
    constexpr int mostLinks = 40;
    for (int links = 0; links <= mostLinks; ++links) {
        std::error_code error;
        const fs::file_type type = fs::symlink_status(file, error).type();
        if (type == fs::file_type::none)
            Fail(error.value()); // taken for a plain file, a link would be replaced
        if (type != fs::file_type::symlink)
            return file;
        file = file.parent_path() / fs::read_symlink(file, error);
        if (error)
            Fail(error.value());
    }
    Fail(ELOOP);
}

/// The target as it stands now; nothing when there is none yet.
std::optional<TStatus> ExistingTarget(const fs::path &file) {
    TStatus status{};
    if (stat(file.c_str(), &status) < 0) {
        if (errno == ENOENT && !file.empty())
            return std::nullopt;
        Fail(errno);
    }
    if (S_ISDIR(status.st_mode))
        Fail(EISDIR);
    // Renaming over a write-protected file would succeed; its owner did not mean that.
    Sure([&] { return faccessat(AT_FDCWD, file.c_str(), W_OK, AT_EACCESS); });
    return status;
}

fs::path FolderOf(const fs::path &file) {
    return file.has_parent_path() ? file.parent_path() : ".";
}

void RemoveIfNobodyHolds(const fs::path &path) {
    const TOpenFile file(path, O_WRONLY | O_NOFOLLOW | O_NONBLOCK);
    const TStatus status = file.Status();
    if (S_ISREG(status.st_mode) && status.st_uid == geteuid() && file.TryLock() == 0)
        unlink(path.c_str());
}

/// Removes the temporary files of this user's saves that were killed.
void RemoveRemains(const fs::path &folder) {
    std::error_code error;
    for (fs::directory_iterator file(folder, error), end; !error && file != end;
         file.increment(error))
        if (IsTemporaryName(file->path().filename().native()))
            IfPossible([&] { RemoveIfNobodyHolds(file->path()); });
}

/// A new file that is gone again unless it is renamed over the target.
class TTemporaryFile {
public:
    TTemporaryFile(const fs::path &folder, mode_t mode)
        : path_(folder / TemporaryName()),
          file_(path_, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, mode) {}
    TTemporaryFile(const TTemporaryFile &) = delete;
    TTemporaryFile &operator=(const TTemporaryFile &) = delete;
    ~TTemporaryFile() {
        if (!path_.empty())
            unlink(path_.c_str());
    }

    const TOpenFile &File() const { return file_; }

    /// Holds the file, so that no other save takes it for a remain; false when one already has.
    bool Hold() const { return file_.TryLock() != EWOULDBLOCK && file_.Status().st_nlink != 0; }

    void RenameTo(const fs::path &target) {
        Sure([&] { return rename(path_.c_str(), target.c_str()); });
        path_.clear();
    }

private:
    fs::path path_;
    TOpenFile file_;
};

/// Gives the file the owner and the permissions of the one that it replaces. Only an administrator
/// may give files away: for anybody else the saver becomes the owner. A group that cannot be kept
/// must not let another one in.
void TakeOver(const TOpenFile &file, const TStatus &old) {
    const TStatus fresh = file.Status();
    const auto give = [&](uid_t owner) {
        const auto call = [&] { return fchown(file.Descriptor(), owner, old.st_gid); };
        return IfPossible([&] { Sure(call); });
    };
    constexpr auto sameOwner = static_cast<uid_t>(-1);
    const bool kept = (fresh.st_uid == old.st_uid && fresh.st_gid == old.st_gid) ||
                      give(old.st_uid) || fresh.st_gid == old.st_gid || give(sameOwner);
    const mode_t mode = old.st_mode & 07777;
    const mode_t forOthers = mode & S_IRWXO;
    const mode_t groupless =
        (mode & ~mode_t{S_ISGID | S_IRWXG}) | (mode & S_IRWXG & forOthers << 3);
    Sure([&] { return fchmod(file.Descriptor(), kept ? mode : groupless); });
}

void Replace(const fs::path &target, const std::optional<TStatus> &old, TBytes bytes,
             TReaders readers) {
    const fs::path folder = FolderOf(target);
    RemoveRemains(folder);
    constexpr int mostTries = 100;
    std::optional<TTemporaryFile> temporary;
    for (int tries = 0; !temporary || !temporary->Hold(); ++tries) {
        if (tries == mostTries)
            Fail(EAGAIN);
        // Until it has its owner and group, a file that replaces another is the saver's alone.
        temporary.emplace(folder, old || readers == TReaders::Owner ? 0600 : 0666);
    }
    WriteAll(temporary->File(), bytes);
    if (old)
        TakeOver(temporary->File(), *old);
    Flush(temporary->File());
    temporary->RenameTo(target);
    // Makes the rename last over a power cut. The new contents are complete in any case.
    IfPossible([&] { Flush(TOpenFile(folder, O_RDONLY | O_DIRECTORY)); });
}

void WriteDevice(const fs::path &target, TBytes bytes) {
    // Without waiting: a pipe that nobody reads is an error, not a hang.
    const TOpenFile file(target, O_WRONLY | O_NONBLOCK | O_NOFOLLOW);
    WriteAll(file, bytes);
    Flush(file);
}

void Overwrite(const TOpenFile &file, TBytes bytes) {
    Sure([&] { return lseek(file.Descriptor(), 0, SEEK_SET); });
    WriteAll(file, bytes);
    Sure([&] { return ftruncate(file.Descriptor(), static_cast<off_t>(bytes.size())); });
    Flush(file);
}

void WriteInPlace(const fs::path &target, TBytes bytes) {
    const TOpenFile file(target, O_RDWR | O_NOFOLLOW);
    const auto old = file.ReadAll(static_cast<std::size_t>(file.Status().st_size));
    if (!old)
        Fail(EIO); // what cannot be put back must not be written over
    try {
        Overwrite(file, bytes);
    } catch (const TSystemFailure &failure) {
        if (!IfPossible([&] { Overwrite(file, *old); }))
            throw Spoilt(failure.Reason()); // the first reason is the one to tell
        throw;
    }
}

/// Whether a failure says that the folder, not the file, refuses the new file or the rename.
bool FolderRefuses(int code) {
    return code == EACCES || code == EPERM || code == EROFS || code == EBUSY;
}

void Write(const fs::path &target, TBytes bytes, TReaders readers) {
    const std::optional<TStatus> old = ExistingTarget(target);
    if (old && !S_ISREG(old->st_mode)) {
        WriteDevice(target, bytes);
        return;
    }
    try {
        Replace(target, old, bytes, readers);
    } catch (const TSystemFailure &failure) {
        if (!old || !FolderRefuses(failure.code))
            throw;
        WriteInPlace(target, bytes);
    }
}
} // namespace

void ReplaceContents(const fs::path &file, TBytes bytes, TReaders readers) {
    Asking<TSystemFailure>([&] { Write(Resolve(file), bytes, readers); });
}

void CheckReplacing(const fs::path &file) {
    Asking<TSystemFailure>([&] {
        const fs::path target = Resolve(file);
        if (!ExistingTarget(target))
            TTemporaryFile(FolderOf(target), 0600);
    });
}
