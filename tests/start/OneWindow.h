// A desktop with one window or none, for the guard of a start.
#pragma once

#include "system/WindowFinder.h"

/// Finds the window whatever is looked for; it has no owner.
class TOneWindow : public IWindowFinder {
public:
    /// @param window  0: there is none
    explicit TOneWindow(TWindowId window = 0) : window_(window) {}
    TWindowId Find(std::string_view, std::string_view) override { return window_; }
    TWindowId OwnerOf(TWindowId) override { return 0; }
    bool IsMinimised(TWindowId) override { return false; }
    void ShowNormal(TWindowId) override {}
    void BringToForeground(TWindowId) override {}

private:
    TWindowId window_;
};
