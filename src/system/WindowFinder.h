// Looking for another program's top-level window and waking it up, as far as the platform can. What
// is done with the window found is decided in SingleInstance.h.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

/// The platform's number of a window; 0 is none.
using TWindowId = std::uint32_t;

/// Nothing here fails: a window that has gone meanwhile is none, not minimised, and left alone.
class IWindowFinder {
public:
    virtual ~IWindowFinder() = default;
    /// A top-level window whose class and title (UTF-8) are exactly these, letter case and blanks
    /// included.
    virtual TWindowId Find(std::string_view windowClass, std::string_view title) = 0;
    /// The window that stands for the whole program of `window`, its application window.
    virtual TWindowId OwnerOf(TWindowId window) = 0;
    virtual bool IsMinimised(TWindowId window) = 0;
    virtual void ShowNormal(TWindowId window) = 0;
    virtual void BringToForeground(TWindowId window) = 0;
};

/// A finder for the desktop that the program is to run on; where it has no way to look at other
/// programs' windows, or does not answer, one that finds nothing. Needs no application object. On
/// X11 it is a connection of its own to the server that DISPLAY names, closed with the object.
std::unique_ptr<IWindowFinder> DesktopWindowFinder();
