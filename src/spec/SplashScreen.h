// The splash thread: keeps time for the splash window's animation and has the main thread do all
// the window work. The window itself is in splash.h.
#pragma once

#include "spec/MainThreadCall.h"
#include "spec/splash.h"

#include <memory>

/// Created running. Belongs to the main thread, which alone calls it and may destroy it at any
/// moment: hand-overs on their way are dropped, the thread is joined, the window freed.
class TSplashScreen {
public:
    TSplashScreen();
    ~TSplashScreen();
    TSplashScreen(const TSplashScreen &) = delete;
    TSplashScreen &operator=(const TSplashScreen &) = delete;

    /// Asks the thread to close the window and to end. Returns at once; later calls are harmless.
    void Terminate();

private:
    void Execute(TStop &abandon);
    void ShowWindow();

    std::unique_ptr<TfrmSplash> window_; ///< touched by the main thread only
    TMainThreadCall handOver_;
    TStop terminate_;         ///< ends the animation; thread_'s own stop ends the hand-overs too
    TStoppableThread thread_; ///< last: it ends before anything that it uses
};
