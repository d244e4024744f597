// Fuzz target: the searches of the contents view against their literal counterpart. An input is one
// image with the searches to run on it, one after another on the same colours; after each of them
// colours and counters must be the same. Ends the process at the first difference.
//
// The input: one byte of flags (1: cell texts in hexadecimal, 2: values filled up to the row's
// end), one byte with the number of searches, four bytes for each (kind, a byte, a 16-bit number
// with its low byte first), then the image. What an input lacks is 0.
#include "filedisplay/Searches.h"

#include "FuzzInput.h"
#include "filedisplay/MapSearch.h"
#include "searches/LiteralSearches.h"
#include "searches/TestCells.h"

#include <string>
#include <vector>

namespace {

/// The literal counterpart is slow; this holds the largest map.
constexpr std::size_t maxImage = 1024;
constexpr std::size_t maxSearches = 16;

struct TSearch {
    int kind;
    std::uint8_t byte;
    std::int32_t word;

    std::int32_t Number() const { return static_cast<std::int16_t>(word); }
};

[[noreturn]] void Differs(const std::string &what, std::size_t search, std::size_t cell) {
    Finding("search " + std::to_string(search) + ": " + what + " differs, cell " +
            std::to_string(cell));
}

class TTwins {
public:
    TTwins(const TBytes &image, bool hex, bool padded)
        : real_(image, padded), literal_(image, hex) {}

    void Run(const TSearch &search) {
        constexpr int firstParameter = 0;
        constexpr int firstValueSearch = 7;
        constexpr int firstSingleMap = 12;
        constexpr int firstAllMaps = 18;
        constexpr int kinds = 24;
        ++count_;
        const int kind = search.kind % kinds;
        if (kind >= firstAllMaps)
            AllMaps(kind - firstAllMaps);
        else if (kind >= firstSingleMap)
            SingleMap(kind - firstSingleMap, search);
        else if (kind >= firstValueSearch)
            Values(kind - firstValueSearch, search);
        else
            SetParameter(kind - firstParameter, search);
        Compare();
    }

private:
    void SetParameter(int which, const TSearch &search) {
        std::int32_t *const numbers[] = {&parameters_.fuelMinimum,   &parameters_.fuelMaximum,
                                         &parameters_.timingMinimum, &parameters_.timingMaximum,
                                         &parameters_.rpmLocation,   &parameters_.loadLocation};
        if (which < 6)
            *numbers[which] = search.Number();
        else
            parameters_.pointerMask = search.byte;
    }

    void Values(int which, const TSearch &search) {
        switch (which) {
        case 0:
            MarkPossibleValues(real_.Grid(), parameters_.Fuel(), possibleFuelColor);
            literal_.MarkPossible(parameters_.fuelMinimum, parameters_.fuelMaximum, 0x00FF00);
            break;
        case 1:
            MarkPossibleValues(real_.Grid(), parameters_.Timing(), possibleTimingColor);
            literal_.MarkPossible(parameters_.timingMinimum, parameters_.timingMaximum, 0xFF00FF);
            break;
        case 2:
            MarkValue(real_.Grid(), search.Number());
            literal_.MarkValue(search.Number());
            break;
        case 3:
            Pointers(static_cast<std::int8_t>(search.byte) * 0x10000 + search.word);
            break;
        default:
            ClearAllMarkers(real_.Grid(), counters_);
            for (std::size_t i = 0; i < real_.colors.size(); ++i)
                literal_.SetColor(Column(i), Row(i), 0x80000005);
            literal_.linearFound = 0;
            literal_.twoDFound = 0;
        }
    }

    void Pointers(std::int32_t address) {
        const auto split = SplitAddress(address);
        if (split.has_value() != (address >= 0 && address <= 0xFFFF))
            Differs("whether the address is one", count_, 0);
        if (!split)
            return;
        MarkPointers(real_.Grid(), *split, parameters_.pointerMask);
        literal_.FindPointers(address / 256, address % 256, parameters_.pointerMask);
    }

    void SingleMap(int pattern, const TSearch &search) {
        if (real_.values.empty())
            return;
        const std::size_t cell = static_cast<std::size_t>(search.word) % real_.values.size();
        literal_.column = Column(cell);
        literal_.row = Row(cell);
        const TMapStep step = HighlightMapAt(real_.Grid(), cell, Shape(pattern), Contents(pattern),
                                             parameters_, counters_);
        if (literal_.MapAtCurrentCell(Literal(pattern)) != step.found)
            Differs("whether there is a map", count_, cell);
        if (literal_.column != Column(step.next) || literal_.row != Row(step.next))
            Differs("where to go on", count_, cell);
    }

    void AllMaps(int pattern) {
        HighlightAllMaps(real_.Grid(), Shape(pattern), Contents(pattern), parameters_, counters_);
        literal_.SearchAndHighlight(Literal(pattern));
    }

    void Compare() const {
        if (counters_.linear != literal_.linearFound || counters_.twoD != literal_.twoDFound)
            Differs("the number of maps", count_, 0);
        for (std::size_t i = 0; i < real_.colors.size(); ++i)
            if (real_.colors[i] != literal_.Color(Column(i), Row(i)))
                Differs("the colour", count_, i);
    }

    static TMapShape Shape(int pattern) {
        return pattern % 2 == 0 ? TMapShape::Linear : TMapShape::TwoD;
    }
    static TMapContents Contents(int pattern) {
        return pattern / 2 == 0   ? TMapContents::Fuel
               : pattern / 2 == 1 ? TMapContents::Timing
                                  : TMapContents::Any;
    }
    TLiteralMapSearch Literal(int pattern) const {
        TLiteralMapSearch search{pattern % 2 != 0,        0, 255, 0xFFFFFF, parameters_.rpmLocation,
                                 parameters_.loadLocation};
        if (Contents(pattern) == TMapContents::Fuel) {
            search.minimum = parameters_.fuelMinimum;
            search.maximum = parameters_.fuelMaximum;
            search.color = 0x008000;
        } else if (Contents(pattern) == TMapContents::Timing) {
            search.minimum = parameters_.timingMinimum;
            search.maximum = parameters_.timingMaximum;
            search.color = 0x800080;
        }
        return search;
    }

    static int Column(std::size_t cell) { return static_cast<int>(cell % 16) + 1; }
    static int Row(std::size_t cell) { return static_cast<int>(cell / 16) + 1; }

    TTestCells real_;
    TLiteralView literal_;
    TSearchParameters parameters_;
    TMapCounters counters_;
    std::size_t count_ = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    TFuzzInput input(data, size);
    const std::uint8_t flags = input.Byte();
    std::vector<TSearch> searches(input.Byte() % (maxSearches + 1));
    for (TSearch &search : searches) {
        search.kind = input.Byte();
        search.byte = input.Byte();
        search.word = input.Word();
    }
    const std::string image = input.Rest();
    if (image.size() > maxImage)
        return -1; // not worth keeping
    TTwins twins({image.begin(), image.end()}, (flags & 1) != 0, (flags & 2) != 0);
    for (const TSearch &search : searches)
        twins.Run(search);
    return 0;
}
