#include "support/ModelFixture.h"

#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string dividerText = "Timing Divider Not yet Set";
const std::string revText = "Error saving rev limiter data";

/// Part throttle 3 x 2 at 0x100, idle 3 at 0x200, full throttle 2 at 0x300.
struct TMapSetsTest : TModelTest {
    TMapSetsTest() {
        PutMap(0x100, {1, 2, 3}, {4, 5});
        PutMap(0x200, {6, 7, 8}, {});
        PutMap(0x300, {9, 10}, {});
    }

    TFuelMapSet fuel;
    TTimingMapSet timing;

    static double LoadPoint(const TMap &map) {
        return map.axes->throttleAxis->values->GetItem(0, 0)->GetValue();
    }
    static TVal &Cell(TMap &map) { return *map.data->values->GetItem(0, 0); }
    static std::vector<std::int32_t> AllRaw(const TMapSet &set) {
        std::vector<std::int32_t> all;
        for (const TMapKind kind : {TMapKind::PT, TMapKind::Idle, TMapKind::WOT})
            for (const std::int32_t raw : RawOf(*set.Map(kind).data))
                all.push_back(raw);
        return all;
    }
};

TEST_F(TMapSetsTest, HaveThreeMapsOfTheirKind) {
    for (const TMapKind kind : {TMapKind::PT, TMapKind::Idle, TMapKind::WOT}) {
        EXPECT_NE(dynamic_cast<TFuelMap *>(&fuel.Map(kind)), nullptr);
        EXPECT_NE(dynamic_cast<TTimingMap *>(&timing.Map(kind)), nullptr);
    }
    EXPECT_EQ(&fuel.Map(TMapKind::PT), &*fuel.PTMap);
    EXPECT_EQ(&fuel.Map(TMapKind::Idle), &*fuel.IdleMap);
    EXPECT_EQ(&fuel.Map(TMapKind::WOT), &*fuel.WOTMap);
    EXPECT_EQ(fuel.PTMap->axisCount, 2);
    EXPECT_EQ(fuel.IdleMap->axisCount, 1);
    EXPECT_EQ(fuel.WOTMap->axisCount, 1);
    EXPECT_FALSE(fuel.showConverted);
    EXPECT_FALSE(fuel.IsModified());
}

TEST_F(TMapSetsTest, PlaceAllThreeWithTheirSingleLoadPoints) {
    fuel.SetOffsets(0x100, 0x200, 0x300);
    EXPECT_THAT(AllRaw(fuel), ElementsAre(1, 2, 3, 4, 5, 6, 1, 2, 3, 1, 2));
    EXPECT_EQ(LoadPoint(*fuel.IdleMap), 0.0);
    EXPECT_EQ(LoadPoint(*fuel.WOTMap), 100.0);
    EXPECT_FALSE(fuel.IsModified());
}

TEST_F(TMapSetsTest, PlaceThroughPointersWithTheirOwnMasks) {
    Put(0x400, {0xF1, 0x00, 0x82, 0x00, 0x73, 0x00});
    timing.SetPointers(0x400, 0x0F, 0x402, 0x7F, 0x404, 0x8F);
    EXPECT_EQ(timing.PTMap->GetLocation(), 0x100);
    EXPECT_EQ(timing.IdleMap->GetLocation(), 0x200);
    EXPECT_EQ(timing.WOTMap->GetLocation(), 0x300);
    EXPECT_THAT(AllRaw(timing), ElementsAre(1, 2, 3, 4, 5, 6, 1, 2, 3, 1, 2));
    EXPECT_EQ(LoadPoint(*timing.IdleMap), 0.0);
    EXPECT_EQ(LoadPoint(*timing.WOTMap), 100.0);
}

TEST_F(TMapSetsTest, OffsetsOfZeroLeaveTheMapsAsTheyWere) {
    fuel.SetOffsets(0x100, 0x200, 0x300);
    Cell(*fuel.PTMap).SetValue(99);
    const auto before = AllRaw(fuel);
    fuel.SetOffsets(0, 0, 0);
    EXPECT_EQ(AllRaw(fuel), before);
    EXPECT_TRUE(fuel.IsModified());
    EXPECT_EQ(LoadPoint(*fuel.WOTMap), 100.0);
}

