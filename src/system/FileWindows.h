// An open file on Windows and the failures of the calls on it, for the .cpp files of this room.
// What a failure means is said by ReadFile.h, SafeFile.h and StartLock.h.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <windows.h>

std::string Utf8(std::wstring_view text);

/// A failed system call.
struct TSystemFailure {
    DWORD code; ///< of GetLastError

    /// In the language of the system, UTF-8.
    std::string Reason() const;
};

[[noreturn]] inline void Fail(DWORD code) {
    throw TSystemFailure{code};
}

/// Throws the last failure unless a call went well.
inline void Sure(BOOL done) {
    if (!done)
        Fail(GetLastError());
}

/// The name for the system: absolute, and in the form that may be longer than 260 characters where
/// it is. A device's name stays. Throws TSystemFailure.
std::wstring SystemName(const std::filesystem::path &path);

/// The name that the system knows an open file by, links followed; `otherwise` where it has none.
std::wstring FinalName(HANDLE file, const std::wstring &otherwise);

/// Others may go on reading, writing and replacing a file that is opened so.
inline constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// In bytes. Throws TSystemFailure.
std::uint64_t LengthOf(HANDLE file);

/// Reads on until `room` is full or the file ends; the number of bytes. Throws TSystemFailure.
std::size_t ReadOn(HANDLE file, std::span<std::uint8_t> room);

/// A file that is open as long as this object lives. Its operations throw TSystemFailure.
class TOpenFile {
public:
    struct TMode {
        DWORD access;      ///< GENERIC_READ and so on
        DWORD share;       ///< FILE_SHARE_READ and so on; 0 holds the file against all others
        DWORD disposition; ///< OPEN_EXISTING and so on
        DWORD flags = FILE_ATTRIBUTE_NORMAL;
    };
    TOpenFile(const std::filesystem::path &path, const TMode &mode);
    TOpenFile(const TOpenFile &) = delete;
    TOpenFile &operator=(const TOpenFile &) = delete;
    ~TOpenFile() { Close(); }

    HANDLE Handle() const { return handle_; }
    /// The handle, which the caller is to close.
    HANDLE Release() { return std::exchange(handle_, INVALID_HANDLE_VALUE); }
    void Close();

private:
    HANDLE handle_;
};
