// What stands in place of a map that cannot be shown.
#include "maps/WhyNoMap.h"

#include "maps/FuelMapsGraphical.h"
#include "pages/MapPageFixture.h"

#include <QAccessible>

namespace {
using TWhyNoMapTest = TFuelPageTest;

constexpr auto unplaced = "Not placed: neither a spec file nor an offset says where this map is";

struct TShape {
    int axes;
    int rpmCount;
    int loadCount;
    const char *why;
};

TEST_F(TWhyNoMapTest, SaysWhatTheMapHasTooManyOrNoneOf) {
    const TShape shapes[] = {
        {2, 31, 20, ""},
        {2, 32, 20, "32 engine speeds: a map of 32 or more is not shown"},
        {2, 46, 3, "46 engine speeds: a map of 32 or more is not shown"},
        {2, 4, 21, "21 load points: a map of 21 or more is not shown"},
        {2, 255, 255, "255 engine speeds: a map of 32 or more is not shown"},
        {2, 0, 5, "0 engine speeds: there is no map at $4000"},
        {2, 4, 0, "0 load points: there is no map at $4000"},
        {2, 1, 1, ""},
        {1, 31, 0, ""},
        {1, 46, 0, "46 engine speeds: a map of 32 or more is not shown"},
        {1, 0, 0, "0 engine speeds: there is no map at $4000"},
    };
    for (const auto &[axes, rpmCount, loadCount, why] : shapes) {
        PutAxis(PutAxis(0x4000, TBytes(static_cast<std::size_t>(rpmCount), 1)),
                TBytes(static_cast<std::size_t>(loadCount), 1));
        TFuelMap map(axes);
        map.SetOffset(0x4000);
        if (axes == 1)
            map.axes->throttleAxis->SetSinglePoint(0);
        EXPECT_EQ(WhyNotShown(map), why) << axes << ": " << rpmCount << " x " << loadCount;
    }
}

TEST_F(TWhyNoMapTest, SaysThatAMapHasNoPlace) {
    TFuelMap map(2);
    EXPECT_EQ(WhyNotShown(map), unplaced);
    map.SetOffset(0);
    EXPECT_EQ(WhyNotShown(map), unplaced);
    map.SetPointer(0x7000, 0xFF); // reads $0000, a place like any other
    EXPECT_EQ(WhyNotShown(map), "0 engine speeds: there is no map at $0000");
    map.SetOffset(TROMImage::capacity);
    EXPECT_EQ(WhyNotShown(map), "0 engine speeds: there is no map at $100000");
    map.SetOffset(fuelPT);
    EXPECT_EQ(WhyNotShown(map), "");
    map.SetOffset(0);
    EXPECT_EQ(WhyNotShown(map), "") << "its old cells are still shown";
}

TEST_F(TWhyNoMapTest, StandsInPlaceOfTheMapUntilOneCanBeShown) {
    const QLabel &note = Find<QLabel>("lblPTNote");
    EXPECT_FALSE(note.isVisible());
    PutMap(0x4000, TBytes(46, 1), {100, 0});
    workspace.fuelMapSet.PTMap->SetOffset(0x4000);
    page->LoadPTMap();
    EXPECT_TRUE(note.isVisible());
    EXPECT_EQ(note.text(), "46 engine speeds: a map of 32 or more is not shown");
    EXPECT_FALSE(Find<QLabel>("lblIdNote").isVisible());
    EXPECT_FALSE(Find<QLabel>("lblFTNote").isVisible());
    const QAccessibleInterface *heard =
        QAccessible::queryAccessibleInterface(&Find<QLabel>("lblPTNote"));
    ASSERT_TRUE(heard);
    EXPECT_EQ(heard->text(QAccessible::Name), note.text());
    EXPECT_FALSE(heard->state().invisible);
    workspace.fuelMapSet.PTMap->SetOffset(fuelPT);
    page->LoadPTMap();
    EXPECT_FALSE(note.isVisible());
}

TEST_F(TWhyNoMapTest, EachUnplacedMapHasItsLine) {
    TWorkspace empty;
    TfrmTimingMaps other(nullptr, empty, empty.timingMapSet);
    other.ShowPage();
    for (const char *name : {"lblPTNote", "lblIdNote", "lblFTNote"}) {
        EXPECT_TRUE(FindControl<QLabel>(other, name).isVisible()) << name;
        EXPECT_EQ(FindControl<QLabel>(other, name).text(), unplaced) << name;
    }
}

TEST_F(TWhyNoMapTest, APastedMapTakesTheLineAway) {
    TFuelMapSet found; // as on an added page: "Copy Map" copies the workspace's map
    TfrmFuelMaps added(nullptr, workspace, found);
    added.ShowPage();
    EXPECT_TRUE(FindControl<QLabel>(added, "lblIdNote").isVisible());
    found.SetOffsets(fuelPT, fuelIdle, fuelWOT);
    FindControl<QAction>(added, "Copy2").trigger();
    FindControl<QAction>(added, "Paste2").trigger();
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_FALSE(FindControl<QLabel>(added, "lblIdNote").isVisible());
}

TEST_F(TWhyNoMapTest, AnAddedPageSpeaksOfItsOwnMapAlone) {
    TFuelMapSet found;
    TfrmFuelMaps added(nullptr, workspace, found);
    added.ShowOnly(TMapKind::Idle);
    added.ShowPage();
    EXPECT_TRUE(FindControl<QLabel>(added, "lblIdNote").isVisible());
    EXPECT_FALSE(FindControl<QLabel>(added, "lblPTNote").isVisible());
    EXPECT_FALSE(FindControl<QLabel>(added, "lblFTNote").isVisible());
}

TEST_F(TWhyNoMapTest, AGraphicalPageSaysWhyItHasNoChart) {
    PutMap(0x4000, {60, 60}, TBytes(21, 1));
    workspace.fuelMapSet.PTMap->SetOffset(0x4000);
    TfrmFuelMapsGraphical graphical(nullptr, workspace);
    graphical.resize(800, 500);
    graphical.ShowPage();
    QTest::qWait(0);
    const QLabel &note = FindControl<QLabel>(graphical, "lblPTNote");
    EXPECT_TRUE(note.isVisible());
    EXPECT_EQ(note.text(), "21 load points: a map of 21 or more is not shown");
    EXPECT_LT(note.mapTo(&graphical, QPoint()).x(), 40);
    EXPECT_FALSE(FindControl<QLabel>(graphical, "lblIdNote").isVisible());
    EXPECT_FALSE(FindControl<TAreaChart>(graphical, "chtPTMap").isVisible());
}
} // namespace
