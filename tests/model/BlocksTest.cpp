#include "support/FailingVals.h"
#include "support/ModelFixture.h"

#include <cstdint>
#include <string>
#include <vector>

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string saveText = "Error saving data map data";

struct TBlocksTest : TModelTest {
    TFuelMapData block;

    /// Fills the image with bytes that tell their offset.
    void PutRamp() {
        for (std::size_t i = 0; i < Image().data.size(); ++i)
            Image().data[i] = static_cast<std::uint8_t>(i * 5 + i / 256);
    }
};

TEST_F(TBlocksTest, AreEmptyAtFirst) {
    EXPECT_FALSE(block.modified);
    EXPECT_FALSE(block.showConverted);
    EXPECT_EQ(block.size, 0);
    EXPECT_EQ(block.offset, 0);
    EXPECT_EQ(block.length, 0);
    EXPECT_EQ(block.columns, 0);
    EXPECT_EQ(block.rows, 0);
    EXPECT_EQ(block.values->GetItem(0, 0), nullptr);
}

TEST_F(TBlocksTest, MakeValuesOfTheirKind) {
    TTimingMapData timing;
    block.Load(0, 1, 1);
    timing.Load(0, 1, 1);
    EXPECT_NE(dynamic_cast<TFuelVal *>(block.values->GetItem(0, 0)), nullptr);
    EXPECT_NE(dynamic_cast<TTimingVal *>(timing.values->GetItem(0, 0)), nullptr);
}

TEST_F(TBlocksTest, LoadRunsRowByRow) {
    Put(0x601C, {0x00, 0x7F, 0x80, 0xFF, 5, 6});
    block.Load(0x601C, 3, 2);
    EXPECT_EQ(block.offset, 0x601C);
    EXPECT_EQ(block.size, 6);
    EXPECT_EQ(block.length, 6);
    EXPECT_EQ(block.rows, 3);
    EXPECT_EQ(block.columns, 2);
    EXPECT_THAT(RawOf(block), ElementsAre(0x00, 0x7F, 0x80, 0xFF, 5, 6));
    EXPECT_EQ(block.values->GetItem(1, 0)->raw, 0x80);
    EXPECT_FALSE(block.AnyModified());
}

struct TShapeCase {
    std::int32_t rows;
    std::int32_t columns;
    std::int32_t shownRows;
    std::int32_t shownColumns;
};

TEST_F(TBlocksTest, ShapesAreTakenModulo32) {
    PutRamp();
    for (const auto &[rows, columns, shownRows, shownColumns] : {TShapeCase{0, 0, 0, 0},
                                                                 {1, 1, 1, 1},
                                                                 {31, 20, 31, 20},
                                                                 {32, 8, 0, 8},
                                                                 {33, 8, 1, 8},
                                                                 {8, 32, 8, 0},
                                                                 {4, 33, 4, 1},
                                                                 {255, 255, 31, 31}}) {
        block.Load(0x100, rows, columns);
        EXPECT_EQ(block.rows, shownRows);
        EXPECT_EQ(block.columns, shownColumns);
        EXPECT_EQ(block.size, rows * columns) << "as stored";
        EXPECT_EQ(block.length, rows * columns);
        std::vector<std::int32_t> run;
        for (std::int32_t i = 0; i < shownRows * shownColumns; ++i)
            run.push_back(Image().Peek(0x100 + i));
        EXPECT_EQ(RawOf(block), run);
    }
}