TEST_F(TMapSetsTest, UnplacedLinearMapsGetTheirLoadPointToo) {
    fuel.SetOffsets(0, 0, 0);
    EXPECT_EQ(fuel.IdleMap->LoadCount(), 1);
    EXPECT_EQ(LoadPoint(*fuel.IdleMap), 0.0);
    EXPECT_EQ(LoadPoint(*fuel.WOTMap), 100.0);
    EXPECT_EQ(fuel.PTMap->LoadCount(), 0);
}

TEST_F(TMapSetsTest, RereadingOneMapGivesTheLoadPointZero) {
    fuel.SetOffsets(0x100, 0x200, 0x300);
    fuel.WOTMap->SetOffset(0x300);
    EXPECT_EQ(LoadPoint(*fuel.WOTMap), 0.0) << "the page puts 100 back";
}

TEST_F(TMapSetsTest, AreModifiedWhenAnyMapIs) {
    for (const TMapKind kind : {TMapKind::PT, TMapKind::Idle, TMapKind::WOT}) {
        timing.SetOffsets(0x100, 0x200, 0x300);
        EXPECT_FALSE(timing.IsModified());
        Cell(timing.Map(kind)).SetValue(5);
        EXPECT_TRUE(timing.IsModified());
    }
}

TEST_F(TMapSetsTest, AskingAConstantSetChangesNothing) {
    timing.SetOffsets(0x100, 0x200, 0x300);
    Cell(*timing.IdleMap).SetValue(5);
    const TMapSet &set = timing;
    EXPECT_TRUE(set.IsModified());
    EXPECT_FALSE(set.IdleMap->data->modified) << "that is for AnyModified to say";
    timing.IdleMap->data->SetModified(false);
    timing.IdleMap->data->modified = true;
    EXPECT_FALSE(set.IsModified());
    EXPECT_TRUE(set.IdleMap->data->modified);
}

/// Constant all the way down to the value.
template <class TObject>
constexpr bool isConstant = std::is_const_v<std::remove_reference_t<TObject>>;
using TConstantMap = decltype(*std::declval<const TMapSet &>().PTMap);
static_assert(isConstant<TConstantMap>);
static_assert(isConstant<decltype(std::declval<const TMapSet &>().Map(TMapKind::PT))>);
static_assert(isConstant<decltype(*std::declval<TConstantMap>().location)>);
static_assert(isConstant<decltype(*std::declval<TConstantMap>().axes->rpmAxis)>);
static_assert(isConstant<decltype(*std::declval<TConstantMap>().data->values->GetItem(0, 0))>);

