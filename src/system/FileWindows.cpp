#include "system/FileWindows.h"

#include <algorithm>

namespace {
constexpr std::size_t longestPlainName = 240; // of 260 characters, with room for a temporary name
} // namespace

std::string Utf8(std::wstring_view text) {
    const auto length = static_cast<int>(text.size());
    const int room =
        WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(room), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, utf8.data(), room, nullptr, nullptr);
    return utf8;
}

std::string TSystemFailure::Reason() const {
    wchar_t *text = nullptr;
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, code, 0, reinterpret_cast<wchar_t *>(&text), 0, nullptr);
    if (length == 0)
        return "error " + std::to_string(code);
    std::wstring_view sentence(text, length);
    sentence = sentence.substr(0, sentence.find_last_not_of(L"\r\n. ") + 1);
    const std::string reason = Utf8(sentence);
    LocalFree(text);
    return reason;
}

std::wstring SystemName(const std::filesystem::path &path) {
    const std::wstring &name = path.native();
    if (name.empty())
        Fail(ERROR_PATH_NOT_FOUND);
    const DWORD room = GetFullPathNameW(name.c_str(), 0, nullptr, nullptr);
    if (room == 0)
        Fail(GetLastError());
    std::wstring full(room, L'\0');
    full.resize(GetFullPathNameW(name.c_str(), room, full.data(), nullptr));
    if (full.size() < longestPlainName || full.starts_with(LR"(\\?\)") ||
        full.starts_with(LR"(\\.\)"))
        return full;
    if (full.starts_with(LR"(\\)"))
        return LR"(\\?\UNC)" + full.substr(1);
    return LR"(\\?\)" + full;
}

std::wstring FinalName(HANDLE file, const std::wstring &otherwise) {
    constexpr DWORD longest = 32768;
    std::wstring final(longest, L'\0');
    const DWORD length = GetFinalPathNameByHandleW(file, final.data(), longest, VOLUME_NAME_DOS);
    final.resize(length < longest ? length : 0);
    return final.empty() ? otherwise : final;
}

TOpenFile::TOpenFile(const std::filesystem::path &path, const TMode &mode)
    : handle_(CreateFileW(SystemName(path).c_str(), mode.access, mode.share, nullptr,
                          mode.disposition, mode.flags, nullptr)) {
    if (handle_ == INVALID_HANDLE_VALUE)
        Fail(GetLastError());
}

void TOpenFile::Close() {
    if (handle_ != INVALID_HANDLE_VALUE)
        CloseHandle(Release());
}

std::uint64_t LengthOf(HANDLE file) {
    LARGE_INTEGER length{};
    Sure(GetFileSizeEx(file, &length));
    return static_cast<std::uint64_t>(length.QuadPart);
}

std::size_t ReadOn(HANDLE file, std::span<std::uint8_t> room) {
    std::size_t done = 0;
    while (done < room.size()) {
        const auto rest = room.subspan(done);
        DWORD count = 0;
        Sure(::ReadFile(file, rest.data(), static_cast<DWORD>(rest.size()), &count, nullptr));
        if (count == 0)
            break;
        done += count;
    }
    return done;
}
