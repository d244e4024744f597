// Each search against its slow and literal twin, cell by cell, on random images with planted maps.
#include "filedisplay/MapSearch.h"
#include "filedisplay/Searches.h"
#include "searches/LiteralSearches.h"
#include "searches/TestCells.h"

#include <algorithm>
#include <array>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace {

constexpr int imageCount = 2400;

using TRandom = std::mt19937;

/// A number from `low` to `high`.
int Pick(TRandom &random, int low, int high) {
    return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
}

bool OneIn(TRandom &random, unsigned count) {
    return random() % count == 0;
}

std::size_t RandomSize(TRandom &random) {
    constexpr std::array<std::size_t, 20> sizes{0,  1,  2,  15, 16, 17,  31,  32,  33,  47,
                                                48, 49, 63, 64, 65, 127, 128, 129, 255, 1024};
    if (OneIn(random, 3))
        return sizes.at(random() % sizes.size());
    return random() % (OneIn(random, 8) ? 4096 : 600);
}

void PlantMap(TRandom &random, TBytes &image) {
    const int high = OneIn(random, 4) ? 32 : 8;
    const int data = OneIn(random, 2) ? 90 : Pick(random, 0, 255);
    const int header = OneIn(random, 4) ? Pick(random, 0, 255) : 0x70;
    TBytes map = OneIn(random, 2) ? LinearMap(Pick(random, 1, high), data, header)
                                  : TwoDMap(Pick(random, 1, high), Pick(random, 1, high), data,
                                            header, OneIn(random, 4) ? Pick(random, 0, 255) : 0x71);
    // Some have one byte that does not fit, some end in the last byte, some are cut by it.
    if (OneIn(random, 4))
        map[random() % map.size()] ^= static_cast<std::uint8_t>(random());
    std::size_t position = random() % (image.size() + 1);
    if (OneIn(random, 3) && map.size() <= image.size())
        position = image.size() - map.size();
    for (std::size_t i = 0; i < map.size() && position + i < image.size(); ++i)
        image[position + i] = map[i];
}

TBytes RandomImage(TRandom &random) {
    TBytes image(RandomSize(random));
    // All bytes, counts only, a few bytes only, or one byte.
    const int low = OneIn(random, 2) ? 0 : Pick(random, 0, 110);
    const int high = std::min(255, low + std::array{255, 30, 3, 0, 120}.at(random() % 5));
    for (std::uint8_t &byte : image)
        byte = static_cast<std::uint8_t>(Pick(random, low, high));
    for (int maps = Pick(random, 0, 6); maps > 0; --maps)
        PlantMap(random, image);
    return image;
}

/// A limit or a location: unset, plausible, or nonsense.
int RandomNumber(TRandom &random, int usual) {
    switch (random() % 6) {
    case 0:
        return -1;
    case 1:
        return Pick(random, 0, 255);
    case 2:
        return Pick(random, -300, 600);
    default:
        return usual;
    }
}

TSearchParameters RandomParameters(TRandom &random) {
    TSearchParameters parameters;
    if (OneIn(random, 2)) {
        parameters.fuelMinimum = RandomNumber(random, parameters.fuelMinimum);
        parameters.fuelMaximum = RandomNumber(random, parameters.fuelMaximum);
        parameters.timingMinimum = RandomNumber(random, parameters.timingMinimum);
        parameters.timingMaximum = RandomNumber(random, parameters.timingMaximum);
    }
    if (OneIn(random, 2))
        parameters.rpmLocation = RandomNumber(random, 0x70);
    if (OneIn(random, 2))
        parameters.loadLocation = RandomNumber(random, 0x71);
    parameters.pointerMask = static_cast<std::uint8_t>(
        std::array{15, 15, 0, 1, 255, Pick(random, 0, 255)}.at(random() % 6));
    return parameters;
}

/// One image in the real form and in the literal one, with the same marks laid on before.
struct TTwins {
    TTwins(TRandom &random, const TBytes &image)
        : real(image, OneIn(random, 2)), literal(image, OneIn(random, 2)) {
        if (!OneIn(random, 3))
            return;
        constexpr std::array<TColor, 6> marks{0x008080, 0x00FF00,  0,
                                              0xFFFFFF, 0x1FEFFFF, 0x80000005};
        for (std::size_t i = 0; i < real.colors.size(); ++i) {
            if (OneIn(random, 5)) {
                real.colors[i] = marks.at(random() % marks.size());
                literal.SetColor(Column(i), Row(i), real.colors[i]);
            }
        }
    }

    static int Column(std::size_t position) { return static_cast<int>(position % 16) + 1; }
    static int Row(std::size_t position) { return static_cast<int>(position / 16) + 1; }

    void ExpectSameColors() const {
        ASSERT_EQ(real.colors.size(), static_cast<std::size_t>(literal.RowCount() - 1) * 16);
        for (std::size_t i = 0; i < real.colors.size(); ++i)
            ASSERT_EQ(real.colors[i], literal.Color(Column(i), Row(i)))
                << "cell " << i << " of " << real.values.size();
    }

