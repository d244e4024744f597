#include "spec/SplashScreen.h"

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace {
constexpr std::chrono::milliseconds stepTime(200);

/// True after one step's time, false when asked to stop.
bool WaitForStep(TStop &stop) {
    std::mutex mutex;
    std::condition_variable changed;
    const TStop::TWaker waker(stop, mutex, changed);
    std::unique_lock lock(mutex);
    return !changed.wait_for(lock, stepTime, [&] { return stop.Requested(); });
}
} // namespace

TSplashScreen::TSplashScreen() : thread_([this](TStop &abandon) { Execute(abandon); }) {}

TSplashScreen::~TSplashScreen() {
    Terminate();
}

void TSplashScreen::Terminate() {
    terminate_.Request();
}

void TSplashScreen::Execute(TStop &abandon) {
    handOver_.Run(abandon, [this] { ShowWindow(); });
    while (WaitForStep(terminate_))
        handOver_.Run(abandon, [this] { window_->AnimateStatus(); });
    handOver_.Run(abandon, [this] { window_.reset(); });
}

void TSplashScreen::ShowWindow() {
    window_ = std::make_unique<TfrmSplash>();
    window_->show();
    window_->repaint();
}
