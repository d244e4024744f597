// Measures how long it takes to find where two images of 1 MiB differ, beside a plain pass over
// both that counts the bytes that differ. Prints a table of the milliseconds and the ratios, marks
// what takes longer than its limit and ends with 1 when something does.
//   ferrolyn_bench_changes
// Figures of a release build on a quiet machine are the ones to go by.

#include "Measure.h"
#include "changes/ByteRuns.h"

#include <cstdint>
#include <random>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr int rounds = 61;
constexpr std::size_t size = 0x100000;
constexpr double ordinaryLimit = 2; // ms
constexpr double hardLimit = 10;

using TBytes = std::vector<std::uint8_t>;

[[gnu::noinline]] std::size_t PlainPass(std::span<const std::uint8_t> before,
                                        std::span<const std::uint8_t> after) {
    std::size_t differing = 0;
    for (std::size_t i = 0; i < before.size(); ++i)
        differing += static_cast<std::size_t>(before[i] != after[i]);
    return differing;
}

void Row(TTable &table, const std::string &what, const TBytes &before, const TBytes &after,
         double limit = ordinaryLimit) {
    std::size_t ours = 0;
    std::size_t plain = 0;
    const TPair figures = Measure(
        rounds, [&] { return Time([&] { ours = BytesOf(DifferingRuns(before, after)); }); },
        [&] { return Time([&] { plain = PlainPass(before, after); }); });
    if (ours != plain)
        throw std::logic_error("other bytes were found");
    table.Milliseconds("differences of 1 MiB, " + what, figures, limit);
}

TBytes RandomBytes(unsigned seed) {
    std::mt19937 random(seed);
    TBytes bytes(size);
    for (std::uint8_t &byte : bytes)
        byte = static_cast<std::uint8_t>(random());
    return bytes;
}

/// The bytes with every `step`th one changed.
TBytes WithEach(std::size_t step, TBytes bytes) {
    for (std::size_t i = step - 1; i < bytes.size(); i += step)
        bytes[i] ^= 0xFF;
    return bytes;
}
} // namespace

int main() {
    TTable table;
    const TBytes image = RandomBytes(1);
    Row(table, "none", image, image);
    Row(table, "every 4096th byte", image, WithEach(4096, image));
    Row(table, "every 64th byte", image, WithEach(64, image));
    Row(table, "all bytes", image, WithEach(1, image));
    Row(table, "random against random", image, RandomBytes(2));
    // The result alone takes 4 MiB.
    Row(table, "every other byte", image, WithEach(2, image), hardLimit);
    return table.AnyOver() ? 1 : 0;
}