    TTestCells real;
    TLiteralView literal;
};

/// Runs `compare` on the images of seeds 0, 1, ... until one fails.
template <typename TCompare>
void OnRandomImages(TCompare compare) {
    for (unsigned seed = 0; seed < imageCount && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        TRandom random(seed);
        TTwins twins(random, RandomImage(random));
        compare(random, twins);
        if (!testing::Test::HasFatalFailure())
            twins.ExpectSameColors();
    }
}

TEST(RandomImages, PossibleFuelValues) {
    OnRandomImages([](TRandom &random, TTwins &twins) {
        const TSearchParameters parameters = RandomParameters(random);
        MarkPossibleValues(twins.real.Grid(), parameters.Fuel(), possibleFuelColor);
        twins.literal.MarkPossible(parameters.fuelMinimum, parameters.fuelMaximum, 0x00FF00);
    });
}

TEST(RandomImages, PossibleTimingValues) {
    OnRandomImages([](TRandom &random, TTwins &twins) {
        const TSearchParameters parameters = RandomParameters(random);
        MarkPossibleValues(twins.real.Grid(), parameters.Timing(), possibleTimingColor);
        twins.literal.MarkPossible(parameters.timingMinimum, parameters.timingMaximum, 0xFF00FF);
    });
}

TEST(RandomImages, OneValue) {
    OnRandomImages([](TRandom &random, TTwins &twins) {
        const int value = OneIn(random, 10) ? Pick(random, 0, 70000) : Pick(random, 0, 255);
        MarkValue(twins.real.Grid(), value);
        twins.literal.MarkValue(value);
    });
}

TEST(RandomImages, Pointers) {
    OnRandomImages([](TRandom &random, TTwins &twins) {
        const std::uint8_t mask = RandomParameters(random).pointerMask;
        int address = Pick(random, 0, 0xFFFF);
        // Mostly an address that a byte of the image fits.
        if (twins.real.values.size() > 1 && !OneIn(random, 4)) {
            const std::size_t at = random() % (twins.real.values.size() - 1);
            address = (twins.real.values[at] & mask) * 256 + (twins.real.values[at + 1] & 255);
        }
        MarkPointers(twins.real.Grid(), SplitAddress(address).value(), mask);
        twins.literal.FindPointers(address / 256, address % 256, mask);
    });
}

struct TMapCase {
    const char *name;
    TMapShape shape;
    TMapContents contents;
};

const TMapCase mapCases[] = {
    {"LinearFuel", TMapShape::Linear, TMapContents::Fuel},
    {"LinearTiming", TMapShape::Linear, TMapContents::Timing},
    {"LinearAny", TMapShape::Linear, TMapContents::Any},
    {"TwoDFuel", TMapShape::TwoD, TMapContents::Fuel},
    {"TwoDTiming", TMapShape::TwoD, TMapContents::Timing},
    {"TwoDAny", TMapShape::TwoD, TMapContents::Any},
};

std::size_t FirstDifference(const std::vector<TColor> &colors, const std::vector<TColor> &others) {
    return static_cast<std::size_t>(
        std::mismatch(colors.begin(), colors.end(), others.begin()).first - colors.begin());
}

class RandomImagesWithMaps : public testing::TestWithParam<TMapCase> {
protected:
    static TLiteralMapSearch Literal(const TSearchParameters &parameters) {
        TLiteralMapSearch search;
        search.twoD = GetParam().shape == TMapShape::TwoD;
        search.rpmLocation = parameters.rpmLocation;
        search.loadLocation = parameters.loadLocation;
        if (GetParam().contents == TMapContents::Fuel) {
            search.minimum = parameters.fuelMinimum;
            search.maximum = parameters.fuelMaximum;
            search.color = 0x008000;
        } else if (GetParam().contents == TMapContents::Timing) {
            search.minimum = parameters.timingMinimum;
            search.maximum = parameters.timingMaximum;
            search.color = 0x800080;
        }
        return search;
    }
};

TEST_P(RandomImagesWithMaps, AllOfThem) {
    int found = 0;
    OnRandomImages([&found](TRandom &random, TTwins &twins) {
        const TSearchParameters parameters = RandomParameters(random);
        TMapCounters counters;
        // Twice: the second run must find nothing new, nor anything else.
        for (int i = 0; i < 2; ++i) {
            const std::vector<TColor> colors = twins.real.colors;
            const int before = counters.linear + counters.twoD;
            const TFound told = HighlightAllMaps(twins.real.Grid(), GetParam().shape,
                                                 GetParam().contents, parameters, counters);
            ASSERT_EQ(told.count,
                      static_cast<std::size_t>(counters.linear + counters.twoD - before));
            if (told.count != 0) {
                ASSERT_EQ(told.first, FirstDifference(colors, twins.real.colors));
            }
            twins.literal.SearchAndHighlight(Literal(parameters));
            ASSERT_EQ(counters.linear, twins.literal.linearFound);
            ASSERT_EQ(counters.twoD, twins.literal.twoDFound);
        }
        found += counters.linear + counters.twoD;
    });
    EXPECT_GT(found, imageCount / 8) << "the images hold too few maps to tell anything";
}

