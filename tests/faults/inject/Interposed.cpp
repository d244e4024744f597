// The C library's file calls, each defined once more: the dynamic linker finds these first, and
// they pass the call on to the C library's own unless a fault is due.
#include "inject/Judge.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// The C library's function behind the interposed one of that name and type.
template <class TFunction>
TFunction *Next(TFunction *, const char *name) {
    void *found = dlsym(RTLD_NEXT, name);
    if (!found)
        abort();
    return reinterpret_cast<TFunction *>(found);
}
#define NEXT(name)                                                                                 \
    (static_cast<decltype(&name)>([] {                                                             \
        static const auto next = Next(&name, #name);                                               \
        return next;                                                                               \
    }()))

[[noreturn]] void Die() {
    kill(getpid(), SIGKILL);
    abort();
}

/// Runs a call with what the injection makes of it. `failed` is how it reports an error.
template <class TResult, class TDo>
TResult Run(bool concerned, TCall call, TResult failed, TDo execute) {
    const TFault *fault = concerned ? Judge(call) : nullptr;
    if (!fault)
        return execute();
    switch (fault->effect) {
    case TEffect::DiesBefore:
        Die();
    case TEffect::DiesAfter:
    case TEffect::DiesHalfWay:
        execute();
        Die();
    case TEffect::ComesLate:
        RunMeanwhile(*fault);
        return execute();
    case TEffect::DoneButFails:
        execute();
        break;
    default:
        break;
    }
    errno = fault->code;
    return failed;
}

/// As Run, for calls that move `count` bytes.
template <class TDo>
ssize_t Move(int descriptor, TCall call, std::size_t count, TDo execute) {
    const TFault *fault = ConcernsDescriptor(descriptor) ? Judge(call) : nullptr;
    if (!fault)
        return execute(count);
    const std::size_t half = std::min(count, std::max<std::size_t>(count / 2, 1));
    switch (fault->effect) {
    case TEffect::Half:
        return execute(half);
    case TEffect::Nothing:
        return 0;
    case TEffect::DiesBefore:
        Die();
    case TEffect::DiesHalfWay:
        execute(half);
        Die();
    case TEffect::DiesAfter:
        execute(count);
        Die();
    case TEffect::ComesLate:
        RunMeanwhile(*fault);
        return execute(count);
    default:
        errno = fault->code;
        return -1;
    }
}

TCall KindOfOpen(int flags) {
    if ((flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE)
        return TCall::Create;
    return (flags & O_ACCMODE) == O_RDONLY ? TCall::Open : TCall::OpenToWrite;
}

template <class TDo>
int RunOpen(bool concerned, int flags, TDo execute) {
    const int descriptor = Run(concerned, KindOfOpen(flags), -1, execute);
    if (descriptor >= 0)
        Watch(descriptor, concerned);
    return descriptor;
}

template <class TDo>
FILE *RunStreamOpen(const char *path, const char *mode, TDo execute) {
    const bool concerned = ConcernsPath(path);
    const TCall call = mode[0] == 'r' ? TCall::Open : TCall::Create;
    FILE *stream = Run<FILE *>(concerned, call, nullptr, execute);
    if (stream)
        Watch(fileno(stream), concerned);
    return stream;
}

/// A close that fails has closed the descriptor all the same.
template <class TDo>
int RunClose(bool concerned, TDo execute) {
    const TFault *fault = concerned ? Judge(TCall::Close) : nullptr;
    if (fault && fault->effect == TEffect::DiesBefore)
        Die();
    const int result = execute();
    if (!fault)
        return result;
    if (fault->effect == TEffect::DiesAfter || fault->effect == TEffect::DiesHalfWay)
        Die();
    errno = fault->code;
    return -1;
}

bool ConcernsAt(int folder, const char *path) {
    if (path[0] == '/' || folder == AT_FDCWD)
        return ConcernsPath(path);
    return ConcernsDescriptor(folder);
}

mode_t ModeArgument(int flags, va_list arguments) {
    const bool given = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
    return given ? va_arg(arguments, mode_t) : 0;
}

} // namespace

extern "C" {

int open(const char *path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = ModeArgument(flags, arguments);
    va_end(arguments);
    return RunOpen(ConcernsPath(path), flags, [&] { return NEXT(open)(path, flags, mode); });
}

int open64(const char *path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = ModeArgument(flags, arguments);
    va_end(arguments);
    return RunOpen(ConcernsPath(path), flags, [&] { return NEXT(open64)(path, flags, mode); });
}

int openat(int folder, const char *path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = ModeArgument(flags, arguments);
    va_end(arguments);
    return RunOpen(ConcernsAt(folder, path), flags,
                   [&] { return NEXT(openat)(folder, path, flags, mode); });
}

FILE *fopen(const char *path, const char *mode) {
    return RunStreamOpen(path, mode, [&] { return NEXT(fopen)(path, mode); });
}

FILE *fopen64(const char *path, const char *mode) {
    return RunStreamOpen(path, mode, [&] { return NEXT(fopen64)(path, mode); });
}

int close(int descriptor) {
    const bool concerned = ConcernsDescriptor(descriptor);
    Watch(descriptor, false);
    return RunClose(concerned, [&] { return NEXT(close)(descriptor); });
}

ssize_t read(int descriptor, void *buffer, size_t count) {
    return Move(descriptor, TCall::Read, count,
                [&](size_t part) { return NEXT(read)(descriptor, buffer, part); });
}

ssize_t write(int descriptor, const void *buffer, size_t count) {
    return Move(descriptor, TCall::Write, count,
                [&](size_t part) { return NEXT(write)(descriptor, buffer, part); });
}

ssize_t sendfile(int to, int from, off_t *offset, size_t count) noexcept {
    return Move(to, TCall::Copy, count,
                [&](size_t part) { return NEXT(sendfile)(to, from, offset, part); });
}

int ioctl(int descriptor, unsigned long request, ...) noexcept {
    va_list arguments;
    va_start(arguments, request);
    void *argument = va_arg(arguments, void *);
    va_end(arguments);
    return Run(ConcernsDescriptor(descriptor), TCall::Copy, -1,
               [&] { return NEXT(ioctl)(descriptor, request, argument); });
}

int stat(const char *path, struct stat *status) noexcept {
    return Run(ConcernsPath(path), TCall::Status, -1, [&] { return NEXT(stat)(path, status); });
}

int stat64(const char *path, struct stat64 *status) noexcept {
    return Run(ConcernsPath(path), TCall::Status, -1, [&] { return NEXT(stat64)(path, status); });
}

int lstat(const char *path, struct stat *status) noexcept {
    return Run(ConcernsPath(path), TCall::Status, -1, [&] { return NEXT(lstat)(path, status); });
}

int lstat64(const char *path, struct stat64 *status) noexcept {
    return Run(ConcernsPath(path), TCall::Status, -1, [&] { return NEXT(lstat64)(path, status); });
}

int fstat(int descriptor, struct stat *status) noexcept {
    return Run(ConcernsDescriptor(descriptor), TCall::Status, -1,
               [&] { return NEXT(fstat)(descriptor, status); });
}

int fstat64(int descriptor, struct stat64 *status) noexcept {
    return Run(ConcernsDescriptor(descriptor), TCall::Status, -1,
               [&] { return NEXT(fstat64)(descriptor, status); });
}

int fstatat(int folder, const char *path, struct stat *status, int flags) noexcept {
    return Run(ConcernsAt(folder, path), TCall::Status, -1,
               [&] { return NEXT(fstatat)(folder, path, status, flags); });
}

int statx(int folder, const char *path, int flags, unsigned mask, struct statx *status) noexcept {
    return Run(ConcernsAt(folder, path), TCall::Status, -1,
               [&] { return NEXT(statx)(folder, path, flags, mask, status); });
}

ssize_t readlink(const char *path, char *buffer, size_t size) noexcept {
    return Run<ssize_t>(ConcernsPath(path), TCall::ReadLink, -1,
                        [&] { return NEXT(readlink)(path, buffer, size); });
}

char *realpath(const char *path, char *resolved) noexcept {
    return Run<char *>(ConcernsPath(path), TCall::ReadLink, nullptr,
                       [&] { return NEXT(realpath)(path, resolved); });
}

int access(const char *path, int mode) noexcept {
    return Run(ConcernsPath(path), TCall::Access, -1, [&] { return NEXT(access)(path, mode); });
}

int faccessat(int folder, const char *path, int mode, int flags) noexcept {
    return Run(ConcernsAt(folder, path), TCall::Access, -1,
               [&] { return NEXT(faccessat)(folder, path, mode, flags); });
}

off_t lseek(int descriptor, off_t offset, int from) noexcept {
    return Run<off_t>(ConcernsDescriptor(descriptor), TCall::Seek, -1,
                      [&] { return NEXT(lseek)(descriptor, offset, from); });
}

off64_t lseek64(int descriptor, off64_t offset, int from) noexcept {
    return Run<off64_t>(ConcernsDescriptor(descriptor), TCall::Seek, -1,
                        [&] { return NEXT(lseek64)(descriptor, offset, from); });
}

int ftruncate(int descriptor, off_t length) noexcept {
    return Run(ConcernsDescriptor(descriptor), TCall::Truncate, -1,
               [&] { return NEXT(ftruncate)(descriptor, length); });
}

int ftruncate64(int descriptor, off64_t length) noexcept {
    return Run(ConcernsDescriptor(descriptor), TCall::Truncate, -1,
               [&] { return NEXT(ftruncate64)(descriptor, length); });
}

// Nobody pulls the plug while an injection is in force, so it need not wait for the disk.
int fsync(int descriptor) {
    const bool concerned = ConcernsDescriptor(descriptor);
    return Run(concerned, TCall::Flush, -1,
               [&] { return concerned ? 0 : NEXT(fsync)(descriptor); });
}

int fdatasync(int descriptor) {
    const bool concerned = ConcernsDescriptor(descriptor);
    return Run(concerned, TCall::Flush, -1,
               [&] { return concerned ? 0 : NEXT(fdatasync)(descriptor); });
}

int chmod(const char *path, mode_t mode) noexcept {
    return Run(ConcernsPath(path), TCall::Permissions, -1, [&] { return NEXT(chmod)(path, mode); });
}

int fchmodat(int folder, const char *path, mode_t mode, int flags) noexcept {
    return Run(ConcernsAt(folder, path), TCall::Permissions, -1,
               [&] { return NEXT(fchmodat)(folder, path, mode, flags); });
}

int mkdir(const char *path, mode_t mode) noexcept {
    return Run(ConcernsPath(path), TCall::MakeFolder, -1, [&] { return NEXT(mkdir)(path, mode); });
}

int fchmod(int descriptor, mode_t mode) noexcept {
    return Run(ConcernsDescriptor(descriptor), TCall::Permissions, -1,
               [&] { return NEXT(fchmod)(descriptor, mode); });
}

int fchown(int descriptor, uid_t owner, gid_t group) noexcept {
    return Run(ConcernsDescriptor(descriptor), TCall::Owner, -1,
               [&] { return NEXT(fchown)(descriptor, owner, group); });
}

int rename(const char *from, const char *to) noexcept {
    return Run(ConcernsPath(to), TCall::Rename, -1, [&] { return NEXT(rename)(from, to); });
}

int renameat2(int fromFolder, const char *from, int toFolder, const char *to,
              unsigned flags) noexcept {
    return Run(ConcernsAt(toFolder, to), TCall::Rename, -1,
               [&] { return NEXT(renameat2)(fromFolder, from, toFolder, to, flags); });
}

int link(const char *from, const char *to) noexcept {
    return Run(ConcernsPath(to), TCall::Link, -1, [&] { return NEXT(link)(from, to); });
}

int linkat(int fromFolder, const char *from, int toFolder, const char *to, int flags) noexcept {
    return Run(ConcernsAt(toFolder, to), TCall::Link, -1,
               [&] { return NEXT(linkat)(fromFolder, from, toFolder, to, flags); });
}

int unlink(const char *path) noexcept {
    return Run(ConcernsPath(path), TCall::Unlink, -1, [&] { return NEXT(unlink)(path); });
}

int remove(const char *path) noexcept {
    return Run(ConcernsPath(path), TCall::Unlink, -1, [&] { return NEXT(remove)(path); });
}

int flock(int descriptor, int operation) noexcept {
    return Run(ConcernsDescriptor(descriptor), TCall::Lock, -1,
               [&] { return NEXT(flock)(descriptor, operation); });
}

DIR *opendir(const char *path) {
    const bool concerned = ConcernsPath(path);
    DIR *folder = Run<DIR *>(concerned, TCall::List, nullptr, [&] { return NEXT(opendir)(path); });
    if (folder)
        Watch(dirfd(folder), concerned);
    return folder;
}

DIR *fdopendir(int descriptor) {
    return Run<DIR *>(ConcernsDescriptor(descriptor), TCall::List, nullptr,
                      [&] { return NEXT(fdopendir)(descriptor); });
}

struct dirent *readdir(DIR *folder) {
    return Run<dirent *>(ConcernsDescriptor(dirfd(folder)), TCall::List, nullptr,
                         [&] { return NEXT(readdir)(folder); });
}

struct dirent64 *readdir64(DIR *folder) {
    return Run<dirent64 *>(ConcernsDescriptor(dirfd(folder)), TCall::List, nullptr,
                           [&] { return NEXT(readdir64)(folder); });
}

int closedir(DIR *folder) {
    const int descriptor = dirfd(folder);
    const bool concerned = ConcernsDescriptor(descriptor);
    Watch(descriptor, false);
    return RunClose(concerned, [&] { return NEXT(closedir)(folder); });
}

} // extern "C"
