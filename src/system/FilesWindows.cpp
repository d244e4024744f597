#include "system/FileWindows.h"
#include "system/Files.h"

#include <memory>

namespace {
namespace fs = std::filesystem;

/// The result of `call`; `otherwise` when it fails, for the reason in `error`.
template <class TResult, class TCall>
TResult Asked(std::error_code &error, TResult otherwise, TCall call) {
    error.clear();
    try {
        return call();
    } catch (const TSystemFailure &failure) {
        error.assign(static_cast<int>(failure.code), std::system_category());
        return otherwise;
    }
}

template <class TCall>
void Try(std::error_code &error, TCall call) {
    Asked(error, false, [&] {
        call();
        return true;
    });
}

bool SaysThatNothingIsThere(const std::error_code &error) {
    switch (error.value()) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_NETPATH:
        return true;
    default:
        return false;
    }
}

/// An open file or folder, for asking alone.
class TAskedFile : public TOpenFile {
public:
    explicit TAskedFile(const fs::path &name)
        : TOpenFile(name, {0, shareAll, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS}) {}

    bool IsOnDisk() const { return GetFileType(Handle()) == FILE_TYPE_DISK; }
    BY_HANDLE_FILE_INFORMATION Information() const {
        BY_HANDLE_FILE_INFORMATION information{};
        Sure(GetFileInformationByHandle(Handle(), &information));
        return information;
    }
};

fs::file_type TypeOf(const TAskedFile &file) {
    if (!file.IsOnDisk())
        return fs::file_type::character;
    return file.Information().dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY ? fs::file_type::directory
                                                                          : fs::file_type::regular;
}

std::uint64_t Joined(DWORD high, DWORD low) {
    return std::uint64_t{high} << 32 | low;
}

fs::file_time_type TimeOf(const FILETIME &time) {
    using TTicks = std::chrono::duration<std::int64_t, std::ratio<1, 10'000'000>>;
    constexpr std::chrono::seconds from1601To1970(11'644'473'600);
    const TTicks ticks(static_cast<std::int64_t>(Joined(time.dwHighDateTime, time.dwLowDateTime)));
    return fs::file_time_type::clock::from_sys(
        std::chrono::sys_time<TTicks>(ticks - from1601To1970));
}

/// Gives `take` the names in a folder, until it returns false.
void Search(const fs::path &folder, const std::function<bool(const wchar_t *)> &take) {
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW(SystemName(folder / L"*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        Fail(GetLastError());
    const std::unique_ptr<void, decltype(&FindClose)> closing(search, FindClose);
    do {
        const std::wstring_view name = found.cFileName;
        if (name != L"." && name != L".." && !take(found.cFileName))
            return;
    } while (FindNextFileW(search, &found));
    if (GetLastError() != ERROR_NO_MORE_FILES)
        Fail(GetLastError());
}

/// The whole name, links of what is there followed.
fs::path Resolved(const fs::path &name) {
    std::error_code missing;
    const fs::path found = Asked(missing, fs::path(), [&] {
        const TAskedFile file(name);
        return fs::path(FinalName(file.Handle(), name.native()));
    });
    const fs::path folder = name.parent_path();
    return !missing || folder == name ? found : Resolved(folder) / name.filename();
}

void MakeFolders(const fs::path &folder) {
    if (IsFolder(folder))
        return;
    if (const fs::path above = folder.parent_path(); above != folder)
        MakeFolders(above);
    if (CreateDirectoryW(folder.c_str(), nullptr))
        return;
    const DWORD code = GetLastError();
    if (!IsFolder(folder)) // another program may just have made it
        Fail(code);
}
} // namespace

std::string ReasonOf(const std::error_code &error) {
    return TSystemFailure{static_cast<DWORD>(error.value())}.Reason();
}

fs::file_type TypeAt(const fs::path &name, std::error_code &error) {
    const fs::file_type type =
        Asked(error, fs::file_type::none, [&] { return TypeOf(TAskedFile(name)); });
    return SaysThatNothingIsThere(error) ? fs::file_type::not_found : type;
}

std::uintmax_t SizeOf(const fs::path &file, std::error_code &error) {
    return Asked(error, std::uintmax_t{0}, [&] {
        const auto information = TAskedFile(file).Information();
        return std::uintmax_t{Joined(information.nFileSizeHigh, information.nFileSizeLow)};
    });
}

fs::file_time_type LastWritten(const fs::path &file, std::error_code &error) {
    return Asked(error, fs::file_time_type::min(),
                 [&] { return TimeOf(TAskedFile(file).Information().ftLastWriteTime); });
}

bool IsSame(const fs::path &one, const fs::path &other) {
    std::error_code error;
    return Asked(error, false, [&] {
        const TAskedFile files[]{TAskedFile(one), TAskedFile(other)}; // open, so that both stay
        const auto first = files[0].Information();
        const auto second = files[1].Information();
        return first.dwVolumeSerialNumber == second.dwVolumeSerialNumber &&
               first.nFileIndexHigh == second.nFileIndexHigh &&
               first.nFileIndexLow == second.nFileIndexLow;
    });
}

void LookThrough(const fs::path &folder, std::error_code &error,
                 const std::function<bool(const fs::path &)> &take) {
    Try(error, [&] { Search(folder, [&](const wchar_t *name) { return take(folder / name); }); });
}

std::string LastPart(const fs::path &name) {
    return Utf8(name.filename().native());
}

// Names that differ in the case of letters are of one file.
std::string OneName(const fs::path &file) {
    std::error_code error;
    std::wstring name = Asked(error, file, [&] { return Resolved(SystemName(file)); }).native();
    CharLowerBuffW(name.data(), static_cast<DWORD>(name.size()));
    return Utf8(name);
}

// Folders of the program's state are in one that is the user's own.
void MakeOwnFolder(const fs::path &folder, std::error_code &error) {
    Try(error, [&] { MakeFolders(SystemName(folder)); });
}

void RemoveFile(const fs::path &file, std::error_code &error) {
    Try(error, [&] { Sure(DeleteFileW(SystemName(file).c_str())); });
    if (SaysThatNothingIsThere(error))
        error.clear();
}
