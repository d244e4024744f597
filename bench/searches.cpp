// Measures the searches of the contents view beside the plain pass over an image that a search
// cannot do without: one that looks at each cell's value and writes a 32-bit colour into the cell,
//     for each cell: color = value in the range ? lime : unmarked
// compiled as the searches are (the compiler vectorises it). Prints a table of the milliseconds and
// the ratios, marks the searches that take longer than their limit and ends with 1 when one does.
//   ferrolyn_bench_searches
// Figures of a release build on a quiet machine are the ones to go by.

#include "filedisplay/Searches.h"

#include "Measure.h"
#include "SearchImages.h"
#include "filedisplay/MapSearch.h"

#include <functional>
#include <string>
#include <vector>

namespace {

constexpr int rounds = 61; // of each search and each pass
constexpr std::size_t size = 0x100000;
constexpr double ordinaryLimit = 3; // ms
constexpr double hardLimit = 10;

[[gnu::noinline]] void PlainPass(std::span<const TCellValue> values, std::span<TColor> colors) {
    for (std::size_t i = 0; i < values.size(); ++i)
        colors[i] = values[i] >= 90 && values[i] <= 200 ? possibleFuelColor : unmarkedColor;
}

using TSearch = std::function<void(const TSearchGrid &)>;

/// The cells that one row of the table is measured on.
class TMeasuredCells {
public:
    TMeasuredCells(std::vector<TCellValue> values, std::vector<TColor> marked)
        : values_(std::move(values)), marked_(std::move(marked)), colors_(marked_) {}

    /// Milliseconds of one search, from the colours before it on.
    double Time(const TSearch &search) {
        colors_ = marked_;
        const TSearchGrid grid{values_, colors_};
        return ::Time([&] { search(grid); });
    }
    double TimePlainPass() {
        colors_ = marked_;
        return ::Time([this] { PlainPass(values_, colors_); });
    }

private:
    std::vector<TCellValue> values_;
    std::vector<TColor> marked_;
    std::vector<TColor> colors_;
};

/// One row of the table: the search beside the plain pass, both on these cells.
void Row(TTable &table, const std::string &what, TMeasuredCells cells, const TSearch &search,
         double limit) {
    table.Milliseconds(
        what,
        Measure(
            rounds, [&] { return cells.Time(search); }, [&] { return cells.TimePlainPass(); }),
        limit);
}

void MeasureValueSearches(TTable &table) {
    const auto row = [&](const char *what, double limit, const TSearch &search) {
        Row(table, what, {RandomCells(size), std::vector<TColor>(size, unmarkedColor)}, search,
            limit);
    };
    row("possible fuel values", ordinaryLimit,
        [](const TSearchGrid &grid) { MarkPossibleFuelValues(grid, TSearchParameters()); });
    row("possible timing values", ordinaryLimit,
        [](const TSearchGrid &grid) { MarkPossibleTimingValues(grid, TSearchParameters()); });
    row("one value", ordinaryLimit, [](const TSearchGrid &grid) { MarkValue(grid, 77); });
    row("pointer lookup", ordinaryLimit, [](const TSearchGrid &grid) {
        MarkPointers(grid, {0x0A, 0x5C}, 0x0F);
    });
    row("pointer lookup, one bit compared", hardLimit, [](const TSearchGrid &grid) {
        MarkPointers(grid, {0x01, 0x5C}, 0x01);
    });
}

void MeasureMapSearches(TTable &table) {
    for (const TSearchImage &image : SearchImages()) {
        const char *shape = image.shape == TMapShape::Linear ? "linear maps: " : "2-D maps: ";
        Row(
            table, shape + std::string(image.name), {CellsOf(image, size), ColorsOf(image, size)},
            [&image](const TSearchGrid &grid) {
                TMapCounters counters;
                HighlightAllMaps(grid, image.shape, image.contents, image.parameters, counters);
            },
            image.hard ? hardLimit : ordinaryLimit);
    }
}

} // namespace

int main() {
    TTable table;
    MeasureValueSearches(table);
    MeasureMapSearches(table);
    return table.AnyOver() ? 1 : 0;
}
