#include "changes/ByteRuns.h"

#include <algorithm>
#include <cstring>

namespace {
/// Of eight bytes, as they lie in memory.
std::uint64_t Word(std::span<const std::uint8_t> bytes, std::size_t first) {
    std::uint64_t word;
    std::memcpy(&word, &bytes[first], sizeof word);
    return word;
}
} // namespace

std::vector<TByteRun> DifferingRuns(std::span<const std::uint8_t> before,
                                    std::span<const std::uint8_t> after) {
    std::vector<TByteRun> runs;
    const std::size_t size = std::min(before.size(), after.size());
    for (std::size_t i = 0; i < size;) {
        // Most of two images is alike.
        while (i + sizeof(std::uint64_t) <= size && Word(before, i) == Word(after, i))
            i += sizeof(std::uint64_t);
        while (i < size && before[i] == after[i])
            ++i;
        const std::size_t first = i;
        while (i < size && before[i] != after[i])
            ++i;
        if (i > first)
            runs.push_back(
                {static_cast<std::uint32_t>(first), static_cast<std::uint32_t>(i - first)});
    }
    return runs;
}

std::size_t BytesOf(const std::vector<TByteRun> &runs) {
    std::size_t bytes = 0;
    for (const TByteRun &run : runs)
        bytes += run.length;
    return bytes;
}
