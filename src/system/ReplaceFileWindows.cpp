#include "system/FileWindows.h"
#include "system/Files.h"
#include "system/Refusal.h"
#include "system/ReplaceFile.h"
#include "system/TemporaryName.h"

#include <aclapi.h>
#include <cstring>
#include <optional>
#include <vector>

namespace {

namespace fs = std::filesystem;
using TBytes = std::span<const std::uint8_t>;

constexpr std::size_t longestPart = 255; ///< characters between two separators of a name

/// Takes a step that may go wrong without the save going wrong.
template <class TStep>
void IfPossible(TStep step) {
    try {
        step();
    } catch (const TSystemFailure &) {
    }
}

void WriteAll(HANDLE file, TBytes bytes) {
    while (!bytes.empty()) {
        DWORD count = 0;
        Sure(::WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr));
        if (count == 0)
            Fail(ERROR_WRITE_FAULT); // a file system that takes nothing and names no reason
        bytes = bytes.subspan(count);
    }
}

/// What is at a name; nothing when there is nothing yet.
struct TTarget {
    std::wstring name; ///< once links are followed
    DWORD attributes;
    bool regular;
};

bool IsDevice(const std::wstring &name) {
    return name.starts_with(LR"(\\.\)");
}

/// Throws for a folder, and for a file that its owner has protected.
std::optional<TTarget> ExistingTarget(const fs::path &file) {
    const std::wstring name = SystemName(file);
    const DWORD attributes = IsDevice(name) ? 0 : GetFileAttributesW(name.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        if (const DWORD code = GetLastError(); code != ERROR_FILE_NOT_FOUND)
            Fail(code);
        if (fs::path(name).filename().native().size() > longestPart)
            Fail(ERROR_FILENAME_EXCED_RANGE);
        return std::nullopt;
    }
    if (attributes & FILE_ATTRIBUTE_DIRECTORY)
        Fail(ERROR_DIRECTORY);
    if (attributes & FILE_ATTRIBUTE_READONLY)
        Fail(ERROR_ACCESS_DENIED);
    const TOpenFile open(name, {GENERIC_WRITE, shareAll, OPEN_EXISTING});
    const bool regular = GetFileType(open.Handle()) == FILE_TYPE_DISK;
    return TTarget{regular ? FinalName(open.Handle(), name) : name, attributes, regular};
}

/// Removes the temporary files of saves that were killed. One that a save still writes is held by
/// it and stays.
void RemoveRemains(const fs::path &folder) {
    std::error_code error;
    LookThrough(folder, error, [](const fs::path &file) {
        if (IsTemporaryName(LastPart(file)))
            IfPossible([&] {
                TOpenFile(file, {DELETE, 0, OPEN_EXISTING, FILE_FLAG_DELETE_ON_CLOSE});
            });
        return true;
    });
}

/// Renames a file over one that readers have open, who go on with the old contents; false where the
/// file system knows no such renaming.
bool RenameOverOpen(const std::wstring &name, const std::wstring &target) {
    // FileRenameInfoEx, which the header has for later releases of Windows 10 alone.
    constexpr auto renameEx = static_cast<FILE_INFO_BY_HANDLE_CLASS>(22);
    const TOpenFile file(name, {DELETE | SYNCHRONIZE, shareAll, OPEN_EXISTING});
    const std::size_t length = target.size() * sizeof(wchar_t);
    std::vector<std::byte> room(sizeof(FILE_RENAME_INFO) + length);
    auto *rename = new (room.data()) FILE_RENAME_INFO{};
    rename->Flags = FILE_RENAME_FLAG_REPLACE_IF_EXISTS | FILE_RENAME_FLAG_POSIX_SEMANTICS;
    rename->FileNameLength = static_cast<DWORD>(length);
    std::memcpy(rename->FileName, target.data(), length);
    return SetFileInformationByHandle(file.Handle(), renameEx, rename,
                                      static_cast<DWORD>(room.size())) != 0;
}

/// Why a target may not be renamed over: somebody has it open, or its access list says so.
DWORD WhyDenied(const std::wstring &target) {
    try {
        const TOpenFile file(target, {DELETE, shareAll, OPEN_EXISTING});
        return ERROR_SHARING_VIOLATION;
    } catch (const TSystemFailure &failure) {
        return failure.code == ERROR_FILE_NOT_FOUND ? ERROR_ACCESS_DENIED : failure.code;
    }
}

/// A new file, held against all others, that is gone again unless it is renamed over the target.
class TTemporaryFile {
public:
    explicit TTemporaryFile(const fs::path &folder)
        : name_(SystemName(folder / TemporaryName())),
          file_(name_, {GENERIC_WRITE | WRITE_DAC | DELETE, 0, CREATE_NEW}) {}
    TTemporaryFile(const TTemporaryFile &) = delete;
    TTemporaryFile &operator=(const TTemporaryFile &) = delete;
    ~TTemporaryFile() {
        file_.Close();
        if (!name_.empty())
            DeleteFileW(name_.c_str());
    }

