#include "filedisplay/MapStarts.h"

#include <ostream>
#include <string>

#include <gmock/gmock.h>

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

constexpr TColor linearFuel = 0x008001;
constexpr TColor twoDFuel = 0x008002;
constexpr TColor linearTiming = 0x800081;
constexpr TColor twoDTiming = 0x800082;
constexpr std::int32_t current = 0x77; // where linear maps go

struct TAddCase {
    const char *name;
    std::vector<TColor> colors;
    TShownMaps shown;
    const char *added; ///< each map as "kind@found>placed"
};

std::ostream &operator<<(std::ostream &out, const TAddCase &item) {
    return out << item.name;
}

const TAddCase addCases[] = {
    {"no cell", {}, {}, ""},
    {"marks that start nothing", {fuelMapColor, axisCountColor, unmarkedColor}, {}, ""},
    {"a 2-D map goes where it was found", {unmarkedColor, twoDFuel}, {}, "2F@1>1 "},
    {"a linear map goes to the current cell", {unmarkedColor, linearFuel}, {}, "1F@1>119 "},
    {"all kinds in reading order",
     {unmarkedColor, twoDTiming, linearTiming, twoDFuel},
     {},
     "2T@1>1 1T@2>119 2F@3>3 "},
    {"a 2-D map that a page shows", {unmarkedColor, twoDFuel, twoDTiming}, {{1, 2}, {}}, ""},
    {"a linear map that a page shows", {unmarkedColor, linearFuel, linearTiming}, {{}, {1, 2}}, ""},
    {"2-D maps look at part throttle, linear ones at full throttle",
     {unmarkedColor, twoDFuel, linearFuel},
     {{2}, {1}},
     "2F@1>1 1F@2>119 "},
    {"an unplaced map of a page is at 0: a linear start there counts as shown",
     {linearFuel},
     {{}, {0}},
     ""},
};

class MapsToAddTest : public testing::TestWithParam<TAddCase> {};

TEST_P(MapsToAddTest, LeavesOutWhatIsShown) {
    std::string added;
    std::vector<TColor> colors = GetParam().colors;
    for (const TMapToAdd &map : MapsToAdd(colors, GetParam().shown, current))
        added += std::string(map.start.shape == TMapShape::TwoD ? "2" : "1") +
                 (map.start.contents == TMapContents::Fuel ? "F@" : "T@") +
                 std::to_string(map.foundAt) + ">" + std::to_string(map.placedAt) + " ";
    EXPECT_EQ(added, GetParam().added);
}
INSTANTIATE_TEST_SUITE_P(Cases, MapsToAddTest, testing::ValuesIn(addCases));

TEST(MapsToAdd, FindsALinearMapOnceWhenTheCurrentCellIsItsOwn) {
    std::vector<TColor> colors(0x80, unmarkedColor);
    colors[current] = linearFuel;
    EXPECT_EQ(MapsToAdd(colors, {}, current).size(), 1U);
    colors[current + 1] = linearFuel;
    EXPECT_EQ(MapsToAdd(colors, {}, current + 1).size(), 1U) << "placed by the first one";
}

TEST(MapsToAdd, TakesTheAddressOfTheHeaders) {
    std::vector<TColor> colors(0x10030, unmarkedColor);
    colors[0x10024] = twoDFuel;
    const std::vector<TMapToAdd> maps = MapsToAdd(colors, {}, 0);
    ASSERT_EQ(maps.size(), 1U);
    EXPECT_EQ(maps[0].placedAt, 0x1004);
    colors[0x1004] = twoDFuel; // of the same address, and before the other
    EXPECT_EQ(MapsToAdd(colors, {}, 0).size(), 1U);
    EXPECT_TRUE(MapsToAdd(colors, {{0x1004}, {}}, 0).empty());
}
} // namespace
