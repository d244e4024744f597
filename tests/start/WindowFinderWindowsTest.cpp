// For Windows alone: windows of another thread, of classes that are registered here.
#include "start/WaitFor.h"
#include "system/WindowFinder.h"

#include <functional>
#include <future>
#include <string>
#include <thread>
#include <windows.h>

#include <gtest/gtest.h>

namespace {
constexpr UINT runMessage = WM_APP + 1;
constexpr const wchar_t *notebookClass = L"TfrmNotebook";
constexpr const wchar_t *notebookTitle = L"Ferrolyn ";

TWindowId IdOf(HWND window) {
    return static_cast<TWindowId>(reinterpret_cast<std::uintptr_t>(window));
}

/// A thread that has windows of its own and takes their messages.
class TOtherProgram {
public:
    TOtherProgram() {
        std::promise<void> ready;
        thread_ = std::thread([this, &ready] { Work(ready); });
        ready.get_future().wait();
    }
    TOtherProgram(const TOtherProgram &) = delete;
    TOtherProgram &operator=(const TOtherProgram &) = delete;
    ~TOtherProgram() {
        PostThreadMessageW(number_, WM_QUIT, 0, 0);
        thread_.join();
    }

    /// @param above  its owner
    HWND NewWindow(const std::wstring &windowClass, const std::wstring &title,
                   HWND above = nullptr) {
        HWND window = nullptr;
        Run([&] {
            WNDCLASSEXW kind{};
            kind.cbSize = sizeof kind;
            kind.lpfnWndProc = DefWindowProcW;
            kind.hInstance = GetModuleHandleW(nullptr);
            kind.lpszClassName = windowClass.c_str();
            RegisterClassExW(&kind); // once; no other one of that name is made here
            window = CreateWindowExW(0, windowClass.c_str(), title.c_str(), WS_OVERLAPPEDWINDOW, 0,
                                     0, 200, 100, above, nullptr, kind.hInstance, nullptr);
        });
        EXPECT_NE(window, nullptr) << "error " << GetLastError();
        return window;
    }
    HWND NewNotebook(HWND above = nullptr) {
        return NewWindow(notebookClass, notebookTitle, above);
    }
    void Show(HWND window, int how) {
        Run([=] { ShowWindow(window, how); });
    }
    void Destroy(HWND window) {
        Run([=] { DestroyWindow(window); });
    }

private:
    void Work(std::promise<void> &ready) {
        MSG message;
        PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE); // makes the queue
        number_ = GetCurrentThreadId();
        ready.set_value();
        while (GetMessageW(&message, nullptr, 0, 0) > 0) {
            if (message.hwnd == nullptr && message.message == runMessage)
                (*reinterpret_cast<std::packaged_task<void()> *>(message.lParam))();
            DispatchMessageW(&message);
        }
    }
    /// In the thread, to its end.
    void Run(const std::function<void()> &work) {
        std::packaged_task<void()> task(work);
        PostThreadMessageW(number_, runMessage, 0, reinterpret_cast<LPARAM>(&task));
        task.get_future().wait();
    }

    DWORD number_ = 0;
    std::thread thread_;
};

class WindowFinder : public testing::Test {
protected:
    TWindowId Search() { return finder_->Find("TfrmNotebook", "Ferrolyn "); }

    TOtherProgram other_;
    std::unique_ptr<IWindowFinder> finder_ = DesktopWindowFinder();
};
} // namespace

TEST_F(WindowFinder, FindsClassAndTitleExactly) {
    EXPECT_EQ(Search(), 0U);
    other_.NewWindow(notebookClass, L"Ferrolyn");
    other_.NewWindow(notebookClass, L"Ferrolyn - map.bin");
    other_.NewWindow(notebookClass, L"ferrolyn ");
    other_.NewWindow(L"TfrmNotebooks", notebookTitle);
    EXPECT_EQ(Search(), 0U);
    const HWND notebook = other_.NewNotebook();
    EXPECT_EQ(Search(), IdOf(notebook));
    EXPECT_EQ(finder_->Find("Tfrmnotebook", "Ferrolyn "), 0U)
        << "the system itself takes either case for the same";
}

TEST_F(WindowFinder, TakesUtf8) {
    const HWND window = other_.NewWindow(L"TfrmÖ", L"Zündung →");
    EXPECT_EQ(finder_->Find("TfrmÖ", "Zündung →"), IdOf(window));
}

TEST_F(WindowFinder, TheOwnerIsTheWindowsOwner) {
    const HWND owner = other_.NewWindow(L"TApplication", L"Application");
    EXPECT_EQ(finder_->OwnerOf(IdOf(other_.NewNotebook(owner))), IdOf(owner));
    EXPECT_EQ(finder_->OwnerOf(IdOf(owner)), 0U);
}

TEST_F(WindowFinder, AMinimisedWindowIsShown) {
    const HWND notebook = other_.NewNotebook();
    const TWindowId id = IdOf(notebook);
    EXPECT_FALSE(finder_->IsMinimised(id)) << "not shown yet";
    other_.Show(notebook, SW_SHOWNORMAL);
    EXPECT_FALSE(finder_->IsMinimised(id));
    other_.Show(notebook, SW_MINIMIZE);
    EXPECT_TRUE(finder_->IsMinimised(id));
    finder_->ShowNormal(id);
    EXPECT_TRUE(WaitFor([&] { return !finder_->IsMinimised(id); }));
    EXPECT_TRUE(IsWindowVisible(notebook));
}

TEST_F(WindowFinder, AWindowComesToTheForeground) {
    const HWND notebook = other_.NewNotebook();
    other_.Show(notebook, SW_SHOWNORMAL);
    const HWND above = other_.NewWindow(L"Above", L"Above");
    other_.Show(above, SW_SHOWNORMAL);
    ASSERT_TRUE(WaitFor([&] { return GetForegroundWindow() == above; }));
    // Asked again: meanwhile the desktop may give the keyboard to the window that has just come up.
    EXPECT_TRUE(WaitFor([&] {
        finder_->BringToForeground(IdOf(notebook));
        return GetForegroundWindow() == notebook;
    }));
}

TEST_F(WindowFinder, AWindowThatHasGoneIsNone) {
    const HWND gone = other_.NewNotebook();
    const TWindowId id = IdOf(gone);
    other_.Destroy(gone);
    EXPECT_EQ(finder_->OwnerOf(id), 0U);
    EXPECT_FALSE(finder_->IsMinimised(id));
    finder_->ShowNormal(id);
    finder_->BringToForeground(id);
    EXPECT_EQ(Search(), 0U);
}
