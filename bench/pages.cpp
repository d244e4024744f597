// Measures "All Highlighted": from the command to the window painted with its new tabs, for 250 to
// 2,000 found maps. Prints a table of milliseconds and of what more maps cost beside 250 of them,
// with their limits, and marks what is over. Ends with 1 when something is.
//   ferrolyn_bench_pages
// Figures of a release build on a quiet machine are the ones to go by.

#include "Measure.h"
#include "filedisplay/FileDisplay.h"
#include "forms/KelvaneNotebook.h"
#include "forms/PageControl.h"
#include "model/ROMTypes.h"
#include "spec/Application.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include <QAction>
#include <QApplication>

namespace {
constexpr int rounds = 5;
constexpr int place = 0x20; // bytes for each map
constexpr std::array<std::uint8_t, 12> map{1, 2, 5, 6, 1, 2, 7, 8, 100, 100, 100, 100};

/// An image of 64 KiB with that many fuel maps of 2 x 2 points.
void LoadFoundMaps(int count) {
    ROMImage()->data.fill(255);
    ROMImage()->size = 0x10000;
    for (int i = 1; i <= count; ++i)
        std::copy(map.begin(), map.end(), ROMImage()->data.begin() + place * i);
}

/// The notebook with the contents view, in which the maps have been searched for.
class TSearchedNotebook {
public:
    TSearchedNotebook() {
        auto page = std::make_unique<TfrmFileContents>(nullptr, workspace_, printing_);
        page_ = page.get();
        window_.AddPage(std::move(page), "TabSheet1", "File Contents");
        window_.resize(800, 600);
        workspace_.romFileName = "found.BIN";
        window_.show();
        Run("Fuel5");
        QApplication::processEvents();
    }
    /// The command of that name in the page's menu.
    void Run(const char *name) { page_->findChild<QAction *>(name)->trigger(); }
    int Tabs() const { return window_.PageControl1->count(); }

private:
    TWorkspace workspace_;
    TPrinting printing_;
    TfrmKelvaneNotebook window_;
    TfrmFileContents *page_;
};

double Adding(int count) {
    LoadFoundMaps(count);
    TSearchedNotebook notebook;
    const double time = Time([&notebook] {
        notebook.Run("AllHighlighted1");
        QApplication::processEvents();
    });
    if (notebook.Tabs() != count + 1)
        throw std::runtime_error("not all maps got a page");
    return time;
}

bool MeasureAll() {
    TTable table;
    constexpr int few = 250;
    // The limits are 1 ms for two pages, and growth with the number of pages, with room for noise.
    for (const auto &[count, growth] :
         {std::pair{few, 0.0}, {500, 2.5}, {1000, 4.75}, {2000, 9.0}}) {
        const TPair figures = Measure(
            rounds, [many = count] { return Adding(many); }, [] { return Adding(few); });
        const std::string what = "pages for " + std::to_string(count) + " found maps";
        table.Difference(what + ", ms", {figures.ours, 0}, count / 2.0);
        if (count > few)
            table.Ratio(what + " / for 250, ms", figures, growth);
    }
    return !table.AnyOver();
}
} // namespace

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    SetUpApplication();
    try {
        return MeasureAll() ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
}