    HANDLE Handle() const { return file_.Handle(); }

    /// In one step; as a rule it is on the disk when this returns.
    void RenameTo(const std::wstring &target) {
        file_.Close();
        constexpr DWORD flags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
        if (!MoveFileExW(name_.c_str(), target.c_str(), flags)) {
            const DWORD code = GetLastError();
            if (!RenameOverOpen(name_, target))
                Fail(code == ERROR_ACCESS_DENIED ? WhyDenied(target) : code);
        }
        name_.clear();
    }

private:
    std::wstring name_;
    TOpenFile file_;
};

/// Gives the new file the access list of the one that it replaces, and its attributes.
void TakeOver(HANDLE file, const TTarget &old) {
    PACL list = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    std::wstring name = old.name;
    if (GetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr,
                              nullptr, &list, nullptr, &descriptor) == ERROR_SUCCESS) {
        SetSecurityInfo(file, SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr, list,
                        nullptr);
        LocalFree(descriptor);
    }
    FILE_BASIC_INFO basic{};
    basic.FileAttributes = old.attributes;
    SetFileInformationByHandle(file, FileBasicInfo, &basic, sizeof basic);
}

void Replace(const fs::path &target, const std::optional<TTarget> &old, TBytes bytes) {
    const fs::path name = old ? fs::path(old->name) : fs::path(SystemName(target));
    RemoveRemains(name.parent_path());
    TTemporaryFile temporary(name.parent_path());
    WriteAll(temporary.Handle(), bytes);
    if (old)
        TakeOver(temporary.Handle(), *old);
    Sure(FlushFileBuffers(temporary.Handle()));
    temporary.RenameTo(name.native());
}

void WriteDevice(const TTarget &target, TBytes bytes) {
    const TOpenFile device(target.name, {GENERIC_WRITE, shareAll, OPEN_EXISTING});
    WriteAll(device.Handle(), bytes);
}

void Overwrite(HANDLE file, TBytes bytes) {
    Sure(SetFilePointerEx(file, {}, nullptr, FILE_BEGIN));
    WriteAll(file, bytes);
    Sure(SetEndOfFile(file));
    Sure(FlushFileBuffers(file));
}

void WriteInPlace(const TTarget &target, TBytes bytes) {
    const TOpenFile file(target.name, {GENERIC_READ | GENERIC_WRITE, 0, OPEN_EXISTING});
    std::vector<std::uint8_t> old(static_cast<std::size_t>(LengthOf(file.Handle())));
    if (ReadOn(file.Handle(), old) != old.size())
        Fail(ERROR_READ_FAULT); // what cannot be put back must not be written over
    try {
        Overwrite(file.Handle(), bytes);
    } catch (const TSystemFailure &failure) {
        try {
            Overwrite(file.Handle(), old);
        } catch (const TSystemFailure &) {
            throw Spoilt(failure.Reason()); // the first reason is the one to tell
        }
        throw;
    }
}

/// Whether a failure says that the folder, not the file, refuses the new file.
bool FolderRefuses(DWORD code) {
    return code == ERROR_ACCESS_DENIED || code == ERROR_WRITE_PROTECT;
}

/// Replaces anew for a while: another program may have the target open for a moment, and another
/// save may take the new file for what a killed one left.
void ReplacePatiently(const fs::path &target, const std::optional<TTarget> &old, TBytes bytes) {
    constexpr int tries = 20;
    constexpr DWORD pause = 10; // milliseconds
    for (int tried = 1;; ++tried)
        try {
            return Replace(target, old, bytes);
        } catch (const TSystemFailure &failure) {
            const bool passes =
                failure.code == ERROR_SHARING_VIOLATION || failure.code == ERROR_FILE_NOT_FOUND;
            if (!passes || tried == tries)
                throw;
            Sleep(pause);
        }
}

void Write(const fs::path &file, TBytes bytes) {
    const std::optional<TTarget> old = ExistingTarget(file);
    if (old && !old->regular)
        return WriteDevice(*old, bytes);
    try {
        ReplacePatiently(file, old, bytes);
    } catch (const TSystemFailure &failure) {
        if (!old || !FolderRefuses(failure.code))
            throw;
        WriteInPlace(*old, bytes);
    }
}
} // namespace

// Who may read a new file follows from its folder: that of the program's state is the user's alone.
void ReplaceContents(const fs::path &file, TBytes bytes, TReaders) {
    Asking<TSystemFailure>([&] { Write(file, bytes); });
}

void CheckReplacing(const fs::path &file) {
    Asking<TSystemFailure>([&] {
        if (!ExistingTarget(file))
            TTemporaryFile(fs::path(SystemName(file)).parent_path());
    });
}
