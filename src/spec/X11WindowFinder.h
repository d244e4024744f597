// The window finder of X11, on a connection of its own. Properties and messages are those of the
// Inter-Client Communication Conventions Manual (ICCCM) and the Extended Window Manager Hints.
#pragma once

#include "spec/WindowFinder.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

struct xcb_connection_t;

class TX11WindowFinder : public IWindowFinder {
public:
    /// None when DISPLAY is not set or its server does not answer.
    static std::unique_ptr<TX11WindowFinder> Connect();

    /// Looks at the windows that the window manager lists; without one, at the whole tree.
    TWindowId Find(std::string_view windowClass, std::string_view title) override;
    /// WM_TRANSIENT_FOR, or else the group leader of WM_HINTS.
    TWindowId OwnerOf(TWindowId window) override;
    bool IsMinimised(TWindowId window) override;
    void ShowNormal(TWindowId window) override;
    void BringToForeground(TWindowId window) override;

private:
    struct TDisconnect {
        void operator()(xcb_connection_t *connection) const;
    };
    using TConnection = std::unique_ptr<xcb_connection_t, TDisconnect>;

    TX11WindowFinder(TConnection connection, TWindowId root);
    void WaitUntilHandled();
    std::uint32_t Atom(std::string_view name);
    std::optional<std::string> Property(TWindowId window, std::uint32_t property);
    std::vector<std::uint32_t> Numbers(TWindowId window, std::uint32_t property);
    std::uint32_t Number(TWindowId window, std::uint32_t property, std::size_t index);
    std::vector<TWindowId> TopLevelWindows();
    void AddChildren(TWindowId window, std::vector<TWindowId> &windows);
    std::string ClassOf(TWindowId window);
    std::string TitleOf(TWindowId window);

    TConnection connection_;
    TWindowId root_;
};
