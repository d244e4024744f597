// Which found maps are idle and full throttle, and which six belong together.
#include "discovery/SixMaps.h"

#include "MadeMaps.h"

#include <gtest/gtest.h>

namespace {

int PartThrottle(int r, int t) {
    return 110 + r + 5 * t;
}
int Idle(int r) {
    return PartThrottle(r, 0);
}
int Full(int r) {
    return PartThrottle(r, 7);
}

/// An image and a list of what lies in it, likely and best first.
struct TList {
    TBytes image;
    TFoundMaps found;

    void Add(const TBytes &map, TMapShape shape, TMapContents contents = TMapContents::Fuel) {
        TFoundMap one;
        const std::size_t offset = image.size();
        image.insert(image.end(), map.begin(), map.end());
        one.place = *PlaceAt(image, offset, shape);
        one.contents = contents;
        one.score = 5;
        found.maps.push_back(one);
        found.likely = found.maps.size();
    }
    void AddPartThrottle() { Add(TwoDMap(12, 8, PartThrottle), TMapShape::TwoD); }
    void AddLinear(int (*value)(int)) { Add(LinearMap(12, value), TMapShape::Linear); }
    TSix::value_type Fuel() {
        TellKinds(image, found);
        return found.six[0];
    }
};

using TSet = TSix::value_type;

constexpr int none = -1;

TSet SetOf(int partThrottle, int idle, int full) {
    TSet set;
    const int indexes[] = {partThrottle, idle, full};
    for (std::size_t i = 0; i < set.size(); ++i)
        if (indexes[i] != none)
            set[i] = static_cast<std::size_t>(indexes[i]);
    return set;
}

TEST(SixMaps, TellIdleFromFullThrottleByTheirValues) {
    TList list;
    list.AddPartThrottle();
    list.AddLinear(Full);
    list.AddLinear(Idle);
    EXPECT_EQ(list.Fuel(), SetOf(0, 2, 1));
    EXPECT_EQ(list.found.maps[1].kind, TMapKind::WOT);
    EXPECT_EQ(list.found.maps[2].kind, TMapKind::Idle);
}

TEST(SixMaps, TakeTheIdleMapInFrontWhereValuesSayNothing) {
    for (const bool withPartThrottle : {true, false}) {
        TList list;
        if (withPartThrottle)
            list.AddPartThrottle();
        list.AddLinear([](int) { return 130; });
        list.AddLinear([](int) { return 130; });
        const TSet set = list.Fuel();
        EXPECT_LT(*set[1], *set[2]);
    }
}

TEST(SixMaps, MayBeFewer) {
    EXPECT_EQ(TList().Fuel(), TSet());
    TList one;
    one.AddPartThrottle();
    EXPECT_EQ(one.Fuel(), SetOf(0, none, none));
    one.AddLinear(Full);
    EXPECT_EQ(one.Fuel(), SetOf(0, none, 1));
    TList idle;
    idle.AddPartThrottle();
    idle.AddLinear(Idle);
    EXPECT_EQ(idle.Fuel(), SetOf(0, 1, none));
}

TEST(SixMaps, AreThePairThatFitsBest) {
    TList list;
    list.AddPartThrottle();
    list.AddLinear([](int) { return 199; });
    list.AddLinear(Full);
    list.AddLinear(Idle);
    EXPECT_EQ(list.Fuel(), SetOf(0, 3, 2));
}

TEST(SixMaps, LeaveOutWhatIsNotLikely) {
    TList list;
    list.AddPartThrottle();
    list.AddLinear(Full);
    list.AddLinear(Idle);
    list.found.likely = 2;
    EXPECT_EQ(list.Fuel(), SetOf(0, none, 1));
    EXPECT_EQ(list.found.maps[2].kind, TMapKind::Idle) << "a kind has each of the list";
}

TEST(SixMaps, AreOfFuelAndTimingByThemselves) {
    TList list;
    list.Add(TwoDMap(12, 8, PartThrottle), TMapShape::TwoD, TMapContents::Timing);
    list.AddLinear(Idle);
    list.Add(LinearMap(12, Full), TMapShape::Linear, TMapContents::Timing);
    EXPECT_EQ(list.Fuel(), SetOf(none, 1, none));
    EXPECT_EQ(list.found.six[1], SetOf(0, none, 2));
}

} // namespace
