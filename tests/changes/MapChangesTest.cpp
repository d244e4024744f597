// Differences of two images told by map and cell, axis, rev limiter and elsewhere.
#include "changes/MapChanges.h"

#include "model/ROMImage.h"
#include "support/ModelFixture.h"

#include <random>

#include <gmock/gmock.h>

namespace {
using testing::ElementsAre;
using testing::IsEmpty;

class TMapChangesTest : public TModelTest {
protected:
    static constexpr std::size_t size = 0x4000;

    void SetUp() override {
        Image().size = size;
        PutMap(0x1000, {60, 60, 60, 16}, {100, 100, 0}); // 4 x 3
        PutMap(0x1200, {60, 60, 60, 16}, {});            // 4
        PutMap(0x2000, {60, 60, 60, 16}, {100, 100, 0});
        workspace.fuelMapSet.SetOffsets(0x1000, 0x1200, 0);
        workspace.timingMapSet.SetOffsets(0x2000, 0, 0);
        workspace.fuelMapSet.revLimiter.SetOffset(0x40);
        before = Bytes();
    }

    TBytes Bytes() { return {Image().data.begin(), Image().data.begin() + size}; }
    TImageChanges Changes() {
        TMappedImage one(before);
        TMappedImage other(after);
        one.PlaceAs(workspace);
        other.PlaceAs(workspace);
        return ImageChanges(one, other);
    }
    /// Of the maps that have any.
    std::vector<TMapChanges> ChangedMaps() {
        std::vector<TMapChanges> maps = Changes().maps;
        std::erase_if(maps, [](const TMapChanges &map) { return !map.Any(); });
        return maps;
    }
    /// Changes one byte.
    TByteDifference Change(std::uint32_t offset) {
        after[offset] = static_cast<std::uint8_t>(before[offset] + 1);
        return {offset, offset, before[offset], after[offset]};
    }

