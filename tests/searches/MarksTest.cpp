// What the colours that the searches leave are called. The colours stand here as numbers, so that
// none of them changes with the program's own table.
#include "filedisplay/Marks.h"

#include "filedisplay/MapSearch.h"
#include "filedisplay/Searches.h"
#include "searches/TestCells.h"

#include <random>
#include <set>

#include <gtest/gtest.h>

namespace {
/// Colours that stand for one meaning: `first` with 0 to `count` - 1 times `step` added.
struct TNamedColors {
    TColor first;
    TColor step;
    TColor count;
    const char *name;
};

constexpr TNamedColors named[] = {
    {0x80000005, 0, 1, ""},
    {0x00FF00, 0, 1, "Possible Fuel Val"},
    {0xFF00FF, 0, 1, "Possible Timing Val"},
    {0x008080, 0, 1, "Searched Val, or a map's header"},
    {0xFF0000, 0, 1, "Axis Count"},
    {0x008001, 0, 1, "Start of a 1-D fuel map"}, // also a zero axis byte
    {0x018001, 0x10000, 255, "Axis Values"},
    {0x008002, 0, 1, "Start of a 2-D fuel map"}, // likewise
    {0x018002, 0x10000, 255, "Axis Values"},
    {0x008000, 0x10000, 256, "Map Data, fuel"},
    {0x800080, 0x100, 256, "Map Data, timing"},
    {0x800081, 0, 1, "Start of a 1-D timing map"},
    {0x800082, 0, 1, "Start of a 2-D timing map"},
    {0xFFFFFF, 0x10000, 256, "Map Data"}, // carries into the top byte
    {0x1000001, 0, 1, "Map Data"},        // the start of a 2-D map of any values
};

TEST(MarkNames, AreThoseOfEveryColourAndShade) {
    for (const TNamedColors &colors : named)
        for (TColor i = 0; i < colors.count; ++i)
            EXPECT_EQ(MarkName(colors.first + i * colors.step), colors.name)
                << std::hex << colors.first << " and " << i << " steps";
}

TEST(MarkNames, AreNothingForAColourThatIsNoMark) {
    for (const TColor color :
         {0x000000U, 0x0000FFU, 0x123456U, 0x008003U, 0x008102U, 0x008081U, 0x00FF01U, 0x800083U,
          0xFEFFFFU, 0x1FFFFFFU, 0x1000000U, 0x1000002U, 0x80000008U, 0x8000000FU, 0x81000005U})
        EXPECT_EQ(MarkName(color), "") << std::hex << color;
}

TEST(MarkNames, KnowWhateverTheSearchesLeave) {
    std::set<TColor> known;
    for (const TNamedColors &colors : named)
        for (TColor i = 0; i < colors.count; ++i)
            known.insert(colors.first + i * colors.step);
    std::mt19937 random(1);
    TBytes image(0x8000);
    for (std::uint8_t &byte : image)
        byte = static_cast<std::uint8_t>(random());
    TSearchParameters parameters;
    parameters.fuelMinimum = parameters.timingMinimum = 0;
    parameters.fuelMaximum = parameters.timingMaximum = 255;
    std::set<TColor> left;
    TMapCounters counters;
    const auto search = [&](auto &&mark) {
        TTestCells cells(image);
        mark(cells.Grid());
        left.insert(cells.colors.begin(), cells.colors.end());
    };
    for (const TMapShape shape : {TMapShape::Linear, TMapShape::TwoD})
        for (const TMapContents contents :
             {TMapContents::Fuel, TMapContents::Timing, TMapContents::Any})
            search([&](const TSearchGrid &grid) {
                HighlightAllMaps(grid, shape, contents, parameters, counters);
            });
    search([&](const TSearchGrid &grid) {
        MarkPossibleValues(grid, parameters.Fuel(), possibleFuelColor);
    });
    search([&](const TSearchGrid &grid) {
        MarkPossibleValues(grid, parameters.Timing(), possibleTimingColor);
    });
    search([](const TSearchGrid &grid) { MarkValue(grid, 7); });
    search([](const TSearchGrid &grid) { MarkPointers(grid, {5, 77}, 15); });
    known.erase(0x800081); // no search leaves it
    EXPECT_EQ(left, known);
}
} // namespace