TEST_F(TBlocksTest, ABlockBehindTheImageGetsNoValues) {
    Image().data.fill(0x55);
    for (const std::int32_t offset : {0x100000, 0x100001, highest}) {
        block.Load(offset, 2, 2);
        EXPECT_EQ(block.rows, 2);
        EXPECT_THAT(RawOf(block), ElementsAre(0, 0, 0, 0));
    }
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(TBlocksTest, BytesOutsideTheBufferReadZero) {
    Image().data.fill(0x55);
    block.Load(0xFFFFF, 3, 1);
    EXPECT_THAT(RawOf(block), ElementsAre(0x55, 0, 0));
    block.Load(0xFFFFE, 3, 1);
    EXPECT_THAT(RawOf(block), ElementsAre(0x55, 0x55, 0));
    block.Load(-1, 3, 1);
    EXPECT_THAT(RawOf(block), ElementsAre(0, 0x55, 0x55));
}

TEST_F(TBlocksTest, ALoadMakesFreshRawValuesButKeepsTheBlocksSwitch) {
    Put(0x10, {128});
    block.Load(0x10, 1, 1);
    block.SetShowConverted(true);
    EXPECT_EQ(block.values->GetItem(0, 0)->GetValue(), 1.0);
    block.Load(0x10, 1, 1);
    EXPECT_TRUE(block.showConverted);
    EXPECT_EQ(block.values->GetItem(0, 0)->GetValue(), 128.0);
    block.SetShowConverted(false);
    EXPECT_FALSE(block.showConverted);
    EXPECT_FALSE(block.values->GetItem(0, 0)->showConverted);
}

TEST_F(TBlocksTest, WithoutAnImageALoadKeepsTheGrid) {
    Put(0x10, {1, 2});
    block.Load(0x10, 2, 1);
    block.values->GetItem(0, 0)->SetValue(9);
    RemoveImage();
    block.Load(0x20, 3, 3);
    EXPECT_EQ(block.offset, 0x20);
    EXPECT_EQ(block.size, 9);
    EXPECT_EQ(block.rows, 2);
    EXPECT_THAT(RawOf(block), ElementsAre(9, 2));
    EXPECT_FALSE(block.AnyModified());
}

TEST_F(TBlocksTest, OutOfMemoryIsReportedOnceAndKeepsWhatWasMade) {
    Put(0x10, {1, 2, 3, 4});
    TFuelMapData scarce(CreateCollection<TScarceValCollection>);
    scarce.Load(0x10, 2, 2);
    EXPECT_THAT(Messages(), ElementsAre(memoryText));
    EXPECT_NE(scarce.values->GetItem(0, 1), nullptr);
    EXPECT_EQ(scarce.values->GetItem(1, 0), nullptr);
    EXPECT_FALSE(scarce.AnyModified());
}

TEST_F(TBlocksTest, ACellThatCannotBeFilledIsSkippedSilently) {
    Put(0x10, {18, 19, 20});
    TFuelMapData failing(CreateCollection<TFailingValCollection>);
    failing.Load(0x10, 3, 1);
    EXPECT_THAT(RawOf(failing), ElementsAre(18, 0, 20));
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(TBlocksTest, KnowsWhetherAnyValueIsModified) {
    block.Load(0x10, 3, 2);
    EXPECT_FALSE(block.AnyModified());
    block.values->GetItem(2, 1)->SetValue(0);
    EXPECT_TRUE(block.AnyModified());
    EXPECT_TRUE(block.modified);
    block.SetModified(false);
    EXPECT_FALSE(block.AnyModified());
    EXPECT_FALSE(block.modified);
    block.SetModified(true);
    EXPECT_TRUE(block.values->GetItem(0, 0)->modified);
}

TEST_F(TBlocksTest, AssignTakesEverything) {
    Put(0x10, {1, 2, 3, 4, 5, 6});
    block.Load(0x10, 2, 3);
    block.SetShowConverted(true);
    TFuelMapData copy;
    copy.Assign(block);
    EXPECT_EQ(copy.offset, 0x10);
    EXPECT_EQ(copy.length, 6);
    EXPECT_EQ(copy.size, 6);
    EXPECT_EQ(copy.rows, 2);
    EXPECT_EQ(copy.columns, 3);
    EXPECT_TRUE(copy.showConverted);
    EXPECT_TRUE(copy.modified);
    EXPECT_TRUE(copy.AnyModified());
    EXPECT_EQ(RawOf(copy), RawOf(block));
    EXPECT_EQ(copy.values->GetItem(1, 2)->GetValue(), 6 / 128.0);
    EXPECT_FALSE(block.AnyModified()) << "the source stays as it was";
}

TEST_F(TBlocksTest, AssignToLeavesTheDestinationsPlace) {
    Put(0x10, {1, 2, 3, 4, 5, 6});
    block.Load(0x10, 2, 3);
    TFuelMapData destination;
    destination.Load(0x800, 1, 1);
    destination.SetShowConverted(true);
    block.AssignTo(destination);
    EXPECT_EQ(destination.offset, 0x800);
    EXPECT_EQ(destination.length, 6);
    EXPECT_EQ(destination.size, 6);
    EXPECT_EQ(destination.rows, 2);
    EXPECT_EQ(destination.columns, 3);
    EXPECT_FALSE(destination.showConverted);
    EXPECT_TRUE(destination.modified);
    EXPECT_EQ(RawOf(destination), RawOf(block));
    EXPECT_TRUE(destination.values->GetItem(0, 0)->modified);
}

TEST_F(TBlocksTest, SaveWritesTheBytesItWasLoadedFrom) {
    PutRamp();
    const TBytes before = Get(0, TROMImage::capacity);
    block.Load(0x601C, 16, 8);
    block.Save();
    EXPECT_EQ(Get(0, TROMImage::capacity), before);
    EXPECT_TRUE(Image().modified) << "also for an unedited block";
}

TEST_F(TBlocksTest, SaveTouchesExactlyTheEditedCells) {
    PutRamp();
    TBytes expected = Get(0, TROMImage::capacity);
    block.Load(0x601C, 16, 8);
    block.values->GetItem(2, 5)->SetValue(200);
    block.values->GetItem(15, 7)->SetValue(300);
    block.values->GetItem(0, 0)->SetValue(-1);
    block.Save();
    expected[0x6031] = 200;
    expected[0x609B] = 44;
    expected[0x601C] = 255;
    EXPECT_EQ(Get(0, TROMImage::capacity), expected);
    EXPECT_FALSE(block.AnyModified());
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(TBlocksTest, CellsBehindTheBufferAreSkippedSilently) {
    block.Load(0xFFFFE, 4, 1);
    for (std::int32_t r = 0; r < 4; ++r)
        block.values->GetItem(r, 0)->SetValue(r + 1);
    block.Save();
    EXPECT_EQ(Get(0xFFFFD, 3), (TBytes{0, 1, 2}));
    EXPECT_FALSE(block.AnyModified());
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(TBlocksTest, ABodyThatStartsOutsideCannotBeSaved) {
    for (const std::int32_t offset : {0x100000, highest, -1}) {
        Messages().clear();
        Image().modified = false;
        block.Load(offset, 2, 1);
        block.values->GetItem(0, 0)->SetValue(9);
        block.values->GetItem(1, 0)->SetValue(9);
        block.Save();
        EXPECT_THAT(Messages(), ElementsAre(saveText)) << offset;
        EXPECT_TRUE(Image().modified);
        EXPECT_FALSE(block.AnyModified());
    }
    EXPECT_TRUE(ImageIsAll(0));
}

TEST_F(TBlocksTest, AnEmptyBodyIsSavedSilentlyAnywhere) {
    block.Load(0x100000, 0, 5);
    block.Save();
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_TRUE(Image().modified);
}

TEST_F(TBlocksTest, ACellThatCannotBeReadIsSkippedOnSave) {
    block.Load(0x10, 3, 1);
    for (std::int32_t r = 0; r < 3; ++r)
        block.values->GetItem(r, 0)->SetValue(r + 1);
    block.values->SetItem(1, 0, std::make_unique<TFailingVal>());
    block.Save();
    EXPECT_EQ(Get(0x10, 3), (TBytes{1, 0, 3}));
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(TBlocksTest, WithoutAnImageASaveOnlyClearsTheMarks) {
    block.Load(0x10, 1, 1);
    block.values->GetItem(0, 0)->SetValue(9);
    RemoveImage();
    block.Save();
    EXPECT_FALSE(block.AnyModified());
    EXPECT_THAT(Messages(), IsEmpty());
}

} // namespace
