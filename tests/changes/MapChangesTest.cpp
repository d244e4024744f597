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
    TImageChanges Changes() { return ImageChanges(before, after, workspace); }
    /// Changes one byte.
    TByteChange Change(std::uint32_t offset) {
        after[offset] = static_cast<std::uint8_t>(before[offset] + 1);
        return {offset, before[offset], after[offset]};
    }

    TWorkspace workspace;
    TBytes before;
    TBytes after;
};

TEST_F(TMapChangesTest, OfEqualImagesAreNone) {
    after = before;
    const TImageChanges changes = Changes();
    EXPECT_THAT(changes.runs, IsEmpty());
    EXPECT_THAT(changes.maps, IsEmpty());
    EXPECT_EQ(changes.revLimiter, std::nullopt);
    EXPECT_THAT(changes.elsewhere, IsEmpty());
    EXPECT_EQ(changes.sizeBefore, size);
}

TEST_F(TMapChangesTest, NameTheCellByItsPoints) {
    after = before;
    const std::uint32_t body = 0x1000 + 6 + 5;
    const TByteChange first = Change(body);
    const TByteChange other = Change(body + 2 * 3 + 1); // third RPM point, second load point
    const TImageChanges changes = Changes();
    ASSERT_EQ(changes.maps.size(), 1U);
    EXPECT_EQ(changes.maps[0].set, TMapSetKind::Fuel);
    EXPECT_EQ(changes.maps[0].kind, TMapKind::PT);
    EXPECT_THAT(changes.maps[0].cells,
                ElementsAre(TCellChange{0, 0, first}, TCellChange{2, 1, other}));
    EXPECT_THAT(changes.maps[0].axes, IsEmpty());
    EXPECT_THAT(changes.elsewhere, IsEmpty());
}

TEST_F(TMapChangesTest, TellAxesRevLimiterAndTheRestApart) {
    after = before;
    const TByteChange limiter = Change(0x40);
    const TByteChange step = Change(0x2000 + 3);
    const TByteChange load = Change(0x2000 + 6 + 3);
    Change(0x3000);
    Change(0x3001);
    const TImageChanges changes = Changes();
    EXPECT_EQ(changes.revLimiter, limiter);
    ASSERT_EQ(changes.maps.size(), 1U);
    EXPECT_EQ(changes.maps[0].set, TMapSetKind::Timing);
    EXPECT_THAT(changes.maps[0].axes, ElementsAre(step, load));
    EXPECT_THAT(changes.elsewhere, ElementsAre(TByteRun{0x3000, 2}));
    EXPECT_EQ(BytesOf(changes.runs), 5U);
}

TEST_F(TMapChangesTest, TellASharedByteForBothMaps) {
    workspace.fuelMapSet.SetOffsets(0, 0x1000, 0);
    workspace.timingMapSet.SetOffsets(0x1000, 0, 0);
    after = before;
    Change(0x1000 + 6);
    EXPECT_EQ(Changes().maps.size(), 2U);
}

TEST_F(TMapChangesTest, OfALongerImageKnowItsLength) {
    after = before;
    after.push_back(1);
    const TImageChanges changes = Changes();
    EXPECT_EQ(changes.sizeAfter, size + 1);
    EXPECT_THAT(changes.runs, IsEmpty());
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
    for (int pair = 0; pair < 1000; ++pair) {
        after = before;
        for (auto change = random() % 40; change > 0; --change)
            after[random() % (random() % 2 == 0 ? size : 0x1220)] =
                static_cast<std::uint8_t>(random());
        const TImageChanges changes = Changes();
        std::size_t told = BytesOf(changes.elsewhere) + (changes.revLimiter ? 1 : 0);
        for (const TMapChanges &map : changes.maps)
            told += map.cells.size() + map.axes.size();
        ASSERT_EQ(told, BytesOf(changes.runs)) << pair;
    }
}
} // namespace
