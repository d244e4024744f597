#include "changes/ByteRuns.h"

#include <algorithm>
#include <cstring>

namespace {
constexpr std::size_t block = 4096; // compared at once: most of two images is alike
} // namespace

std::vector<TByteRun> DifferingRuns(std::span<const std::uint8_t> before,
                                    std::span<const std::uint8_t> after) {
    std::vector<TByteRun> runs;
    const std::size_t size = std::min(before.size(), after.size());
    for (std::size_t first = 0; first < size; first += block) {
        const std::size_t end = std::min(first + block, size);
        if (std::memcmp(&before[first], &after[first], end - first) == 0)
            continue;
        for (std::size_t i = first; i < end; ++i) {
            if (before[i] == after[i])
                continue;
            const auto offset = static_cast<std::uint32_t>(i);
            if (runs.empty() || runs.back().offset + runs.back().length != offset)
                runs.push_back({offset, 0});
            ++runs.back().length;
        }
    }
    return runs;
}

std::size_t BytesOf(const std::vector<TByteRun> &runs) {
    std::size_t bytes = 0;
    for (const TByteRun &run : runs)
        bytes += run.length;
    return bytes;
}
