#include "spec/SplashScreen.h"

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace {
constexpr std::chrono::milliseconds stepTime(200);

/// True after one step's time, false when asked to stop.
bool WaitForStep(const std::stop_token &stop) {
    std::mutex mutex;
    std::condition_variable_any never;
    std::unique_lock lock(mutex);
    never.wait_for(lock, stop, stepTime, [] { return false; });
    return !stop.stop_requested();
}
} // namespace

TSplashScreen::TSplashScreen()
    : thread_([this](const std::stop_token &abandon) { Execute(abandon); }) {}

TSplashScreen::~TSplashScreen() {
    Terminate();
}

void TSplashScreen::Terminate() {
    terminate_.request_stop();
}

void TSplashScreen::Execute(const std::stop_token &abandon) {
    handOver_.Run(abandon, [this] { ShowWindow(); });
    while (WaitForStep(terminate_.get_token()))
        handOver_.Run(abandon, [this] { window_->AnimateStatus(); });
    handOver_.Run(abandon, [this] { window_.reset(); });
}

void TSplashScreen::ShowWindow() {
    window_ = std::make_unique<TfrmSplash>();
    window_->show();
    window_->repaint();
}
