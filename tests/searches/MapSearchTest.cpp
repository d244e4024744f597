#include "filedisplay/MapSearch.h"

#include "searches/TestCells.h"

#include <algorithm>
#include <limits>
#include <ostream>

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::TestWithParam;
using testing::ValuesIn;

constexpr TMapShape Linear = TMapShape::Linear;
constexpr TMapShape TwoD = TMapShape::TwoD;
constexpr TMapContents Fuel = TMapContents::Fuel;
constexpr TMapContents Timing = TMapContents::Timing;
constexpr TMapContents Any = TMapContents::Any;

/// What one search makes of an image.
struct TSearched {
    explicit TSearched(const TBytes &bytes, bool padded = true) : cells(bytes, padded) {}

    TSearched &All(TMapShape shape, TMapContents contents) {
        HighlightAllMaps(cells.Grid(), shape, contents, parameters, counters);
        return *this;
    }
    TMapStep At(std::size_t position, TMapShape shape, TMapContents contents) {
        return HighlightMapAt(cells.Grid(), position, shape, contents, parameters, counters);
    }

    TTestCells cells;
    TSearchParameters parameters;
    TMapCounters counters;
};

TBytes Joined(std::initializer_list<TBytes> parts) {
    TBytes all;
    for (const TBytes &part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

TEST(LinearMap, OfFuelIsColoredPartByPart) {
    TSearched searched(ImageWith({0x70, 3, 0x00, 0x01, 0xFF, 90, 100, 200}, 5, 64));
    searched.All(Linear, Fuel);
    EXPECT_EQ(searched.cells.Marked(), Positions(5, 13));
    EXPECT_THAT(std::vector(&searched.cells.colors[5], &searched.cells.colors[13]),
                ElementsAre(0x008000, 0xFF0000, 0x008001, 0x018001, 0xFF8001, 0x5A8000, 0x648000,
                            0xC88000));
    EXPECT_EQ(searched.counters.linear, 1);
    EXPECT_EQ(searched.counters.twoD, 0);
}

TEST(LinearMap, OfTimingIsShadedInGreen) {
    TSearched searched(ImageWith({0x70, 2, 1, 2, 10, 90}, 5, 64));
    searched.All(Linear, Timing);
    EXPECT_THAT(std::vector(&searched.cells.colors[5], &searched.cells.colors[11]),
                ElementsAre(0x800080, 0xFF0000, 0x018001, 0x028001, 0x800A80, 0x805A80));
}

TEST(LinearMap, OfAnyBytesIsColoredBeyond24Bits) {
    TSearched searched(ImageWith({0x70, 2, 1, 2, 0, 255}, 5, 64));
    searched.parameters.rpmLocation = 0x70;
    searched.All(Linear, Any);
    EXPECT_THAT(std::vector(&searched.cells.colors[5], &searched.cells.colors[11]),
                ElementsAre(0xFFFFFF, 0xFF0000, 0x018001, 0x028001, 0xFFFFFF, 0x1FEFFFF));
    searched.cells.values[9] = 1;
    searched.cells.colors.assign(64, unmarkedColor);
    searched.All(Linear, Any);
    EXPECT_EQ(searched.cells.colors[9], 0x100FFFFU);
}

TEST(TwoDMap, OfFuelIsColoredPartByPart) {
    TSearched searched(ImageWith({0x70, 2, 0, 9, 0x71, 3, 1, 2, 3, 90, 91, 92, 93, 94, 95}, 5, 64));
    searched.All(TwoD, Fuel);
    EXPECT_EQ(searched.cells.Marked(), Positions(5, 20));
    EXPECT_THAT(std::vector(&searched.cells.colors[5], &searched.cells.colors[20]),
                ElementsAre(0x008002, 0xFF0000, 0x008002, 0x098002, 0x008080, 0xFF0000, 0x018002,
                            0x028002, 0x038002, 0x5A8000, 0x5B8000, 0x5C8000, 0x5D8000, 0x5E8000,
                            0x5F8000));
    EXPECT_EQ(searched.counters.linear, 0);
    EXPECT_EQ(searched.counters.twoD, 1);
}

TEST(TwoDMap, BeginsInTheMapColorPlusTwo) {
    TSearched timing(ImageWith(TwoDMap(2, 2, 50), 5, 64));
    timing.All(TwoD, Timing);
    EXPECT_EQ(timing.cells.colors[5], 0x800082U);
    EXPECT_EQ(timing.cells.colors[9], 0x008080U);
    EXPECT_EQ(timing.cells.colors[13], 0x803280U);

    TSearched any(ImageWith(TwoDMap(2, 2, 1), 5, 64));
    any.All(TwoD, Any);
    EXPECT_EQ(any.cells.colors[5], 0x1000001U);
    EXPECT_EQ(any.cells.colors[9], 0x008080U);
    EXPECT_EQ(any.cells.colors[13], 0x100FFFFU);
}

struct TCountCase {
    int x;
    int y; ///< 0: a linear map
    bool found;
};

std::ostream &operator<<(std::ostream &out, const TCountCase &c) {
    return out << c.x << " x " << c.y;
}

class MapCounts : public TestWithParam<TCountCase> {
protected:
    static TMapShape Shape() { return GetParam().y == 0 ? Linear : TwoD; }
    static TBytes Map() {
        const TCountCase &c = GetParam();
        return c.y == 0 ? LinearMap(c.x, 100) : TwoDMap(c.x, c.y, 100);
    }
    static std::size_t Wanted() { return GetParam().found ? Map().size() : 0; }
};

const TCountCase countCases[] = {
    {0, 0, false},  {1, 0, false},   {2, 0, true},    {3, 0, true},    {29, 0, true},
    {30, 0, true},  {31, 0, false},  {32, 0, false},  {255, 0, false}, {1, 2, false},
    {2, 1, false},  {2, 2, true},    {2, 30, true},   {30, 2, true},   {30, 30, true},
    {31, 2, false}, {2, 31, false},  {31, 31, false}, {1, 1, false},   {30, 31, false},
    {0, 2, false},  {255, 2, false}, {2, 255, false},
};

TEST_P(MapCounts, RunFrom2To30) {
    for (const std::size_t position : {0U, 1U, 15U, 60U, 64U}) {
        TSearched searched(ImageWith(Map(), position, 2048));
        searched.All(Shape(), Fuel);
        EXPECT_EQ(searched.cells.Marked(), Positions(position, position + Wanted()));
        EXPECT_EQ(searched.counters.linear + searched.counters.twoD, GetParam().found ? 1 : 0);
    }
}

TEST_P(MapCounts, HoldForOneCellToo) {
    TSearched searched(ImageWith(Map(), 3, 2048));
    const TMapStep step = searched.At(3, Shape(), Fuel);
    EXPECT_EQ(step.found, GetParam().found);
    EXPECT_EQ(step.next, GetParam().found ? 3 + Wanted() : 4);
    EXPECT_EQ(searched.cells.Marked(), Positions(3, 3 + Wanted()));
}

TEST_P(MapCounts, NeedEveryDataByteInRange) {
    if (!GetParam().found)
        return;
    const std::size_t data =
        Map().size() - static_cast<std::size_t>(GetParam().x * std::max(GetParam().y, 1));
    for (const std::size_t bad : {data, (data + Map().size()) / 2, Map().size() - 1}) {
        for (const std::uint8_t value : {std::uint8_t{89}, std::uint8_t{201}}) {
            TBytes map = Map();
            map[bad] = value;
            TSearched searched(ImageWith(map, 3, 2048));
            EXPECT_FALSE(searched.At(3, Shape(), Fuel).found);
            searched.All(Shape(), Fuel);
            EXPECT_THAT(searched.cells.Marked(), IsEmpty()) << bad;
        }
    }
}

TEST_P(MapCounts, MayFillTheImageToItsLastByte) {
    const TBytes map = Map();
    for (std::size_t over = 0; over < 3; ++over) {
        // At `over` bytes of the map the image ends; two rows in front let it start.
        const std::size_t position = 35;
        const std::size_t size = position + map.size() - over;
        for (const bool padded : {false, true}) {
            TSearched searched(ImageWith(map, position, size), padded);
            const TMapStep step = searched.At(position, Shape(), Fuel);
            EXPECT_EQ(step.found, GetParam().found && over == 0);
            EXPECT_EQ(step.next, step.found ? size : position + 1);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Counts, MapCounts, ValuesIn(countCases));

TEST(AllMaps, MayEndInTheVeryLastByte) {
    for (const std::size_t size : {64U, 80U, 65U, 79U, 1024U, 65535U, 65536U, 65537U, 1048576U}) {
        for (const TMapShape shape : {Linear, TwoD}) {
            const TBytes map = shape == Linear ? LinearMap(20, 100) : TwoDMap(5, 6, 100);
            TSearched whole(ImageWith(map, size - map.size(), size));
            whole.All(shape, Fuel);
            EXPECT_EQ(whole.cells.Marked(), Positions(size - map.size(), size));

            TSearched cut(ImageWith(map, size - map.size() + 1, size));
            cut.All(shape, Fuel);
            EXPECT_THAT(cut.cells.Marked(), IsEmpty());
        }
    }
}

TEST(AllMaps, StartInNoneOfTheLastTwoRows) {
    for (const std::size_t size : {33U, 47U, 48U, 49U, 63U, 64U, 65U, 128U, 160U}) {
        const std::size_t startsEnd = ((size + 15) / 16 - 2) * 16;
        for (std::size_t position = 0; position + 6 <= size; ++position) {
            for (const bool padded : {false, true}) {
                TSearched searched(ImageWith(LinearMap(2, 100), position, size), padded);
                searched.All(Linear, Fuel);
                EXPECT_EQ(searched.cells.Marked(), position < startsEnd
                                                       ? Positions(position, position + 6)
                                                       : Positions(0, 0))
                    << position << " of " << size;
            }
        }
    }
}

TEST(AllMaps, OfTinyImagesAreNone) {
    for (std::size_t size = 0; size <= 32; ++size) {
        TBytes twos(size, 2);
        for (const TMapShape shape : {Linear, TwoD}) {
            TSearched searched(twos);
            searched.All(shape, Any);
            EXPECT_THAT(searched.cells.Marked(), IsEmpty()) << size;
            EXPECT_EQ(searched.counters.linear + searched.counters.twoD, 0);
        }
    }
}

TEST(AllMaps, StandSideBySideWithoutAGap) {
    const TBytes three = Joined({LinearMap(2, 100), LinearMap(30, 90), LinearMap(4, 200)});
    TSearched searched(ImageWith(three, 10, 160));
    searched.All(Linear, Fuel);
    EXPECT_EQ(searched.cells.Marked(), Positions(10, 10 + three.size()));
    EXPECT_EQ(searched.counters.linear, 3);
}

struct TRowOfMaps {
    const char *name;
    TBytes between;   ///< bytes behind the tenth map
    bool firstMarked; ///< whether the eleventh map's first cell has a colour
    int found;
};

std::ostream &operator<<(std::ostream &out, const TRowOfMaps &row) {
    return out << row.name;
}

class MapsSideBySide : public TestWithParam<TRowOfMaps> {};

const TRowOfMaps rowsOfMaps[] = {
    {"no gap", {}, false, 20},
    {"a gap of one byte", {0xFF}, false, 20},
    {"a marked one", {}, true, 19},
    {"a count that is none", {0x70, 31}, false, 20},
    {"a map whose last byte does not fit", LinearMap(2, 100, 0x70, 99), false, 20},
};

TEST_P(MapsSideBySide, AreFoundBehindWhatInterruptsThem) {
    const TRowOfMaps &row = GetParam();
    for (const TMapShape shape : {Linear, TwoD}) {
        const TBytes map = shape == Linear ? LinearMap(2, 100) : TwoDMap(2, 2, 100);
        TBytes between = row.between;
        if (!between.empty())
            between.back() = 0xFF;
        TBytes bytes;
        for (int i = 0; i < 20; ++i) {
            bytes.insert(bytes.end(), map.begin(), map.end());
            if (i == 9)
                bytes.insert(bytes.end(), between.begin(), between.end());
        }
        const std::size_t eleventh = 10 * map.size() + between.size();
        TSearched searched(ImageWith(bytes, 0, bytes.size() + 64));
        searched.parameters.rpmLocation = 0x70;
        if (row.firstMarked)
            searched.cells.colors[eleventh] = 0x00FF00;
        searched.All(shape, Fuel);
        EXPECT_EQ(searched.counters.linear + searched.counters.twoD, row.found);
        EXPECT_EQ(searched.cells.colors[10 * map.size() - 1], 0x648000U);
        EXPECT_EQ(searched.cells.colors[eleventh + map.size() - 1],
                  row.firstMarked ? unmarkedColor : 0x648000U);
        EXPECT_EQ(searched.cells.colors[bytes.size() - 1], 0x648000U);
        for (std::size_t i = 10 * map.size(); i < eleventh; ++i)
            EXPECT_EQ(searched.cells.colors[i], unmarkedColor) << i;
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, MapsSideBySide, ValuesIn(rowsOfMaps));

TEST(AllMaps, StandFarApart) {
    const TBytes map = TwoDMap(30, 30, 100);
    for (const std::size_t gap : {3000U, 3100U, 3132U, 3133U, 4096U, 50000U}) {
        TBytes bytes = map;
        Append(bytes, gap, 0xFF);
        TSearched searched(ImageWith(Joined({bytes, bytes, map}), 7, 3 * bytes.size()));
        searched.All(TwoD, Fuel);
        std::vector<std::size_t> wanted;
        for (std::size_t first = 7; first < 3 * bytes.size(); first += bytes.size()) {
            const std::vector<std::size_t> one = Positions(first, first + map.size());
            wanted.insert(wanted.end(), one.begin(), one.end());
        }
        EXPECT_EQ(searched.cells.Marked(), wanted) << gap;
    }
}

TEST(AllMaps, StartAtNoMarkedCell) {
    for (const TColor color : {0x008080U, 0x000000U, 0xFFFFFFU, 0x1FEFFFFU, 0x80000008U}) {
        TSearched searched(ImageWith(LinearMap(2, 100), 10, 80));
        searched.cells.colors[10] = color;
        searched.All(Linear, Fuel);
        EXPECT_THAT(searched.cells.Marked(), ElementsAre(10U));
    }
}

TEST(AllMaps, ColorMarkedCellsBehindTheirStartAnew) {
    TSearched searched(ImageWith(LinearMap(2, 100), 10, 80));
    std::fill(searched.cells.colors.begin() + 11, searched.cells.colors.end(), 0x00FF00);
    searched.All(Linear, Fuel);
    EXPECT_EQ(searched.cells.colors[11], 0xFF0000U);
    EXPECT_EQ(searched.cells.colors[15], 0x648000U);
    EXPECT_EQ(searched.cells.colors[16], 0x00FF00U);
}

TEST(AllMaps, SearchedTwiceHoldNothingNew) {
    TBytes image(4096);
    for (std::size_t i = 0; i < image.size(); ++i)
        image[i] = static_cast<std::uint8_t>(i * i / 7 % 40);
    for (const TMapShape shape : {Linear, TwoD}) {
        TSearched searched(image);
        searched.All(shape, Any);
        const std::vector<TColor> once = searched.cells.colors;
        const int found = searched.counters.linear + searched.counters.twoD;
        ASSERT_GT(found, 3);
        searched.All(shape, Any);
        EXPECT_EQ(searched.cells.colors, once);
        EXPECT_EQ(searched.counters.linear + searched.counters.twoD, found);
    }
}

TEST(AllMaps, CountOnFromWhatWasCounted) {
    TSearched searched(ImageWith(Joined({LinearMap(2, 100), TwoDMap(2, 2, 100)}), 0, 96));
    searched.counters = {5, 7};
    searched.parameters.rpmLocation = 0x70;
    searched.parameters.loadLocation = 0x71;
    searched.All(Linear, Fuel).All(TwoD, Fuel);
    EXPECT_EQ(searched.counters.linear, 6);
    EXPECT_EQ(searched.counters.twoD, 8);
}

struct TLocationCase {
    const char *name;
    std::int32_t rpm;
    std::int32_t load;
    bool linearFound;
    bool twoDFound;
};

std::ostream &operator<<(std::ostream &out, const TLocationCase &c) {
    return out << c.name;
}

class RamLocations : public TestWithParam<TLocationCase> {};

const TLocationCase locationCases[] = {
    {"neither", -1, -1, true, true},
    {"both", 0x70, 0x71, true, true},
    {"RPM", 0x70, -1, true, true},
    {"another RPM", 0x72, -1, false, false},
    {"RPM 0", 0, -1, false, false},
    {"load", -1, 0x71, true, true},
    {"another load matters to 2-D maps alone", -1, 0x72, true, false},
    {"load 0", -1, 0, true, false},
    {"another load, RPM fits", 0x70, 0x72, true, false},
    {"exchanged", 0x71, 0x70, false, false},
    {"negative ones restrict nothing", -2147483647, -2, true, true},
    {"no byte: RPM", 0x170, -1, false, false},
    {"no byte: load", -1, 0x171, true, false},
    {"no byte in 16 bits", 0x10070, -1, false, false},
};

TEST_P(RamLocations, RestrictTheHeaders) {
    const TLocationCase &c = GetParam();
    for (const TMapContents contents : {Fuel, Timing, Any}) {
        for (const TMapShape shape : {Linear, TwoD}) {
            const bool wanted = shape == Linear ? c.linearFound : c.twoDFound;
            const TBytes map = shape == Linear ? LinearMap(2, 90) : TwoDMap(2, 2, 90);
            TSearched searched(ImageWith(map, 20, 96));
            searched.parameters.rpmLocation = c.rpm;
            searched.parameters.loadLocation = c.load;
            searched.All(shape, contents);
            EXPECT_EQ(searched.cells.Marked(), Positions(20, wanted ? 20 + map.size() : 20));

            TSearched single(ImageWith(map, 20, 96));
            single.parameters = searched.parameters;
            EXPECT_EQ(single.At(20, shape, contents).found, wanted);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Headers, RamLocations, ValuesIn(locationCases));

TEST(AllMaps, HaveNoHeaderInACellWithoutAByte) {
    for (const TMapShape shape : {Linear, TwoD}) {
        TSearched searched(TBytes(49, 0xFF));
        searched.parameters.rpmLocation = 0xFF;
        searched.parameters.loadLocation = 0xFF;
        searched.All(shape, Any);
        EXPECT_THAT(searched.cells.Marked(), IsEmpty());
    }
}

TEST(AllMaps, FollowAnUnsetRangeByPlainComparison) {
    TSearched low(ImageWith(LinearMap(2, 0), 20, 96));
    low.parameters.fuelMinimum = -1;
    low.All(Linear, Fuel);
    EXPECT_EQ(low.cells.Marked(), Positions(20, 26));

    for (const TMapShape shape : {Linear, TwoD}) {
        TSearched none(TBytes(96, 2));
        none.parameters.fuelMinimum = 0;
        none.parameters.fuelMaximum = -1;
        none.All(shape, Fuel);
        EXPECT_FALSE(none.At(0, shape, Fuel).found);
        EXPECT_THAT(none.cells.Marked(), IsEmpty());
    }
}

TEST(MapAt, LooksAtMarkedCellsAndAtTheLastRowsToo) {
    TSearched searched(ImageWith(LinearMap(2, 100), 10, 16));
    searched.cells.colors[10] = 0x00FF00;
    const TMapStep step = searched.At(10, Linear, Fuel);
    EXPECT_TRUE(step.found);
    EXPECT_EQ(step.next, 16U); // behind the last cell
    EXPECT_EQ(searched.cells.colors[10], 0x008000U);
}

TEST(MapAt, MovesOneCellOnWhenThereIsNone) {
    TSearched searched(TBytes(16, 0xFF));
    for (const std::size_t position : {0U, 5U, 15U, 16U, 40U}) {
        for (const TMapShape shape : {Linear, TwoD}) {
            const TMapStep step = searched.At(position, shape, Any);
            EXPECT_FALSE(step.found);
            EXPECT_EQ(step.next, position + 1);
        }
    }
    EXPECT_THAT(searched.cells.Marked(), IsEmpty());
}

TEST(MapAt, OfNoCellAtAllIsNone) {
    TSearched searched(TBytes(16, 2));
    const std::size_t before = std::numeric_limits<std::size_t>::max(); // one cell before the first
    EXPECT_FALSE(searched.At(before, Linear, Any).found);
    EXPECT_FALSE(searched.At(before, TwoD, Any).found);
    EXPECT_THAT(searched.cells.Marked(), IsEmpty());
}

TEST(MapAt, OfAnEmptyImageIsNone) {
    TSearched searched(TBytes{});
    EXPECT_FALSE(searched.At(0, Linear, Any).found);
    EXPECT_FALSE(searched.At(0, TwoD, Any).found);
}

} // namespace
