#include "filedisplay/MapSearch.h"

#include "filedisplay/CellBits.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <limits>
#include <vector>

namespace {

/// What a map must look like, apart from its place.
struct TPattern {
    TMapShape shape;
    TByteRange range;
    TColor color;
    std::int32_t rpmLocation;
    std::int32_t loadLocation;
};

TPattern PatternOf(TMapShape shape, TMapContents contents, const TSearchParameters &parameters) {
    const auto with = [&](std::int32_t minimum, std::int32_t maximum, TColor color) {
        return TPattern{shape, TByteRange(minimum, maximum), color, parameters.rpmLocation,
                        parameters.loadLocation};
    };
    if (contents == TMapContents::Fuel)
        return with(parameters.fuelMinimum, parameters.fuelMaximum, fuelMapColor);
    if (contents == TMapContents::Timing)
        return with(parameters.timingMinimum, parameters.timingMaximum, timingMapColor);
    return with(0, 255, anyMapColor);
}

constexpr TCellValue minCount = 2;
constexpr TCellValue maxCount = 30;

bool IsCount(TCellValue value) {
    return static_cast<std::uint16_t>(value - minCount) <= maxCount - minCount;
}

/// The same of a byte, of which a vectorised loop takes twice as many at once.
bool IsCount(std::uint8_t byte) {
    return static_cast<std::uint8_t>(byte - minCount) <= maxCount - minCount;
}

bool IsHeader(TCellValue value, std::int32_t location) {
    return location < 0 || value == location;
}

/// Whether a map of that pattern may start at a cell, by its first header and count.
bool MayStartAt(const TSearchGrid &grid, std::size_t position, const TPattern &pattern) {
    return IsHeader(grid.At(position), pattern.rpmLocation) && IsCount(grid.At(position + 1));
}

std::size_t CountAt(const TSearchGrid &grid, std::size_t position) {
    return static_cast<std::uint8_t>(grid.values[position]);
}

/// Where the data of a map stand; they may reach behind the last cell.
struct TData {
    std::size_t first;
    std::size_t end;
};

/// Stands for the end of data that cannot be, so that they never fit.
constexpr std::size_t nowhere = std::numeric_limits<std::size_t>::max();

/// The data of the map at `start`, where one may start; their end is nowhere when a 2-D map has no
/// second axis at its place.
TData DataAt(const TSearchGrid &grid, std::size_t start, const TPattern &pattern) {
    const std::size_t xCount = CountAt(grid, start + 1);
    const std::size_t second = start + 2 + xCount;
    if (pattern.shape == TMapShape::Linear)
        return {second, second + xCount};
    if (!IsHeader(grid.At(second), pattern.loadLocation) || !IsCount(grid.At(second + 1)))
        return {second, nowhere};
    const std::size_t yCount = CountAt(grid, second + 1);
    const std::size_t first = second + 2 + yCount;
    return {first, first + xCount * yCount};
}

/// What the cells of a run are in their map. Bit 0 tells that they are something, bit 1 what.
enum TRole : std::uint8_t { noRole = 0, axisRole = 1, dataRole = 3 };

/// Marks the map, but leaves its runs to `markRun(first, count, role)`, called in reading order.
template <typename TMarkRun>
void MarkMap(const TSearchGrid &grid, std::size_t start, TData data, const TPattern &pattern,
             TMapCounters &counters, const TMarkRun &markRun) {
    const auto markAxis = [&](std::size_t count) {
        grid.colors[count] = axisCountColor;
        markRun(count + 1, CountAt(grid, count), axisRole);
    };
    markAxis(start + 1);
    if (pattern.shape == TMapShape::Linear) {
        grid.colors[start] = pattern.color;
        ++counters.linear;
    } else {
        const std::size_t second = start + 2 + CountAt(grid, start + 1);
        grid.colors[start] = pattern.color + 2;
        grid.colors[second] = searchedColor;
        markAxis(second + 1);
        ++counters.twoD;
    }
    markRun(data.first, data.end - data.first, dataRole);
}

TColor AxisColor(const TPattern &pattern) {
    return pattern.shape == TMapShape::Linear ? linearAxisColor : twoDAxisColor;
}

/// The axis values and data of found maps, which it paints many at a time: where maps are small, a
/// loop over each run would cost far more than the search.
class TFoundRuns {
public:
    /// Keeps the references.
    TFoundRuns(const TSearchGrid &grid, const TPattern &pattern) : grid_(grid), pattern_(pattern) {}

