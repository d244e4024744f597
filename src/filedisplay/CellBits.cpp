#include "filedisplay/CellBits.h"

namespace {

/// A table, because loops over it vectorise.
constexpr std::array<TColor, cellsPerRow> bitOfColumn = [] {
    std::array<TColor, cellsPerRow> bits{};
    for (std::size_t i = 0; i < bits.size(); ++i)
        bits[i] = TColor{1} << i;
    return bits;
}();

/// For every byte of bits and each of its 8 cells: how many cells from it on are not set, and
/// whether these reach to the last of the 8 (all bits set) or not (0). Tables, because loops over
/// them vectorise.
struct TByteRuns {
    std::array<std::array<std::uint16_t, 8>, 256> length;
    std::array<std::array<std::uint16_t, 8>, 256> tail;
};

constexpr TByteRuns byteRuns = [] {
    TByteRuns table{};
    for (std::size_t byte = 0; byte < 256; ++byte) {
        std::uint16_t length = 0;
        std::uint16_t tail = 0xFFFF;
        for (std::size_t i = 8; i-- > 0;) {
            const bool set = (byte >> i & 1) != 0;
            length = static_cast<std::uint16_t>(set ? 0 : length + 1);
            tail = set ? std::uint16_t{0} : tail;
            table.length[byte][i] = length;
            table.tail[byte][i] = tail;
        }
    }
    return table;
}();

} // namespace

void MarkBits(std::span<TColor> colors, std::size_t word, TCellBits bits, TColor color) {
    const std::size_t first = word * cellsPerWord;
    if (colors.size() - first < cellsPerWord) {
        for (; bits != 0; bits &= bits - 1)
            colors[first + static_cast<std::size_t>(std::countr_zero(bits))] = color;
        return;
    }
    for (std::size_t row = 0; row < cellsPerWord; row += cellsPerRow) {
        const auto rowBits = static_cast<TColor>(bits >> row);
        TColor *cell = colors.data() + first + row;
        for (std::size_t i = 0; i < cellsPerRow; ++i)
            cell[i] = (rowBits & bitOfColumn[i]) != 0 ? color : cell[i];
    }
}

TRuns::TRuns(std::span<const TCellValue> values, const TByteRange &range)
    : words_((values.size() + margin) / cellsPerWord + 1) {
    std::size_t firstOutside = words_.size() * cellsPerWord;
    for (std::size_t i = words_.size(); i-- > 0;) {
        const TCellBits outside =
            ~BitsOf(values, i, [&range](TCellValue value) { return range.Contains(value); });
        words_[i] = {outside, firstOutside};
        if (outside != 0)
            firstOutside = i * cellsPerWord + static_cast<std::size_t>(std::countr_zero(outside));
    }
}

TRuns::TLengths TRuns::LengthsIn(std::size_t word) const {
    const TCellBits outside = words_[word].outside;
    // Of the run that goes on behind the cells that are left.
    auto behind = static_cast<unsigned>(
        std::min(words_[word].firstOutsideBehind - (word + 1) * cellsPerWord, maxLength));
    TLengths lengths;
    for (std::size_t row = cellsPerWord / 8; row-- > 0;) {
        const auto byte = static_cast<unsigned>(outside >> 8 * row & 0xFF);
        for (std::size_t i = 0; i < 8; ++i)
            lengths[8 * row + i] = static_cast<std::uint16_t>(
                byteRuns.length[byte][i] +
                (static_cast<std::uint16_t>(behind) & byteRuns.tail[byte][i]));
        behind = byte != 0 ? static_cast<unsigned>(std::countr_zero(byte)) : behind + 8;
    }
    return lengths;
}
