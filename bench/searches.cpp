// Measures the searches of the contents view beside the plain pass over an image that a search
// cannot do without: one that looks at each cell's value and writes a 32-bit colour into the cell,
//     for each cell: color = value in the range ? lime : unmarked
// compiled as the searches are (the compiler vectorises it). Prints a table of the ratios with
// their limits, marks what is over and ends with 1 when something is.
//   ferrolyn_bench_searches
// Figures of a release build on a quiet machine are the ones to go by.

#include "filedisplay/Searches.h"

#include "Measure.h"
#include "SearchImages.h"
#include "filedisplay/MapSearch.h"

#include <algorithm>
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

using TPass = std::function<void(const TSearchGrid &)>;

/// The cells that one row of the table is measured on.
class TMeasuredCells {
public:
    TMeasuredCells(std::vector<TCellValue> values, std::vector<TColor> marked)
        : values_(std::move(values)), marked_(std::move(marked)), colors_(marked_) {}

    /// Milliseconds of one pass, from the colours before the search on.
    double Time(const TPass &pass) {
        std::copy(marked_.begin(), marked_.end(), colors_.begin());
        const TSearchGrid grid{values_, colors_};
        return ::Time([&] { pass(grid); });
    }

private:
    std::vector<TCellValue> values_;
    std::vector<TColor> marked_;
    std::vector<TColor> colors_;
};

/// One row of the table: the search beside the plain pass, both on these cells.
void Row(TTable &table, const std::string &what, TMeasuredCells cells, const TPass &search,
         double limit) {
    table.Ratio(
        what,
        Measure(
            rounds, [&] { return cells.Time(search); }, [&] { return cells.Time(PlainPass); }),
        limit);
}

void MeasureValueSearches(TTable &table, std::size_t size) {
    const std::string suffix = ", " + std::to_string(size / 1024) + " KiB";
    const auto row = [&](const char *what, const TPass &search) {
        Row(table, what + suffix, {RandomCells(size), std::vector<TColor>(size, unmarkedColor)},
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
        Row(
            table, shape + std::string(image.name) + ", " + std::to_string(size / 1024) + " KiB",
            {CellsOf(image, size), ColorsOf(image, size)},
            [&image](const TSearchGrid &grid) {
                TMapCounters counters;
                HighlightAllMaps(grid, image.shape, image.contents, image.parameters, counters);
            },
            mapLimit);
    }
}

} // namespace

int main() {
    TTable table;
    for (const std::size_t size : {0x10000U, 0x40000U, 0x100000U}) {
        MeasureValueSearches(table, size);
        MeasureMapSearches(table, size);
    }
    return table.AnyOver() ? 1 : 0;
}