    /// To be called before the runs from `first` to before `end` are added; paints when need be.
    void MakeRoom(std::size_t first, std::size_t end) {
        if (end <= begin_ + capacity)
            return;
        Paint();
        roles_.fill(noRole);
        begin_ = first - first % cellsPerWord;
        end_ = first;
    }

    /// To be called in reading order. Writes whole blocks, over the cells behind the run too: how
    /// many blocks a run needs is seldom in doubt, how many cells always, and a wrong guess of the
    /// processor is dear.
    void Add(std::size_t first, std::size_t count, TRole role) {
        if (first != end_)
            SetBlock(end_, noRole);
        end_ = first + count;
        for (; first < end_; first += block)
            SetBlock(first, role);
    }

    /// To be called behind the last Add, too.
    void Paint() {
        SetBlock(end_, noRole);
        for (std::size_t first = begin_; first < end_; first += cellsPerWord) {
            const std::uint8_t *roles = &roles_[first - begin_];
            std::uint8_t any = noRole;
            for (std::size_t i = 0; i < cellsPerWord; ++i)
                any |= roles[i];
            if (any != noRole)
                PaintCells(first, std::min(cellsPerWord, grid_.values.size() - first));
        }
    }

private:
    static constexpr std::size_t block = 16;
    static constexpr std::size_t capacity = 64 * cellsPerWord;

    void SetBlock(std::size_t first, TRole role) {
        std::memset(&roles_[first - begin_], role, block);
    }

    void PaintCells(std::size_t first, std::size_t count) const {
        const TCellValue *values = &grid_.values[first];
        const std::uint8_t *roles = &roles_[first - begin_];
        TColor *colors = &grid_.colors[first];
        const TColor axis = AxisColor(pattern_);
        const TColor data = pattern_.color;
        const int axisShift = SmallestChannelShift(axis);
        const int dataShift = SmallestChannelShift(data);
        const bool alike = axisShift == dataShift;
        // Masks instead of choices, because the loop vectorises better.
        for (std::size_t i = 0; i < count; ++i) {
            const TColor role = roles[i];
            const TColor isRun = TColor{0} - (role & axisRole);
            const TColor isData = TColor{0} - (role >> 1);
            const TColor value = static_cast<std::uint16_t>(values[i]);
            const TColor axisShade = value << axisShift;
            const TColor shade =
                alike ? axisShade : (axisShade & ~isData) | ((value << dataShift) & isData);
            const TColor color = axis + ((data - axis) & isData) + shade;
            colors[i] = (colors[i] & ~isRun) | (color & isRun);
        }
    }

    const TSearchGrid &grid_;
    const TPattern &pattern_;
    std::size_t begin_ = 0; ///< the cell of the first role
    std::size_t end_ = 0;   ///< of the last run
    std::array<std::uint8_t, capacity + 2 * block> roles_{};
};

/// Tests all cells of a word at once for maps that start there, at the same cost whatever the bytes
/// are: a test that ends at the first misfit makes the processor guess, and wrongly on a bad image.
/// It looks at two words, for a map that starts in the first has all but the rest of its data
/// there.
class TMapWindow {
public:
    /// Keeps the references.
    TMapWindow(const TSearchGrid &grid, const TPattern &pattern, const TRuns &runs)
        : grid_(grid), pattern_(pattern), runs_(runs) {
        yCounts_.fill(1);
    }

    /// The cells of `word` at which a map fits, whatever their colours are.
    TCellBits FitsIn(std::size_t word) {
        if (!runs_.AnyIn(word) && !runs_.AnyIn(word + 1))
            return 0;
        MoveTo(word);
        return pattern_.shape == TMapShape::Linear ? LinearFits() : TwoDFits();
    }

private:
    using TCounts = std::array<std::uint8_t, cellsPerWord>;
    using TSpareCells = std::array<std::int16_t, cellsPerWord>;

    /// Stands for a count that no map has. What it leads to lies behind the two words, where all
    /// lengths are 0, so that nothing fits.
    static constexpr std::uint8_t noCount = 255;

    void MoveTo(std::size_t word) {
        if (word != word_ + 1)
            Prepare(word);
        std::copy_n(xCounts_.begin() + cellsPerWord, cellsPerWord, xCounts_.begin());
        std::copy_n(yCounts_.begin() + cellsPerWord, cellsPerWord, yCounts_.begin());
        std::copy_n(lengths_.begin() + cellsPerWord, cellsPerWord, lengths_.begin());
        Prepare(word + 1);
        word_ = word;
    }

