#include "SearchImages.h"

#include <algorithm>
#include <memory>
#include <random>

namespace {

using TBytes = std::vector<std::uint8_t>;
using TNextByte = std::function<std::uint8_t(std::size_t)>;
using TRandom = std::mt19937;

constexpr TMapShape Linear = TMapShape::Linear;
constexpr TMapShape TwoD = TMapShape::TwoD;
constexpr TMapContents Fuel = TMapContents::Fuel;
constexpr TMapContents Any = TMapContents::Any;

TSearchParameters FuelRange(std::int32_t minimum, std::int32_t maximum) {
    TSearchParameters parameters;
    parameters.fuelMinimum = minimum;
    parameters.fuelMaximum = maximum;
    return parameters;
}

/// Bytes by chance from `low` to `high`.
std::function<TNextByte()> Random(unsigned low, unsigned high) {
    return [=] {
        return [=, random = TRandom(1)](std::size_t) mutable {
            return static_cast<std::uint8_t>(low + random() % (high - low + 1));
        };
    };
}

/// Bytes by chance from a list, in which a byte may stand more than once.
std::function<TNextByte()> OneOf(const TBytes &list) {
    return [=] {
        return
            [=, random = TRandom(1)](std::size_t) mutable { return list[random() % list.size()]; };
    };
}

/// `byte`, but for `other` at every position `step` - 1, 2 * `step` - 1 and so on.
std::function<TNextByte()> Every(std::size_t step, std::uint8_t other, std::uint8_t byte) {
    return [=] {
        return [=](std::size_t position) { return position % step == step - 1 ? other : byte; };
    };
}

/// Maps with counts by chance from `low` to `high` and data that fit the fuel range; by chance side
/// by side or up to `gap` bytes apart.
std::function<TNextByte()> Maps(TMapShape shape, unsigned low, unsigned high, unsigned gap = 0) {
    return [=] {
        return
            [=, random = TRandom(1), map = TBytes(), next = std::size_t{0}](std::size_t) mutable {
                if (next == map.size()) {
                    const auto count = [&] {
                        return static_cast<std::uint8_t>(low + random() % (high - low + 1));
                    };
                    const std::uint8_t x = count();
                    map = {0x70, x};
                    map.insert(map.end(), x, 0xFE);
                    std::size_t cells = x;
                    if (shape == TwoD) {
                        const std::uint8_t y = count();
                        map.insert(map.end(), {0x71, y});
                        map.insert(map.end(), y, 0xFE);
                        cells *= y;
                    }
                    map.insert(map.end(), cells, 100);
                    map.insert(map.end(), random() % (gap + 1), 0xFE);
                    next = 0;
                }
                return map[next++];
            };
    };
}

std::vector<TSearchImage> MakeRandomImages() {
    std::vector<TSearchImage> images{
        {"random bytes", Linear, Fuel, Random(0, 255)},
        {"random bytes", TwoD, Fuel, Random(0, 255)},
        {"random bytes, any map", Linear, Any, Random(0, 255)},
        {"random bytes, any map", TwoD, Any, Random(0, 255)},
        {"full of maps", Linear, Fuel, Maps(Linear, 2, 30)},
        {"full of maps", TwoD, Fuel, Maps(TwoD, 2, 30)},
    };
    return images;
}

std::vector<TSearchImage> MakeHardImages() {
    const TBytes halfCounts{2, 30, 0, 31};
    const TBytes countsAndData{2, 3, 4, 5, 100, 100, 100, 100};
    return {
        {"full of the smallest maps", Linear, Fuel, Maps(Linear, 2, 2)},
        {"full of the smallest maps", TwoD, Fuel, Maps(TwoD, 2, 2)},
        {"full of small maps of 2 to 5", Linear, Fuel, Maps(Linear, 2, 5)},
        {"full of small maps of 2 to 5", TwoD, Fuel, Maps(TwoD, 2, 5)},
        {"the smallest maps with gaps of 0 or 1", Linear, Fuel, Maps(Linear, 2, 2, 1)},
        {"the smallest maps with gaps of 0 or 1", TwoD, Fuel, Maps(TwoD, 2, 2, 1)},
        {"all 2, any map", Linear, Any, Random(2, 2)},
        {"all 2, any map", TwoD, Any, Random(2, 2)},
        {"random 2 to 5, any map", Linear, Any, Random(2, 5)},
        {"random 2 to 5, any map", TwoD, Any, Random(2, 5)},
        {"random 2 to 30, data never fit", Linear, Fuel, Random(2, 30)},
        {"random 2 to 30, data never fit", TwoD, Fuel, Random(2, 30)},
        {"random 2 to 30, data seldom fit", Linear, Fuel, Random(2, 30), FuelRange(2, 29)},
        {"random 2 to 30, data seldom fit", TwoD, Fuel, Random(2, 30), FuelRange(2, 29)},
        {"random 2 to 30, half the data fit", Linear, Fuel, Random(2, 30), FuelRange(2, 15)},
        {"random 2 to 30, half the data fit", TwoD, Fuel, Random(2, 30), FuelRange(2, 15)},
        {"all 2, data never fit", Linear, Fuel, Random(2, 2)},
        {"all 2, data never fit", TwoD, Fuel, Random(2, 2)},
        {"all 30, data never fit", Linear, Fuel, Random(30, 30)},
        {"all 30, data never fit", TwoD, Fuel, Random(30, 30)},
        {"all 30, the last byte of the data fails", Linear, Fuel, Every(30, 20, 30),
         FuelRange(30, 30)},
        {"all 30, the last byte of the data fails", TwoD, Fuel, Every(900, 20, 30),
         FuelRange(30, 30)},
        {"all 2, the last byte of the data fails", Linear, Fuel, Every(2, 3, 2), FuelRange(2, 2)},
        {"all 2, the last byte of the data fails", TwoD, Fuel, Every(4, 3, 2), FuelRange(2, 2)},
        {"all 30, the next word of the data fails", Linear, Fuel, Every(64, 20, 30),
         FuelRange(30, 30)},
        {"all 30, the next word of the data fails", TwoD, Fuel, Every(64, 20, 30),
         FuelRange(30, 30)},
        {"half are counts, data never fit", Linear, Fuel, OneOf(halfCounts)},
        {"half are counts, data never fit", TwoD, Fuel, OneOf(halfCounts)},
        {"half are counts, any map", Linear, Any, OneOf(halfCounts)},
        {"half are counts, any map", TwoD, Any, OneOf(halfCounts)},
        {"half are counts, the others data", Linear, Fuel, OneOf(countsAndData)},
        {"half are counts, the others data", TwoD, Fuel, OneOf(countsAndData)},
        {"all 2, any map, half is marked", Linear, Any, Random(2, 2), {}, 2},
        {"all 2, any map, half is marked", TwoD, Any, Random(2, 2), {}, 2},
        {"random 2 to 5, any map, half is marked", Linear, Any, Random(2, 5), {}, 2},
        {"random 2 to 5, any map, half is marked", TwoD, Any, Random(2, 5), {}, 2},
    };
}

} // namespace

std::vector<TCellValue> RandomCells(std::size_t count) {
    TRandom random(2);
    std::vector<TCellValue> cells(count);
    for (TCellValue &cell : cells)
        cell = static_cast<TCellValue>(random() % 256);
    return cells;
}

std::vector<TCellValue> CellsOf(const TSearchImage &image, std::size_t count) {
    const TNextByte next = image.bytes();
    std::vector<TCellValue> cells(count);
    for (std::size_t i = 0; i < count; ++i)
        cells[i] = next(i);
    return cells;
}

std::vector<TColor> ColorsOf(const TSearchImage &image, std::size_t count) {
    TRandom random(3);
    std::vector<TColor> colors(count, unmarkedColor);
    if (image.markedOneIn != 0)
        for (TColor &color : colors)
            if (random() % image.markedOneIn == 0)
                color = searchedColor;
    return colors;
}

const std::vector<TSearchImage> &SearchImages() {
    static const std::vector<TSearchImage> images = [] {
        std::vector<TSearchImage> all = MakeRandomImages();
        const std::vector<TSearchImage> hard = MakeHardImages();
        all.insert(all.end(), hard.begin(), hard.end());
        return all;
    }();
    return images;
}