    TWorkspace workspace;
    TBytes before;
    TBytes after;
};

TEST_F(TMapChangesTest, OfEqualImagesAreNone) {
    after = before;
    const TImageChanges changes = Changes();
    EXPECT_THAT(changes.runs, IsEmpty());
    EXPECT_THAT(ChangedMaps(), IsEmpty());
    EXPECT_EQ(changes.revLimiter, std::nullopt);
    EXPECT_THAT(changes.elsewhere, IsEmpty());
    EXPECT_EQ(changes.sizeBefore, size);
}

TEST_F(TMapChangesTest, NameTheCellByItsPoints) {
    after = before;
    const std::uint32_t body = 0x1000 + 6 + 5;
    const TByteDifference first = Change(body);
    const TByteDifference other = Change(body + 2 * 3 + 1); // third RPM point, second load point
    const std::vector<TMapChanges> maps = ChangedMaps();
    ASSERT_EQ(maps.size(), 1U);
    EXPECT_EQ(maps[0].map, (TMapId{TMapSetKind::Fuel, TMapKind::PT}));
    EXPECT_EQ(maps[0].match, TMatch::Same);
    EXPECT_THAT(maps[0].cells, ElementsAre(TCellChange{0, 0, first}, TCellChange{2, 1, other}));
    EXPECT_THAT(maps[0].axes, IsEmpty());
    EXPECT_THAT(Changes().elsewhere, IsEmpty());
}

TEST_F(TMapChangesTest, TellAxesRevLimiterAndTheRestApart) {
    after = before;
    const TByteDifference limiter = Change(0x40);
    const TByteDifference step = Change(0x2000 + 3);
    const TByteDifference load = Change(0x2000 + 6 + 3);
    Change(0x3000);
    Change(0x3001);
    const TImageChanges changes = Changes();
    EXPECT_EQ(changes.revLimiter, limiter);
    const std::vector<TMapChanges> maps = ChangedMaps();
    ASSERT_EQ(maps.size(), 1U);
    EXPECT_EQ(MapName(maps[0].map), "Timing PT");
    EXPECT_EQ(maps[0].match, TMatch::OtherAxes);
    EXPECT_THAT(maps[0].axes, ElementsAre(step, load));
    EXPECT_THAT(changes.elsewhere, ElementsAre(TByteRun{0x3000, 2}));
    EXPECT_EQ(BytesOf(changes.runs), 5U);
}

TEST_F(TMapChangesTest, TellASharedByteForBothMaps) {
    workspace.fuelMapSet.SetOffsets(0, 0x1000, 0);
    workspace.timingMapSet.SetOffsets(0x1000, 0, 0);
    after = before;
    Change(0x1000 + 6);
    EXPECT_EQ(ChangedMaps().size(), 2U);
}

TEST_F(TMapChangesTest, OfALongerImageKnowItsLength) {
    after = before;
    after.push_back(1);
    const TImageChanges changes = Changes();
    EXPECT_EQ(changes.sizeAfter, size + 1);
    EXPECT_THAT(changes.runs, IsEmpty());
}

/// The maps of the image `after` lie elsewhere.
class TMovedMapsTest : public TMapChangesTest {
protected:
    void SetUp() override {
        TMapChangesTest::SetUp();
        Image().data.fill(0);
        PutMap(0x3000, {60, 60, 60, 16}, {100, 100, 0});
        moved.fuelMapSet.SetOffsets(0x3000, 0, 0);
        moved.fuelMapSet.revLimiter.SetOffset(0x50);
        after = Bytes();
    }
    TImageChanges Compare() {
        TMappedImage one(before);
        TMappedImage other(after);
        other.PlaceAs(moved);
        Put(0, before); // the pointers and places of `workspace` are of that image
        one.PlaceAs(workspace);
        return ImageChanges(one, other);
    }
    TWorkspace moved;
};

TEST_F(TMovedMapsTest, AreMatchedByKind) {
    after[0x3000 + 11 + 4] = 200; // second RPM point, second load point
    const TMapChanges map = Compare().maps[0];
    EXPECT_EQ(map.match, TMatch::Same);
    EXPECT_THAT(map.cells, ElementsAre(TCellChange{1, 1, {0x1000 + 15, 0x3000 + 15, 5, 200}}));
    EXPECT_THAT(map.axes, IsEmpty());
}

TEST_F(TMovedMapsTest, CompareCellsOfOtherAxesOfTheSameShape) {
    after[0x3000 + 2] = 59;
    after[0x3000 + 11] = 99;
    const TMapChanges map = Compare().maps[0];
    EXPECT_EQ(map.match, TMatch::OtherAxes);
    EXPECT_EQ(map.cells.size(), 1U);
    EXPECT_THAT(map.axes, ElementsAre(TByteDifference{0x1002, 0x3002, 60, 59}));
}

TEST_F(TMovedMapsTest, OfOtherShapesAreNotCompared) {
    after[0x3007] = 2; // load points
    const TMapChanges map = Compare().maps[0];
    EXPECT_EQ(map.match, TMatch::OtherShape);
    EXPECT_FALSE(map.Any());
}

TEST_F(TMovedMapsTest, SayWhichImageHasNone) {
    EXPECT_EQ(Compare().maps[1].match, TMatch::OnlyBefore) << "fuel idle";
    EXPECT_EQ(Compare().maps[2].match, TMatch::None) << "fuel WOT";
    moved.fuelMapSet.SetOffsets(0, 0, 0x3000);
    EXPECT_EQ(Compare().maps[2].match, TMatch::OnlyAfter);
}

TEST_F(TMovedMapsTest, WithTheRevLimiterElsewhere) {
    before[0x40] = 150;
    after[0x50] = 170;
    EXPECT_EQ(Compare().revLimiter, (TByteDifference{0x40, 0x50, 150, 170}));
}

TEST_F(TMovedMapsTest, ThatAreComparedAreNotElsewhere) {
    const TImageChanges changes = Compare();
    for (const auto &[offset, length] : changes.elsewhere)
        EXPECT_TRUE(offset + length <= 0x1000 || offset >= 0x1000 + 23) << offset;
    EXPECT_GT(BytesOf(changes.runs), BytesOf(changes.elsewhere));
}

TEST_F(TMovedMapsTest, LeaveTheImageInForceAndItsMapsAlone) {
    const TBytes image = Bytes();
    Image().modified = false;
    TMappedImage other(after);
    other.PlaceAs(moved);
    other.InForce([] { ROMImage()->Poke(0x1000, 77); });
    EXPECT_EQ(Bytes(), image);
    EXPECT_FALSE(Image().modified);
    EXPECT_EQ(other.Bytes()[0x1000], 77);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(TMapChangesTest, AreShownInCountsAndUnits) {
    const TCellChange cell{0, 0, {}};
    const TMap &map = *workspace.fuelMapSet.PTMap;
    EXPECT_EQ(ShownValue(map, cell, 160, false), 160);
    EXPECT_EQ(ShownValue(map, cell, 160, true), 1.25);
    EXPECT_EQ(map.data->values->GetItem(0, 0)->raw, before[0x1000 + 11]) << "the map stays";
}

TEST_F(TMapChangesTest, TellEachByteOnceOfRandomPairs) {
    std::mt19937 random(5);
    for (int pair = 0; pair < 300; ++pair) {
        after = before;
        for (auto change = random() % 40; change > 0; --change) {
            const std::size_t place = random() % (random() % 2 == 0 ? size : 0x1220);
            const bool count = place == 0x1001 || place == 0x1007 || place == 0x1201;
            if (!count) // another shape is not compared
                after[place] = static_cast<std::uint8_t>(random());
        }
        const TImageChanges changes = Changes();
        std::size_t told = BytesOf(changes.elsewhere) + (changes.revLimiter ? 1 : 0);
        for (const TMapChanges &map : changes.maps)
            told += map.cells.size() + map.axes.size();
        ASSERT_EQ(told, BytesOf(changes.runs)) << pair;
    }
}
} // namespace