TEST_P(RandomImagesWithMaps, OneAfterAnother) {
    OnRandomImages([](TRandom &random, TTwins &twins) {
        if (twins.real.values.empty())
            return;
        const TSearchParameters parameters = RandomParameters(random);
        TMapCounters counters;
        for (int i = 0; i < 20; ++i) {
            const std::size_t position = random() % twins.real.values.size();
            twins.literal.column = TTwins::Column(position);
            twins.literal.row = TTwins::Row(position);
            const TMapStep step = HighlightMapAt(twins.real.Grid(), position, GetParam().shape,
                                                 GetParam().contents, parameters, counters);
            ASSERT_EQ(step.found, twins.literal.MapAtCurrentCell(Literal(parameters)));
            ASSERT_EQ(TTwins::Column(step.next), twins.literal.column);
            ASSERT_EQ(TTwins::Row(step.next), twins.literal.row);
        }
        ASSERT_EQ(counters.linear, twins.literal.linearFound);
        ASSERT_EQ(counters.twoD, twins.literal.twoDFound);
    });
}

INSTANTIATE_TEST_SUITE_P(Maps, RandomImagesWithMaps, testing::ValuesIn(mapCases),
                         [](const auto &maps) { return std::string(maps.param.name); });

/// The edges of a 64 KiB image, and beyond.
TEST(LargeImages, AreSearchedToTheirLastByte) {
    TRandom random(1);
    for (const std::size_t size : {65535U, 65536U, 65537U, 100001U}) {
        SCOPED_TRACE(size);
        TBytes image(size);
        for (std::uint8_t &byte : image)
            byte = static_cast<std::uint8_t>(random());
        for (int i = 0; i < 200; ++i)
            PlantMap(random, image);
        TTwins twins(random, image);
        const TSearchParameters parameters;
        MarkPossibleValues(twins.real.Grid(), parameters.Timing(), possibleTimingColor);
        twins.literal.MarkPossible(10, 90, 0xFF00FF);
        MarkPointers(twins.real.Grid(), {5, 77}, 15);
        twins.literal.FindPointers(5, 77, 15);
        twins.ExpectSameColors();

        TMapCounters counters;
        TTwins maps(random, image);
        HighlightAllMaps(maps.real.Grid(), TMapShape::TwoD, TMapContents::Fuel, parameters,
                         counters);
        maps.literal.SearchAndHighlight({true, 90, 200, 0x008000, -1, -1});
        HighlightAllMaps(maps.real.Grid(), TMapShape::Linear, TMapContents::Any, parameters,
                         counters);
        maps.literal.SearchAndHighlight({false, 0, 255, 0xFFFFFF, -1, -1});
        EXPECT_EQ(counters.linear, maps.literal.linearFound);
        EXPECT_EQ(counters.twoD, maps.literal.twoDFound);
        EXPECT_GT(counters.twoD, 10);
        maps.ExpectSameColors();
    }
}

/// Small maps side by side or nearly so, more than are painted at a time.
TEST(LargeImages, OfSmallMapsAreSearchedAlike) {
    for (const unsigned seed : {1U, 2U, 3U, 4U}) {
        TRandom random(seed);
        TBytes image;
        while (image.size() < 20000) {
            const int high = seed % 2 == 0 ? 2 : 6;
            const TBytes map = OneIn(random, 2)
                                   ? LinearMap(Pick(random, 2, high), 100)
                                   : TwoDMap(Pick(random, 2, high), Pick(random, 2, high), 100);
            image.insert(image.end(), map.begin(), map.end());
            if (OneIn(random, 10))
                Append(image, random() % 20, 0xFF);
        }
        for (const bool twoD : {false, true}) {
            TTwins twins(random, image);
            TSearchParameters parameters;
            parameters.rpmLocation = seed < 3 ? 0x70 : -1;
            TMapCounters counters;
            HighlightAllMaps(twins.real.Grid(), twoD ? TMapShape::TwoD : TMapShape::Linear,
                             TMapContents::Fuel, parameters, counters);
            twins.literal.SearchAndHighlight({twoD, 90, 200, 0x008000, parameters.rpmLocation, -1});
            EXPECT_GT(counters.linear + counters.twoD, 200);
            EXPECT_EQ(counters.linear, twins.literal.linearFound);
            EXPECT_EQ(counters.twoD, twins.literal.twoDFound);
            twins.ExpectSameColors();
        }
    }
}

} // namespace
