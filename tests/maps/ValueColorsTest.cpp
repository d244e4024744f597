// The scale by which cells are coloured by their value.
#include "maps/ValueColors.h"

#include <gtest/gtest.h>

namespace {
int Channel(TColor color, int shift) {
    return static_cast<int>(color >> shift & 0xFF);
}

/// Of 0 to 255, by the weights of the eye.
double Lightness(TColor color) {
    return 0.2126 * Channel(color, 0) + 0.7152 * Channel(color, 8) + 0.0722 * Channel(color, 16);
}

TEST(ValueColors, RunFromVioletToYellow) {
    EXPECT_EQ(ValueColor(0), 0x540144U);
    EXPECT_EQ(ValueColor(1), 0x25E7FDU);
    EXPECT_EQ(ValueColor(7.0 / 15), 0x8E8823U);
}

TEST(ValueColors, LieBetweenTheirNeighbours) {
    EXPECT_EQ(ValueColor(0.5 / 15), 0x600E46U);
}

TEST(ValueColors, StayAtTheEndsBeyondThem) {
    EXPECT_EQ(ValueColor(-3), ValueColor(0));
    EXPECT_EQ(ValueColor(1.5), ValueColor(1));
}

TEST(ValueColors, GetLighterAllTheWay) {
    for (int step = 1; step <= 64; ++step)
        EXPECT_GT(Lightness(ValueColor(step / 64.0)), Lightness(ValueColor((step - 1) / 64.0)))
            << step;
}
} // namespace