    /// Fills the places of the second word.
    void Prepare(std::size_t word) {
        const TCounts xCounts = CountsIn(word, pattern_.rpmLocation);
        std::copy(xCounts.begin(), xCounts.end(), xCounts_.begin() + cellsPerWord);
        if (pattern_.shape == TMapShape::TwoD) {
            const bool same = pattern_.loadLocation == pattern_.rpmLocation;
            const TCounts yCounts = same ? xCounts : CountsIn(word, pattern_.loadLocation);
            std::copy(yCounts.begin(), yCounts.end(), yCounts_.begin() + cellsPerWord);
        }
        const TRuns::TLengths lengths = runs_.LengthsIn(word);
        std::copy(lengths.begin(), lengths.end(), lengths_.begin() + cellsPerWord);
    }

    /// For each cell of a word: the count behind it when it is a header, else noCount.
    TCounts CountsIn(std::size_t word, std::int32_t location) const {
        // All bits of a header are compared, or none.
        const auto compared = static_cast<std::uint8_t>(location < 0 ? 0 : 0xFF);
        const auto wanted = static_cast<std::uint8_t>(location);
        const auto count = [=](TCellValue header, TCellValue value) {
            const auto byte = static_cast<std::uint8_t>(value); // -1 becomes 255, no count either
            const bool fits = static_cast<std::uint8_t>((header ^ wanted) & compared) == 0;
            const std::uint8_t known = IsCount(byte) ? byte : noCount;
            return fits ? known : noCount;
        };
        const std::size_t first = word * cellsPerWord;
        TCounts counts;
        if (first + cellsPerWord < grid_.values.size()) {
            const TCellValue *values = &grid_.values[first];
            for (std::size_t i = 0; i < cellsPerWord; ++i)
                counts[i] = count(values[i], values[i + 1]);
        } else {
            for (std::size_t i = 0; i < cellsPerWord; ++i)
                counts[i] = count(grid_.At(first + i), grid_.At(first + i + 1));
        }
        return counts;
    }

    TCellBits LinearFits() const {
        TSpareCells spare;
        for (std::size_t row = 0; row < cellsPerWord; row += 8)
            for (std::size_t i = row; i < row + 8; ++i)
                spare[i] = static_cast<std::int16_t>(lengths_[i + 2 + xCounts_[i]]);
        for (std::size_t i = 0; i < cellsPerWord; ++i)
            spare[i] = static_cast<std::int16_t>(spare[i] - xCounts_[i]);
        return EnoughIn(spare);
    }

    TCellBits TwoDFits() const {
        TSpareCells spare;
#pragma GCC unroll 8
        for (std::size_t i = 0; i < cellsPerWord; ++i) {
            const std::size_t x = xCounts_[i];
            const std::size_t y = yCounts_[i + 2 + x];
            spare[i] = static_cast<std::int16_t>(lengths_[i + 4 + x + y] - x * y);
        }
        return EnoughIn(spare);
    }

    /// Where the run is not shorter than the data.
    static TCellBits EnoughIn(const TSpareCells &spare) {
        return BitsOf(std::span<const std::int16_t>(spare), 0,
                      [](std::int16_t cells) { return cells >= 0; });
    }

    static constexpr std::size_t none = std::numeric_limits<std::size_t>::max() - 1;

    const TSearchGrid &grid_;
    const TPattern &pattern_;
    const TRuns &runs_;
    std::size_t word_ = none; ///< the first of the two
    // Of the cells of both words, and behind them what noCount leads to.
    std::array<std::uint8_t, 2 * cellsPerWord> xCounts_{};
    std::array<std::uint8_t, 2 * cellsPerWord + noCount> yCounts_{};
    std::array<std::uint16_t, 2 * cellsPerWord + 2 * std::size_t{noCount}>
        lengths_{}; ///< of runs of data
};

/// Finds the unmarked cells at which a map starts. The last two rows have none.
class TMapStarts {
public:
    static constexpr std::size_t none = std::numeric_limits<std::size_t>::max();

    /// Keeps the references.
    TMapStarts(const TSearchGrid &grid, const TPattern &pattern)
        : grid_(grid),
          pattern_(pattern),
          cells_(grid.colors.first((grid.Rows() - 2) * cellsPerRow)),
          runs_(grid.values, pattern.range),
          window_(grid, pattern, runs_) {}

