// Cells taken 64 at a time, one bit each, so that the searches decide about many cells at once.
// Bit i of word w stands for cell 64 * w + i. What the bits mean is the searches' business.
#pragma once

#include "filedisplay/SearchCells.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <vector>

using TCellBits = std::uint64_t;

inline constexpr std::size_t cellsPerWord = 64;

/// Packs 8 flags (0 or 1) into the bits 0 to 7: the product brings each to its place in the top
/// byte, and no two of its terms meet.
inline TCellBits PackFlags(const std::uint8_t *flags) {
    constexpr TCellBits places =
        std::endian::native == std::endian::little ? 0x0102040810204080 : 0x8040201008040201;
    TCellBits bytes = 0;
    std::memcpy(&bytes, flags, sizeof bytes);
    return bytes * places >> 56;
}

/// The cells of word `word` for which `test` holds; 0 for those behind the last cell.
template <typename TCell, typename TTest>
TCellBits BitsOf(std::span<const TCell> cells, std::size_t word, TTest test) {
    const std::size_t first = word * cellsPerWord;
    if (first >= cells.size())
        return 0;
    const TCell *cell = cells.data() + first;
    std::array<std::uint8_t, cellsPerWord> flags{};
    // A constant length, so that the compiler vectorises the loop.
    if (cells.size() - first >= cellsPerWord) {
        for (std::size_t i = 0; i < cellsPerWord; ++i)
            flags[i] = test(cell[i]) ? 1 : 0;
    } else {
        for (std::size_t i = 0; i < cells.size() - first; ++i)
            flags[i] = test(cell[i]) ? 1 : 0;
    }
    TCellBits bits = 0;
    for (std::size_t i = 0; i < cellsPerWord; i += 8)
        bits |= PackFlags(&flags[i]) << i;
    return bits;
}

/// Gives `color` to the cells of word `word` whose bit is set. Bits behind the last cell must be 0.
void MarkBits(std::span<TColor> colors, std::size_t word, TCellBits bits, TColor color);

/// The runs of cells in one range, looked up in constant time.
class TRuns {
public:
    /// How far behind the last cell EndOfRun may be asked.
    static constexpr std::size_t margin = 6 * cellsPerWord;

    /// LengthsIn knows no longer runs.
    static constexpr std::size_t maxLength = 64 * cellsPerWord;

    using TLengths = std::array<std::uint16_t, cellsPerWord>;

    /// Keeps nothing of `values`.
    TRuns(std::span<const TCellValue> values, const TByteRange &range);

    /// The first cell at or behind `position` that is out of range; every cell behind the last is.
    std::size_t EndOfRun(std::size_t position) const {
        const TWord &word = words_[position / cellsPerWord];
        const TCellBits outside = word.outside >> (position % cellsPerWord);
        const auto near = position + static_cast<std::size_t>(std::countr_zero(outside));
        return outside != 0 ? near : word.firstOutsideBehind;
    }

    /// Whether a cell of word `word` is in range.
    bool AnyIn(std::size_t word) const { return words_[word].outside != ~TCellBits{0}; }

    /// For each cell of word `word`: how many cells from it on are in range; of a longer run than
    /// maxLength, at least maxLength.
    TLengths LengthsIn(std::size_t word) const;

private:
    struct TWord {
        TCellBits outside;
        std::size_t firstOutsideBehind; ///< in the words behind this one
    };
    std::vector<TWord> words_;
};
