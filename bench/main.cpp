// Measures what the program costs beside a plain counterpart, prints a table of the ratios with
// their limits and marks what is over. Ends with 1 when something is.
//   ferrolyn_bench
// Figures of a release build on a quiet machine are the ones to go by.

#include "Measure.h"
#include "Start.h"
#include "forms/Aligrid.h"
#include "maps/FuelMaps.h"
#include "maps/MapClipboard.h"
#include "maps/ToolWindow.h"
#include "model/ROMTypes.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace {
namespace fs = std::filesystem;

constexpr int megabyte = 0x100000;
constexpr int starts = 15; // of each program
constexpr int rounds = 61; // of everything else
constexpr int rpmPoints = 31;
constexpr int loadPoints = 20;

// ---- loading -----------------------------------------------------------------------------------

TPair Loading(const fs::path &file) {
    const auto plain = [&] {
        std::vector<char> bytes(megabyte);
        std::ifstream stream(file, std::ios::binary);
        if (!stream.read(bytes.data(), megabyte))
            throw std::runtime_error("cannot read " + file.string());
    };
    return Measure(
        rounds, [&] { return Time([&] { ROMImage()->LoadFromFile(file); }); },
        [&] { return Time(plain); });
}

// ---- showing a map page ------------------------------------------------------------------------

void PutAxis(int &place, int count) {
    ROMImage()->Poke(place + 1, static_cast<std::uint8_t>(count));
    place += 2 + count;
}

/// Places the largest maps that are shown: 31 x 20 and twice 31 x 1.
void PlaceLargestMaps(TWorkspace &workspace) {
    ROMImage()->data.fill(6);
    const auto put = [](int place, bool twoAxes) {
        PutAxis(place, rpmPoints);
        if (twoAxes)
            PutAxis(place, loadPoints);
    };
    put(0x1000, true);
    put(0x2000, false);
    put(0x3000, false);
    workspace.fuelMapSet.SetOffsets(0x1000, 0x2000, 0x3000);
}

/// Lays out, and paints at once into a picture: a window that is not exposed would paint nothing.
/// Events that wait are left to the next turn.
void PaintNow(QWidget &widget) {
    QApplication::sendPostedEvents();
    widget.grab();
}

class TPageBench {
public:
    TPageBench() : page_(nullptr, workspace_, workspace_.fuelMapSet) {
        PlaceLargestMaps(workspace_);
        auto *layout = new QVBoxLayout(&window_);
        layout->addWidget(&page_);
        window_.resize(1200, 900);
        window_.show();
        page_.ShowPage();
        QApplication::processEvents();
    }
    ~TPageBench() { page_.setParent(nullptr); }
    TPageBench(const TPageBench &) = delete;
    TPageBench &operator=(const TPageBench &) = delete;

    double Show() {
        page_.QueryClose();
        PaintNow(window_);
        return Time([this] {
            page_.ShowPage();
            PaintNow(window_);
        });
    }
    /// Changes every cell of the largest map as one step and commits it; gives the times until the
    /// steps are undone and painted, the commit first.
    std::pair<double, double> Undo() {
        std::vector<TCellText> texts;
        for (int row = 1; row <= loadPoints; ++row)
            for (int column = 1; column <= rpmPoints; ++column)
                texts.push_back({column, row, QString::number(++typed_ % 256)});
        page_.EnterTexts(TMapKind::PT, texts, "block");
        page_.CommitPT();
        const auto undo = [this] {
            PaintNow(window_);
            return Time([this] {
                page_.history.Undo();
                PaintNow(window_);
            });
        };
        const double commit = undo();
        return {commit, undo()};
    }
    /// Pastes other numbers over the whole part throttle map, of which half fit no byte.
    double Paste() {
        std::string table;
        ++typed_;
        for (int row = 0; row < loadPoints; ++row)
            for (int column = 0; column < rpmPoints; ++column)
                table += std::to_string((typed_ + row * rpmPoints + column) % 512) +
                         (column + 1 < rpmPoints ? '\t' : '\n');
        QApplication::clipboard()->setText(QString::fromStdString(table));
        page_.Panel(TMapKind::PT).grid->SetCurrent(1, 1);
        PaintNow(window_);
        return Time([this] {
            PasteCells(page_);
            PaintNow(window_);
        });
    }
    /// Sizes of the page's three grids.
    std::vector<QSize> GridSizes() const {
        std::vector<QSize> sizes;
        for (const char *name : {"grdPTMap", "grdIdMap", "grdFTMap"})
            sizes.push_back(page_.findChild<QWidget *>(name)->size());
        return sizes;
    }

private:
    TWorkspace workspace_;
    QWidget window_;
    TfrmFuelMaps page_;
    int typed_ = 0;
};

