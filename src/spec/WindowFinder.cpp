#include "spec/WindowFinder.h"

#include "spec/X11WindowFinder.h"

namespace {
class TNoWindowFinder : public IWindowFinder {
public:
    TWindowId Find(std::string_view, std::string_view) override { return 0; }
    TWindowId OwnerOf(TWindowId) override { return 0; }
    bool IsMinimised(TWindowId) override { return false; }
    void ShowNormal(TWindowId) override {}
    void BringToForeground(TWindowId) override {}
};
} // namespace

std::unique_ptr<IWindowFinder> DesktopWindowFinder() {
    if (auto finder = TX11WindowFinder::Connect())
        return finder;
    return std::make_unique<TNoWindowFinder>();
}
