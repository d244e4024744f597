#include "filedisplay/MapStarts.h"

#include <gtest/gtest.h>

namespace {
TEST(MapStarts, AreToldByTheirColourAlone) {
    const struct {
        TColor color;
        TMapContents contents;
        TMapShape shape;
        const char *name;
    } kinds[] = {
        {0x008001, TMapContents::Fuel, TMapShape::Linear, "1-D fuel map"},
        {0x008002, TMapContents::Fuel, TMapShape::TwoD, "2-D fuel map"},
        {0x800081, TMapContents::Timing, TMapShape::Linear, "1-D timing map"},
        {0x800082, TMapContents::Timing, TMapShape::TwoD, "2-D timing map"},
    };
    for (const auto &kind : kinds) {
        const TMapStart *start = MapStartOf(kind.color);
        ASSERT_TRUE(start) << kind.name;
        EXPECT_EQ(start->contents, kind.contents) << kind.name;
        EXPECT_EQ(start->shape, kind.shape) << kind.name;
    }
}

TEST(MapStarts, OtherColoursStartNoMap) {
    for (const TColor color :
         {unmarkedColor, fuelMapColor, timingMapColor, anyMapColor, anyMapColor + 2, axisCountColor,
          searchedColor, TColor{0x018001}, TColor{0x1008001}, TColor{0x008003}})
        EXPECT_FALSE(MapStartOf(color)) << std::hex << color;
}
} // namespace