/// Three grids without a text, of the page's shapes and sizes, on a window as large as the page's.
class TEmptyGridBench {
public:
    explicit TEmptyGridBench(const std::vector<QSize> &sizes) : content_(&window_) {
        window_.resize(1200, 900);
        content_.resize(window_.size());
        int top = 0;
        for (const QSize &size : sizes) {
            auto *grid = new TStringAlignGrid(&content_);
            grid->SetShape(rpmPoints + 1, top == 0 ? loadPoints + 1 : 2);
            grid->setGeometry(0, top, size.width(), size.height());
            top += size.height();
        }
        window_.show();
        QApplication::processEvents();
    }

    double Show() {
        content_.hide();
        PaintNow(window_);
        return Time([this] {
            content_.show();
            PaintNow(window_);
        });
    }

private:
    QWidget window_;
    QWidget content_;
};

TPair ShowingAPage() {
    TPageBench page;
    TEmptyGridBench empty(page.GridSizes());
    return Measure(
        rounds, [&] { return page.Show(); }, [&] { return empty.Show(); });
}

// ---- bulk adjustment ---------------------------------------------------------------------------

/// One bulk adjustment of a whole 31 x 20 map beside filling its grid again.
TPair Adjusting() {
    TWorkspace workspace;
    PlaceLargestMaps(workspace);
    TfrmFuelMaps page(nullptr, workspace, workspace.fuelMapSet);
    page.ShowPage();
    TMapPanel &row = page.Panel(TMapKind::PT);
    TMap &map = page.Map(TMapKind::PT);
    const auto refill = [&] {
        std::string location;
        map.FillGrid(row.gridView, location, map.GetCellFormat(), row.traits.maxRows,
                     row.traits.maxColumns);
    };
    return Measure(
        rounds, [&] { return Time([&] { page.ToolWindow->btnExecClick(); }); },
        [&] { return Time(refill); });
}

// ---- undo --------------------------------------------------------------------------------------

void Undoing(TTable &table) {
    constexpr double frame = 16; // ms
    TPageBench page;
    std::vector<double> commits;
    std::vector<double> blocks;
    for (int i = 0; i < rounds; ++i) {
        const auto [commit, block] = page.Undo();
        commits.push_back(commit);
        blocks.push_back(block);
    }
    table.Difference("undo the commit of 31 x 20, painted, ms", {Median(commits), 0}, frame);
    table.Difference("undo a block of 31 x 20, painted, ms", {Median(blocks), 0}, frame);
}

// ---- pasting -----------------------------------------------------------------------------------

double Pasting() {
    TPageBench page;
    std::vector<double> times;
    for (int i = 0; i < rounds; ++i)
        times.push_back(page.Paste());
    return Median(times);
}

// ---- starting ----------------------------------------------------------------------------------

struct TStarts {
    TPair milliseconds;
    TPair mebibytes;
};

TStarts Starting(const fs::path &image) {
    std::vector<double> times[2];
    std::vector<double> memory[2];
    for (int i = 0; i < starts + 1; ++i) {
        int which = 0;
        for (const char *name : {"ferrolyn_bench_window", "ferrolyn_bench_empty"}) {
            const TStart start = Start(name, {image});
            if (i > 0) { // the first start reads the files into the system's cache
                times[which].push_back(start.milliseconds);
                memory[which].push_back(start.mebibytes);
            }
            ++which;
        }
    }
    return {{Median(times[0]), Median(times[1])}, {Median(memory[0]), Median(memory[1])}};
}

bool MeasureAll(const fs::path &image) {
    std::ofstream(image, std::ios::binary) << std::string(megabyte, '\x05');
    TTable table;
    table.Ratio("load a 1 MiB image / read the file, ms", Loading(image), 3);
    table.Ratio("show a page of 31 x 20 and 31 x 1 / empty grids, ms", ShowingAPage(), 3);
    table.Ratio("adjust a map of 31 x 20 / fill its grid, ms", Adjusting(), 2);
    Undoing(table);
    table.Difference("paste a block of 31 x 20, painted, ms", {Pasting(), 0}, 30);
    const TStarts start = Starting(image);
    table.Ratio("start to the window shown / empty program, ms", start.milliseconds, 1.5);
    table.Difference("memory with 1 MiB loaded - empty program, MiB", start.mebibytes, 15);
    return !table.AnyOver();
}
} // namespace

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    return MeasureWithImage(MeasureAll);
}
