#include "filedisplay/MapStarts.h"

#include <gtest/gtest.h>

namespace {
TEST(MapStarts, AreToldByTheirColourAlone) {
    const struct {
        TColor color;
        TMapContents contents;
        TMapShape shape;
        const char *caption;
    } kinds[] = {
        {0x008001, TMapContents::Fuel, TMapShape::Linear, "1-D Fuel Map at $"},
        {0x008002, TMapContents::Fuel, TMapShape::TwoD, "2-D Fuel Map at $"},
        {0x800081, TMapContents::Timing, TMapShape::Linear, "1-D Timing Map at $"},
        {0x800082, TMapContents::Timing, TMapShape::TwoD, "2-D Timing Map at $"},
    };
    for (const auto &kind : kinds) {
        const TMapStart *start = MapStartOf(kind.color);
        ASSERT_TRUE(start) << kind.caption;
        EXPECT_EQ(start->contents, kind.contents) << kind.caption;
        EXPECT_EQ(start->shape, kind.shape) << kind.caption;
        EXPECT_STREQ(start->caption, kind.caption);
    }
}

TEST(MapStarts, OtherColoursStartNoMap) {
    for (const TColor color :
         {unmarkedColor, fuelMapColor, timingMapColor, anyMapColor, anyMapColor + 2, axisCountColor,
          searchedColor, TColor{0x018001}, TColor{0x1008001}, TColor{0x008003}})
        EXPECT_FALSE(MapStartOf(color)) << std::hex << color;
}
} // namespace
