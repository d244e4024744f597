#include "filedisplay/CellBits.h"

namespace {

/// A table, because loops over it vectorise.
constexpr std::array<TColor, cellsPerRow> bitOfColumn = [] {
    std::array<TColor, cellsPerRow> bits{};
    for (std::size_t i = 0; i < bits.size(); ++i)
        bits[i] = TColor{1} << i;
    return bits;
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