    /// The first one at or behind `position`, or `none`.
    std::size_t From(std::size_t position) {
        for (; position < cells_.size(); position = (word_ + 1) * cellsPerWord) {
            if (position / cellsPerWord != word_)
                LookAt(position / cellsPerWord);
            const TCellBits ahead = starts_ & ~TCellBits{0} << position % cellsPerWord;
            if (ahead != 0)
                return word_ * cellsPerWord + static_cast<std::size_t>(std::countr_zero(ahead));
        }
        return none;
    }

    /// Whether `position` is one, provided that the data which a map would have there Fit.
    bool MayBeAt(std::size_t position) const {
        return position < cells_.size() && cells_[position] == unmarkedColor &&
               MayStartAt(grid_, position, pattern_);
    }
    bool Fit(TData data) const { return runs_.EndOfRun(data.first) >= data.end; }

private:
    /// May be wrong in the last word, where it is true.
    bool IsAnyMarkedIn(std::size_t word) const {
        const auto cells = cells_.subspan(word * cellsPerWord);
        if (cells.size() < cellsPerWord)
            return true;
        TColor difference = 0;
        for (std::size_t i = 0; i < cellsPerWord; ++i)
            difference |= cells[i] ^ unmarkedColor;
        return difference != 0;
    }

    void LookAt(std::size_t word) {
        word_ = word;
        starts_ = window_.FitsIn(word);
        if (starts_ != 0 && IsAnyMarkedIn(word))
            starts_ &= BitsOf(cells_, word, [](TColor color) { return color == unmarkedColor; });
    }

    const TSearchGrid &grid_;
    const TPattern &pattern_;
    std::span<const TColor> cells_;
    TRuns runs_;
    TMapWindow window_;
    std::size_t word_ = none; ///< the one that was looked at last
    TCellBits starts_ = 0;    ///< in that word
};

TFound HighlightAll(const TSearchGrid &grid, const TPattern &pattern, TMapCounters &counters) {
    TFound found;
    TMapStarts starts(grid, pattern);
    TFoundRuns runs(grid, pattern);
    // Where maps stand side by side, a look at the one cell behind a map is cheaper than one at all
    // cells of its word; elsewhere the wrong guesses make it dearer.
    constexpr int many = 4;
    int sideBySide = 0;
    std::size_t position = 0;
    while (true) {
        const bool guessed = sideBySide >= many && starts.MayBeAt(position);
        const std::size_t start = guessed ? position : starts.From(position);
        if (start == TMapStarts::none)
            break;
        const TData data = DataAt(grid, start, pattern);
        if (guessed && !starts.Fit(data)) {
            sideBySide = 0;
            continue;
        }
        found.first = found.count == 0 ? start : found.first;
        ++found.count;
        runs.MakeRoom(start, data.end);
        MarkMap(grid, start, data, pattern, counters,
                [&runs](std::size_t first, std::size_t count, TRole role) {
                    runs.Add(first, count, role);
                });
        // A product, because whether they do is a wrong guess each second time on a bad image.
        sideBySide = (sideBySide + 1) * (start == position ? 1 : 0);
        position = data.end;
    }
    runs.Paint();
    return found;
}

} // namespace

TMapStep HighlightMapAt(const TSearchGrid &grid, std::size_t position, TMapShape shape,
                        TMapContents contents, const TSearchParameters &parameters,
                        TMapCounters &counters) {
    const TPattern pattern = PatternOf(shape, contents, parameters);
    const TMapStep nothing{false, position + 1};
    if (position >= grid.values.size() || pattern.range.IsEmpty() ||
        !MayStartAt(grid, position, pattern))
        return nothing;
    const TData data = DataAt(grid, position, pattern);
    if (data.end > grid.values.size())
        return nothing;
    const auto values = grid.values.subspan(data.first, data.end - data.first);
    if (!std::all_of(values.begin(), values.end(),
                     [&](TCellValue value) { return pattern.range.Contains(value); }))
        return nothing;
    MarkMap(grid, position, data, pattern, counters,
            [&](std::size_t first, std::size_t count, TRole role) {
                MarkRun(grid, first, count, role == axisRole ? AxisColor(pattern) : pattern.color);
            });
    return {true, data.end};
}

TFound HighlightAllMaps(const TSearchGrid &grid, TMapShape shape, TMapContents contents,
                        const TSearchParameters &parameters, TMapCounters &counters) {
    const TPattern pattern = PatternOf(shape, contents, parameters);
    const bool bytes =
        pattern.rpmLocation <= 255 && (shape == TMapShape::Linear || pattern.loadLocation <= 255);
    if (!bytes || pattern.range.IsEmpty() || grid.Rows() <= 2)
        return {};
    return HighlightAll(grid, pattern, counters);
}
