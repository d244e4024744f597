// Measures how long it takes to find the maps of 1 MiB, and how much memory that takes, beside a
// plain pass over the bytes that adds them up. Prints a table of the milliseconds and the ratios,
// marks what takes longer than its limit and ends with 1 when something does.
//   ferrolyn_bench_discovery
// Figures of a release build on a quiet machine are the ones to go by.

#include "Measure.h"
#include "discovery/FoundMaps.h"
#include "discovery/MovedMaps.h"
#include "truth/Corpus.h"
#include "truth/Fillers.h"

#include <cstdlib>
#include <functional>
#include <malloc.h>
#include <new>
#include <numeric>
#include <string>

namespace {

constexpr int rounds = 21;
constexpr std::size_t size = 0x100000;
constexpr double ordinaryLimit = 60; // ms
constexpr double hardLimit = 3000;   // bytes that no image has: each place looks like a map
constexpr double memoryLimit = 8;    // MiB
constexpr double movedLimit = 50;
constexpr double hardMovedLimit = 250;

std::size_t taken = 0; // bytes of memory
std::size_t mostTaken = 0;

} // namespace

void *operator new(std::size_t bytes) {
    void *memory = std::malloc(bytes);
    if (!memory)
        throw std::bad_alloc();
    taken += malloc_usable_size(memory);
    mostTaken = std::max(mostTaken, taken);
    return memory;
}

void operator delete(void *memory) noexcept {
    taken -= malloc_usable_size(memory);
    std::free(memory);
}

void operator delete(void *memory, std::size_t) noexcept {
    operator delete(memory);
}

namespace {

void Row(TTable &table, const std::string &what, const TBytes &image,
         double limit = ordinaryLimit) {
    std::size_t found = 0;
    std::size_t sum = 0;
    table.Milliseconds(
        "maps of 1 MiB, " + what,
        Measure(
            rounds, [&] { return Time([&] { found += FindMaps(image).maps.size(); }); },
            [&] { return Time([&] { sum += std::accumulate(image.begin(), image.end(), 0U); }); }),
        limit);
    if (found + sum == 0)
        std::printf("nothing was found\n");
}

/// MiB at most, at once, above what was taken before.
double MemoryOf(const TBytes &image) {
    const std::size_t before = mostTaken = taken;
    FindMaps(image);
    return static_cast<double>(mostTaken - before) / 0x100000;
}

TBytes Each(const std::function<int(std::size_t)> &byte) {
    TBytes image(size);
    for (std::size_t i = 0; i < size; ++i)
        image[i] = static_cast<std::uint8_t>(byte(i));
    return image;
}

/// The maps of a known image of 1 MiB in another one.
void MovedRow(TTable &table, const std::string &what, const TBytes &known, const TBytes &image,
              const std::vector<TTrueMap> &maps, double limit) {
    TKnownImage from{known, {}, 0x100};
    for (std::size_t i = 0; i < from.maps.size() && i < maps.size(); ++i)
        from.maps[i] = maps[i].place.offset;
    std::size_t found = 0;
    std::size_t sum = 0;
    table.Milliseconds(
        "moved maps in 1 MiB, " + what,
        Measure(
            rounds,
            [&] {
                return Time([&] { found += FindMovedMaps(from, image).maps[0].place ? 2U : 1U; });
            },
            [&] { return Time([&] { sum += std::accumulate(image.begin(), image.end(), 0U); }); }),
        limit);
    if (found + sum == 0)
        std::printf("nothing was found\n");
}

void MovedRows(TTable &table) {
    std::uint32_t number = 0;
    TTruthImage known;
    do
        known = MakeTruthImage(TCorpusHalf::HeldOut, number++);
    while (known.bytes.size() != size || known.maps.size() < 6);
    const TTruthImage revision = MakeRevision(TCorpusHalf::HeldOut, number - 1, 1);
    MovedRow(table, "a revision", known.bytes, revision.bytes, known.maps, movedLimit);
    const TBytes counts = Each([&](std::size_t) { return known.maps[0].place.rpmPoints; });
    MovedRow(table, "all counts of its maps", known.bytes, counts, known.maps, hardMovedLimit);
}

} // namespace

int main() {
    TTable table;
    double memory = 0;
    for (int i = 0; i < static_cast<int>(TFiller::Count); ++i) {
        TChance chance(1);
        const auto filler = static_cast<TFiller>(i);
        const TBytes image = Fill(filler, size, chance);
        Row(table, FillerName(filler), image);
        memory = std::max(memory, MemoryOf(image));
    }
    TChance chance(2);
    for (const int most : {3, 7, 12, 29}) {
        const TBytes image = Each([&](std::size_t) { return chance.Between(2, most); });
        Row(table, "by chance 2 to " + std::to_string(most), image, hardLimit);
        memory = std::max(memory, MemoryOf(image));
    }
    Row(table, "16 and 0 in turns", Each([](std::size_t i) { return i % 2 ? 0 : 16; }), hardLimit);
    Row(table, "30 and seven of 8", Each([](std::size_t i) { return i % 8 ? 8 : 30; }), hardLimit);
    MovedRows(table);
    table.Difference("memory, MiB", {memory, 0}, memoryLimit);
    return table.AnyOver() ? 1 : 0;
}
