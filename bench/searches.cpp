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
#include "samples/SampleFiles.h"

#include <functional>
#include <string>
#include <utility>
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

/// The sample image as often as it goes into 1 MiB: what an ordinary image is like.
std::vector<TCellValue> OrdinaryCells() {
    const std::string bytes = SampleFiles().front().bytes;
    std::vector<TCellValue> cells(size);
    for (std::size_t i = 0; i < size; ++i)
        cells[i] = static_cast<unsigned char>(bytes[i % bytes.size()]);
    return cells;
}

void OrdinaryRow(TTable &table, const std::string &what, const TSearch &search) {
    Row(table, what + ", ordinary", {OrdinaryCells(), std::vector<TColor>(size, unmarkedColor)},
        search, ordinaryLimit);
}

/// On random bytes, too, at which every guess of the processor may be wrong.
void MeasureSearch(TTable &table, const std::string &what, const TSearch &search) {
    OrdinaryRow(table, what, search);
    Row(table, what + ", random", {RandomCells(size), std::vector<TColor>(size, unmarkedColor)},
        search, hardLimit);
}

void MeasureValueSearches(TTable &table) {
    MeasureSearch(table, "possible fuel values", [](const TSearchGrid &grid) {
        MarkPossibleValues(grid, TSearchParameters().Fuel(), possibleFuelColor);
    });
    MeasureSearch(table, "possible timing values", [](const TSearchGrid &grid) {
        MarkPossibleValues(grid, TSearchParameters().Timing(), possibleTimingColor);
    });
    MeasureSearch(table, "one value", [](const TSearchGrid &grid) { MarkValue(grid, 77); });
    MeasureSearch(table, "pointer lookup", [](const TSearchGrid &grid) {
        MarkPointers(grid, {0x0A, 0x5C}, 0x0F);
    });
    MeasureSearch(table, "pointer lookup, one bit compared", [](const TSearchGrid &grid) {
        MarkPointers(grid, {0x01, 0x5C}, 0x01);
    });
}

void MeasureMapSearches(TTable &table) {
    const std::pair<TMapContents, const char *> kinds[] = {
        {TMapContents::Fuel, "fuel"}, {TMapContents::Timing, "timing"}, {TMapContents::Any, "any"}};
    for (const TMapShape shape : {TMapShape::Linear, TMapShape::TwoD})
        for (const auto &[contents, name] : kinds) {
            const char *start = shape == TMapShape::Linear ? "linear " : "2-D ";
            OrdinaryRow(table, start + std::string(name) + " maps", [&](const TSearchGrid &grid) {
                TMapCounters counters;
                HighlightAllMaps(grid, shape, contents, TSearchParameters(), counters);
            });
        }
    for (const TSearchImage &image : SearchImages()) {
        const char *shape = image.shape == TMapShape::Linear ? "linear maps: " : "2-D maps: ";
        Row(
            table, shape + std::string(image.name), {CellsOf(image, size), ColorsOf(image, size)},
            [&image](const TSearchGrid &grid) {
                TMapCounters counters;
                HighlightAllMaps(grid, image.shape, image.contents, image.parameters, counters);
            },
            hardLimit);
    }
}

} // namespace

int main() {
    TTable table;
    MeasureValueSearches(table);
    MeasureMapSearches(table);
    return table.AnyOver() ? 1 : 0;
}
