// Measures the searches of the contents view beside the plain pass over an image that a search
// cannot do without: one that looks at each cell's value and writes a 32-bit colour into the cell,
//     for each cell: color = value in the range ? lime : unmarked
// compiled as the searches are (the compiler vectorises it). Prints a table of the ratios with
// their limits, marks what is over and ends with 1 when something is. "x fill" is the ratio to
// writing one colour into every cell without a look at its value; it has no limit.
//   ferrolyn_bench_searches [TEXT]    only the rows that contain TEXT
// Figures of a release build on a quiet machine are the ones to go by.

#include "filedisplay/Searches.h"

#include "SearchImages.h"
#include "filedisplay/MapSearch.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace {

constexpr int rounds = 61; // of each search and each pass
constexpr double valueLimit = 3;
constexpr double mapLimit = 10;

[[gnu::noinline]] void PlainPass(const TSearchGrid &grid) {
    const TCellValue *values = grid.values.data();
    TColor *colors = grid.colors.data();
    for (std::size_t i = 0; i < grid.values.size(); ++i)
        colors[i] = values[i] >= 90 && values[i] <= 200 ? possibleFuelColor : unmarkedColor;
}

[[gnu::noinline]] void Fill(const TSearchGrid &grid) {
    std::fill(grid.colors.begin(), grid.colors.end(), possibleFuelColor);
}

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

using TPass = std::function<void(const TSearchGrid &)>;

/// The cells that one row of the table is measured on.
class TMeasuredCells {
public:
    TMeasuredCells(std::vector<TCellValue> values, std::vector<TColor> marked)
        : values_(std::move(values)), marked_(std::move(marked)), colors_(marked_) {}

    /// Microseconds of one pass, from the colours before the search on.
    double Time(const TPass &pass) {
        std::copy(marked_.begin(), marked_.end(), colors_.begin());
        const TSearchGrid grid{values_, colors_};
        const auto start = std::chrono::steady_clock::now();
        pass(grid);
        const auto end = std::chrono::steady_clock::now();
        return std::chrono::duration<double, std::micro>(end - start).count();
    }

private:
    std::vector<TCellValue> values_;
    std::vector<TColor> marked_;
    std::vector<TColor> colors_;
};

/// Prints the table; what is over its limit is marked.
class TTable {
public:
    explicit TTable(std::string wanted) : wanted_(std::move(wanted)) {
        std::printf("%-62s %9s %9s %7s %7s %7s\n", "measured, microseconds", "ours", "plain",
                    "x fill", "ratio", "limit");
    }

    /// The search and the passes take turns, so that a busy machine slows all of them.
    void Row(const std::string &what, TMeasuredCells cells, const TPass &search, double limit) {
        if (what.find(wanted_) == std::string::npos)
            return;
        std::vector<double> times[3];
        for (int i = 0; i < rounds; ++i) {
            times[0].push_back(cells.Time(search));
            times[1].push_back(cells.Time(PlainPass));
            times[2].push_back(cells.Time(Fill));
        }
        const double ours = Median(times[0]);
        const double plain = Median(times[1]);
        const bool over = ours / plain > limit;
        over_ = over_ || over;
        std::printf("%-62s %9.1f %9.1f %7.2f %7.2f %7.2f%s\n", what.c_str(), ours, plain,
                    ours / Median(times[2]), ours / plain, limit, over ? "  OVER" : "");
        std::fflush(stdout);
    }
    bool AnyOver() const { return over_; }

private:
    std::string wanted_;
    bool over_ = false;
};

void MeasureValueSearches(TTable &table, std::size_t size) {
    const std::string suffix = ", " + std::to_string(size / 1024) + " KiB";
    const auto row = [&](const char *what, const TPass &search) {
        table.Row(what + suffix, {RandomCells(size), std::vector<TColor>(size, unmarkedColor)},
                  search, valueLimit);
    };
    row("possible fuel values",
        [](const TSearchGrid &grid) { MarkPossibleFuelValues(grid, TSearchParameters()); });
    row("possible timing values",
        [](const TSearchGrid &grid) { MarkPossibleTimingValues(grid, TSearchParameters()); });
    row("one value", [](const TSearchGrid &grid) { MarkValue(grid, 77); });
    row("pointer lookup", [](const TSearchGrid &grid) { MarkPointers(grid, {0x0A, 0x5C}, 0x0F); });
}

void MeasureMapSearches(TTable &table, std::size_t size) {
    for (const TSearchImage &image : SearchImages()) {
        const char *shape = image.shape == TMapShape::Linear ? "linear maps: " : "2-D maps: ";
        table.Row(
            shape + std::string(image.name) + ", " + std::to_string(size / 1024) + " KiB",
            {CellsOf(image, size), ColorsOf(image, size)},
            [&image](const TSearchGrid &grid) {
                TMapCounters counters;
                HighlightAllMaps(grid, image.shape, image.contents, image.parameters, counters);
            },
            mapLimit);
    }
}

} // namespace

int main(int argc, char **argv) {
    TTable table(argc > 1 ? argv[1] : "");
    for (const std::size_t size : {0x10000U, 0x40000U, 0x100000U}) {
        MeasureValueSearches(table, size);
        MeasureMapSearches(table, size);
    }
    return table.AnyOver() ? 1 : 0;
}