TEST_F(TMapSetsTest, SaveAllRewritesTheSameBytesWhenUnedited) {
    fuel.SetOffsets(0x100, 0x200, 0x300);
    timing.SetOffsets(0x100, 0x200, 0x300);
    fuel.revLimiter.SetOffset(0x20);
    const TBytes before = Get(0, TROMImage::capacity);
    fuel.SaveAll();
    timing.SaveAll();
    EXPECT_EQ(Get(0, TROMImage::capacity), before);
    EXPECT_TRUE(Image().modified);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(TMapSetsTest, SaveAllWritesEveryMap) {
    fuel.SetOffsets(0x100, 0x200, 0x300);
    fuel.revLimiter.SetOffset(0x20);
    Cell(*fuel.PTMap).SetValue(101);
    Cell(*fuel.IdleMap).SetValue(102);
    Cell(*fuel.WOTMap).SetValue(103);
    fuel.revLimiter.SetValue(6510);
    TBytes expected = Get(0, TROMImage::capacity);
    expected[0x109] = 101;
    expected[0x205] = 102;
    expected[0x304] = 103;
    expected[0x20] = 163;
    fuel.SaveAll();
    EXPECT_EQ(Get(0, TROMImage::capacity), expected);
    EXPECT_FALSE(fuel.IsModified());
}

TEST_F(TMapSetsTest, TheRevLimiterIsThereAboveOffsetZero) {
    EXPECT_FALSE(fuel.HasRevLimiter());
    Put(0x20, {0xA0});
    for (const auto &[offset, present] :
         {std::pair{-1, false}, {0, false}, {1, true}, {0x20, true}}) {
        fuel.revLimiter.SetOffset(offset);
        EXPECT_EQ(fuel.HasRevLimiter(), present) << offset;
    }
    EXPECT_EQ(fuel.revLimiter.GetValue(), 6400.0);
}

TEST_F(TMapSetsTest, AnEditedRevLimiterModifiesTheFuelSet) {
    fuel.revLimiter.SetOffset(0x20);
    EXPECT_FALSE(fuel.IsModified());
    fuel.revLimiter.SetValue(4000);
    EXPECT_TRUE(fuel.IsModified());
    fuel.SaveAll();
    EXPECT_FALSE(fuel.IsModified());
    EXPECT_EQ(Image().Peek(0x20), 100);
}

TEST_F(TMapSetsTest, AnUnplacedRevLimiterReportsAtEachSave) {
    fuel.SetOffsets(0x100, 0x200, 0x300);
    fuel.SaveAll();
    EXPECT_THAT(Messages(), ElementsAre(revText));
    fuel.SaveAll();
    EXPECT_THAT(Messages(), ElementsAre(revText, revText));
    timing.SaveAll();
    EXPECT_THAT(Messages(), ElementsAre(revText, revText));
}

TEST_F(TMapSetsTest, WithoutAnImageSaveAllDoesNothing) {
    fuel.SetOffsets(0x100, 0x200, 0x300);
    Cell(*fuel.PTMap).SetValue(9);
    RemoveImage();
    fuel.SaveAll();
    EXPECT_TRUE(fuel.IsModified());
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(TMapSetsTest, TheInterpretationSwitchReachesAllBodies) {
    fuel.SetOffsets(0x100, 0x200, 0x300);
    for (const bool flag : {true, false}) {
        fuel.SetShowConverted(flag);
        EXPECT_EQ(fuel.showConverted, flag);
        for (const TMapKind kind : {TMapKind::PT, TMapKind::Idle, TMapKind::WOT}) {
            EXPECT_EQ(fuel.Map(kind).GetCellFormat(), flag ? "###0.00" : "##0");
            EXPECT_EQ(Cell(fuel.Map(kind)).GetValue(), flag ? 1 / 128.0 : 1.0);
        }
    }
}

TEST_F(TMapSetsTest, PlacedAnewCellsAreRawUntilTheSwitchIsAppliedAgain) {
    fuel.SetOffsets(0x100, 0x200, 0x300);
    fuel.SetShowConverted(true);
    fuel.SetOffsets(0x100, 0x200, 0x300);
    EXPECT_EQ(Cell(*fuel.PTMap).GetValue(), 1.0);
    EXPECT_EQ(fuel.PTMap->GetCellFormat(), "###0.00");
    fuel.SetShowConverted(true);
    EXPECT_EQ(Cell(*fuel.PTMap).GetValue(), 1 / 128.0);
}

TEST_F(TMapSetsTest, ZeroMapsClearsEveryCellButNotTheImage) {
    fuel.SetOffsets(0x100, 0x200, 0x300);
    const TBytes before = Get(0, TROMImage::capacity);
    fuel.ZeroMaps();
    EXPECT_THAT(AllRaw(fuel), Each(0));
    EXPECT_TRUE(fuel.PTMap->IsModified());
    EXPECT_TRUE(fuel.IdleMap->IsModified());
    EXPECT_TRUE(fuel.WOTMap->IsModified());
    EXPECT_EQ(Get(0, TROMImage::capacity), before);
}

TEST_F(TMapSetsTest, ZeroMapsSetsTimingCellsToZeroDegrees) {
    TimingConstants() = {0.65, 12.7};
    timing.SetOffsets(0x100, 0x200, 0x300);
    timing.ZeroMaps();
    EXPECT_THAT(AllRaw(timing), Each(0)) << "raw cells are set to the byte 0";
    timing.SetShowConverted(true);
    timing.ZeroMaps();
    EXPECT_THAT(AllRaw(timing), Each(13));
}

TEST_F(TMapSetsTest, ZeroMapsReportsAMissingDividerOncePerRun) {
    timing.SetOffsets(0x100, 0x200, 0x300);
    timing.SetShowConverted(true);
    const auto before = AllRaw(timing);
    timing.ZeroMaps();
    EXPECT_THAT(Messages(), ElementsAre(dividerText));
    EXPECT_EQ(AllRaw(timing), before);
    EXPECT_TRUE(timing.IsModified());
    timing.ZeroMaps();
    EXPECT_THAT(Messages(), ElementsAre(dividerText, dividerText));
    ShowModelMessage("after");
    EXPECT_EQ(Messages().back(), "after") << "messages flow again";
}

struct TZeroCase {
    std::size_t rpm;
    std::size_t load;
    bool zeroed;
};

TEST_F(TMapSetsTest, ZeroMapsKeepsToItsLimits) {
    for (const auto &[rpm, load, zeroed] :
         {TZeroCase{31, 20, true}, {31, 21, false}, {3, 31, false}, {33, 4, false}}) {
        PutAxis(PutAxis(0x1000, TBytes(rpm, 1)), TBytes(load, 1));
        fuel.SetOffsets(0x1000, 0, 0);
        fuel.ZeroMaps();
        EXPECT_EQ(fuel.PTMap->IsModified(), zeroed) << rpm << " x " << load;
    }
    for (const auto &[rpm, load, zeroed] : {TZeroCase{31, 1, true}, {33, 1, false}}) {
        PutAxis(0x1000, TBytes(rpm, 1));
        fuel.SetOffsets(0, 0x1000, 0x1000);
        fuel.ZeroMaps();
        EXPECT_EQ(fuel.IdleMap->IsModified(), zeroed) << rpm;
        EXPECT_EQ(fuel.WOTMap->IsModified(), zeroed) << rpm;
    }
}

TEST_F(TMapSetsTest, AWorkspaceHoldsBothSetsAndEmptyPasteSlots) {
    TWorkspace workspace;
    EXPECT_TRUE(workspace.romFileName.empty());
    for (const TMapKind kind : {TMapKind::PT, TMapKind::Idle, TMapKind::WOT}) {
        EXPECT_EQ(workspace.fuelPasteSlots[kind], nullptr);
        EXPECT_EQ(workspace.timingPasteSlots[kind], nullptr);
    }
    workspace.fuelMapSet.SetOffsets(0x100, 0x200, 0x300);
    workspace.fuelPasteSlots[TMapKind::WOT] = workspace.fuelMapSet.WOTMap->CreateCopy();
    EXPECT_EQ(workspace.fuelPasteSlots[TMapKind::WOT]->RPMCount(), 2);
    EXPECT_EQ(workspace.fuelPasteSlots[TMapKind::Idle], nullptr);
    EXPECT_EQ(workspace.timingPasteSlots[TMapKind::WOT], nullptr);
}

TEST_F(TMapSetsTest, AreReadAnewWithTheRevLimiterWhenOtherHandsHaveChangedTheImage) {
    TWorkspace workspace;
    TFuelMapSet &set = workspace.fuelMapSet;
    Put(0x400, {0x03, 0x00}); // full throttle through a pointer
    set.SetOffsets(0x100, 0x200, 0);
    set.WOTMap->SetPointer(0x400, 0xFF);
    workspace.timingMapSet.SetOffsets(0x100, 0, 0);
    set.revLimiter.SetOffset(0x500);
    set.SetShowConverted(true);
    Cell(*set.PTMap).SetValue(1.5);
    set.revLimiter.SetValue(4000);

    PutMap(0x100, {1, 2}, {4, 5});
    Put(0x108, {77});
    Put(0x200 + 5, {78});
    Put(0x300 + 4, {79});
    Put(0x500, {80});
    ReadMapsAnew(workspace);
    EXPECT_FALSE(set.IsModified());
    EXPECT_EQ(set.PTMap->RPMCount(), 2);
    EXPECT_TRUE(Cell(*set.PTMap).showConverted) << "as the page shows it";
    EXPECT_EQ(Cell(*set.PTMap).raw, 77);
    EXPECT_EQ(Cell(*set.IdleMap).raw, 78);
    EXPECT_EQ(Cell(*set.WOTMap).raw, 79);
    EXPECT_EQ(set.WOTMap->location->offset, 0x400) << "placed as it was";
    EXPECT_EQ(LoadPoint(*set.WOTMap), 100.0);
    EXPECT_EQ(set.revLimiter.raw, 80);
    EXPECT_EQ(RawOf(*workspace.timingMapSet.PTMap->data), RawOf(*set.PTMap->data));
    EXPECT_FALSE(Cell(*workspace.timingMapSet.PTMap).showConverted);
}

TEST_F(TMapSetsTest, WithoutAPlaceAreNotReadAnew) {
    fuel.ReadAnew();
    EXPECT_EQ(fuel.PTMap->RPMCount(), 0);
    EXPECT_FALSE(fuel.HasRevLimiter());
    fuel.SetOffsets(0x100, 0x200, 0x300);
    fuel.PTMap->SetOffset(0); // keeps its old place and values
    Put(0x108, {77});
    fuel.ReadAnew();
    EXPECT_EQ(Cell(*fuel.PTMap).raw, 1);
}

} // namespace
