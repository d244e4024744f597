#include "system/WindowFinder.h"

#include <array>
#include <string>
#include <windows.h>

namespace {
/// Longer class names and titles are none that anybody looks for.
constexpr int longestText = 512;

std::wstring Wide(std::string_view utf8) {
    std::array<wchar_t, longestText> wide{};
    const int length = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()),
                                           wide.data(), longestText);
    return {wide.data(), static_cast<std::size_t>(length)};
}

HWND AsWindow(TWindowId id) {
    return reinterpret_cast<HWND>(static_cast<std::uintptr_t>(id));
}

/// Handles have 32 bits that count, in all programs.
TWindowId AsId(HWND window) {
    return static_cast<TWindowId>(reinterpret_cast<std::uintptr_t>(window));
}

struct TSearch {
    std::wstring windowClass;
    std::wstring title;
    HWND found = nullptr;
};

/// The system's own search takes letters of either case for the same.
BOOL CALLBACK Look(HWND window, LPARAM parameter) {
    auto &search = *reinterpret_cast<TSearch *>(parameter);
    std::array<wchar_t, longestText> text{};
    GetClassNameW(window, text.data(), longestText);
    if (search.windowClass != text.data())
        return TRUE;
    GetWindowTextW(window, text.data(), longestText);
    if (search.title != text.data())
        return TRUE;
    search.found = window;
    return FALSE;
}

class TDesktopFinder : public IWindowFinder {
public:
    TWindowId Find(std::string_view windowClass, std::string_view title) override {
        TSearch search{Wide(windowClass), Wide(title)};
        EnumWindows(Look, reinterpret_cast<LPARAM>(&search));
        return AsId(search.found);
    }
    TWindowId OwnerOf(TWindowId window) override {
        return AsId(GetWindow(AsWindow(window), GW_OWNER));
    }
    bool IsMinimised(TWindowId window) override { return IsIconic(AsWindow(window)) != 0; }
    void ShowNormal(TWindowId window) override { ShowWindow(AsWindow(window), SW_SHOWNORMAL); }
    void BringToForeground(TWindowId window) override { SetForegroundWindow(AsWindow(window)); }
};
} // namespace

std::unique_ptr<IWindowFinder> DesktopWindowFinder() {
    return std::make_unique<TDesktopFinder>();
}
