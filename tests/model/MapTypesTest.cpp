#include "support/FailingVals.h"
#include "support/ModelFixture.h"

#include <cstdint>
#include <initializer_list>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

struct TMapTypesTest : TModelTest {
    TFuelMap map{2};
    TFuelMap linear{1};

    static TVal &Cell(TMap &of, std::int32_t r, std::int32_t t) {
        return *of.data->values->GetItem(r, t);
    }
    static std::int32_t BodyOf(const TMap &of) { return of.data->offset; }
};

TEST_F(TMapTypesTest, AreUnplacedAndEmptyAtFirst) {
    EXPECT_FALSE(map.isCopy);
    EXPECT_EQ(map.name, "");
    EXPECT_EQ(map.location->offset, -1);
    EXPECT_EQ(map.location->raw, 0);
    EXPECT_EQ(map.GetLocation(), 0);
    EXPECT_EQ(map.axisCount, 2);
    EXPECT_EQ(map.axes->axisCount, 2);
    EXPECT_EQ(map.RPMCount(), 0);
    EXPECT_EQ(map.LoadCount(), 0);
    EXPECT_FALSE(map.IsModified());
}

TEST_F(TMapTypesTest, KindsHaveTheirCellsAndFormats) {
    TTimingMap timing(1);
    EXPECT_EQ(map.convertedFormat, "###0.00");
    EXPECT_EQ(timing.convertedFormat, "###0.0");
    EXPECT_EQ(map.rawFormat, "##0");
    EXPECT_EQ(timing.rawFormat, "##0");
    PutMap(0x100, {1}, {1});
    map.SetOffset(0x100);
    timing.SetOffset(0x100);
    EXPECT_NE(dynamic_cast<TFuelVal *>(&Cell(map, 0, 0)), nullptr);
    EXPECT_NE(dynamic_cast<TTimingVal *>(&Cell(timing, 0, 0)), nullptr);
    EXPECT_NE(dynamic_cast<TFuelMapData *>(&*map.data), nullptr);
    EXPECT_NE(dynamic_cast<TTimingMapData *>(&*timing.data), nullptr);
}

TEST_F(TMapTypesTest, APartThrottleMapHasItsBodyBehindTwoAxes) {
    PutMap(0x6000, TBytes(16, 2), TBytes(8, 3));
    map.SetOffset(0x6000);
    EXPECT_EQ(map.GetLocation(), 0x6000);
    EXPECT_EQ(BodyOf(map), 0x601C);
    EXPECT_EQ(map.data->length, 128);
    EXPECT_EQ(map.RPMCount(), 16);
    EXPECT_EQ(map.LoadCount(), 8);
    EXPECT_EQ(Cell(map, 2, 5).raw, Image().Peek(0x6031));
    Image().Poke(0x6031, 0xC8);
    map.SetOffset(0x6000);
    EXPECT_EQ(Cell(map, 2, 5).raw, 0xC8);
    EXPECT_FALSE(map.IsModified());
}

TEST_F(TMapTypesTest, ALinearMapHasItsBodyBehindTheRPMAxis) {
    PutMap(0x6000, TBytes(16, 2), {});
    linear.SetOffset(0x6000);
    EXPECT_EQ(BodyOf(linear), 0x6012);
    EXPECT_EQ(linear.data->length, 16);
    EXPECT_EQ(linear.data->columns, 1);
    EXPECT_EQ(linear.LoadCount(), 1);
    EXPECT_EQ(Cell(linear, 15, 0).raw, 16);
}

TEST_F(TMapTypesTest, OffsetZeroRecordsTheLocationOnly) {
    PutMap(0x6000, {1, 2}, {3});
    map.SetOffset(0x6000);
    Cell(map, 0, 0).SetValue(99);
    map.SetOffset(0);
    EXPECT_EQ(map.GetLocation(), 0);
    EXPECT_EQ(map.location->offset, -1);
    EXPECT_EQ(map.axes->offset, 0x6000);
    EXPECT_EQ(Cell(map, 0, 0).raw, 99);
    map.Save();
    EXPECT_EQ(Image().Peek(BodyOf(map)), 99) << "a save still goes to the old place";
}

struct TPointerCase {
    std::int32_t bitmask;
    std::int32_t location;
};

TEST_F(TMapTypesTest, PointersPlaceAMap) {
    Put(0x200, {0x86, 0x1C});
    PutMap(0x061C, {1, 2, 3}, {4, 5});
    PutMap(0x861C, {1, 2}, {4});
    for (const auto &[bitmask, location] : {TPointerCase{0x7F, 0x061C}, {0xFF, 0x861C}}) {
        map.SetPointer(0x200, bitmask);
        EXPECT_EQ(map.GetLocation(), location);
        EXPECT_EQ(map.axes->offset, location);
        EXPECT_EQ(map.location->offset, 0x200);
        EXPECT_EQ(map.location->raw, 0x86);
        EXPECT_EQ(map.location->bitmask, bitmask);
    }
    EXPECT_EQ(map.RPMCount(), 2);
    map.SetOffset(0x061C);
    EXPECT_EQ(map.location->offset, -1) << "placed directly again";
    EXPECT_EQ(map.RPMCount(), 3);
}

TEST_F(TMapTypesTest, APointerOfZeroIsAPlaceLikeAnyOther) {
    PutMap(0, {1, 2}, {3});
    const TBytes axes = Get(0, 7);
    map.SetPointer(0x200, 0xFF);
    EXPECT_EQ(map.GetLocation(), 0);
    EXPECT_EQ(map.RPMCount(), 2);
    EXPECT_EQ(BodyOf(map), 7);
    map.axes->rpmAxis->values->GetItem(0, 0)->raw = 0;
    Cell(map, 0, 0).SetValue(77);
    map.Save();
    EXPECT_EQ(Get(0, 7), axes) << "an RPM axis at 0 counts as not placed";
    EXPECT_EQ(Image().Peek(7), 77);
}

TEST_F(TMapTypesTest, OutsideTheImageGridsAreEmptyWithoutMessage) {
    Image().data.fill(0x21);
    for (const std::int32_t offset : {0x100000, highest, highest - 1, -2, -70000}) {
        map.SetOffset(offset);
        EXPECT_EQ(map.GetLocation(), offset);
        EXPECT_EQ(map.RPMCount(), 0) << offset;
        EXPECT_THAT(RawOf(*map.data), IsEmpty());
        map.Save();
    }
    EXPECT_TRUE(ImageIsAll(0x21));
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(TMapTypesTest, InTheLastBytesNothingIsReadOrWrittenBeyond) {
    for (std::int32_t offset = 0xFFFE0; offset <= 0xFFFFF; ++offset)
        for (const std::uint8_t fill :
             std::initializer_list<std::uint8_t>{0, 1, 2, 5, 31, 32, 255}) {
            Image().data.fill(fill);
            for (TMap *each : {&map, &linear}) {
                each->SetOffset(offset);
                each->Save();
            }
            EXPECT_TRUE(ImageIsAll(fill)) << offset << " " << int{fill};
        }
}

struct TFitCase {
    std::size_t rpm;
    std::size_t load;
    bool fits;
};

TEST_F(TMapTypesTest, FitByTheirStoredCounts) {
    for (const auto &[rpm, load, fits] : {TFitCase{0, 0, true},
                                          {1, 1, true},
                                          {31, 20, true},
                                          {32, 20, false},
                                          {33, 1, false},
                                          {31, 21, false},
                                          {16, 32, false},
                                          {16, 33, false},
                                          {255, 255, false}}) {
        const std::int32_t loadAxis = PutAxis(0x100, TBytes(rpm, 1));
        PutAxis(loadAxis, TBytes(load, 1));
        map.SetOffset(0x100);
        EXPECT_EQ(map.RPMCount(), static_cast<std::int32_t>(rpm));
        EXPECT_EQ(map.LoadCount(), static_cast<std::int32_t>(load));
        EXPECT_EQ(map.Fits(), fits) << rpm << " x " << load;
    }
}

TEST_F(TMapTypesTest, WalksAreModulo32WithStoredLengths) {
    const std::int32_t loadAxis = PutAxis(0x100, TBytes(33, 1));
    const std::int32_t body = PutAxis(loadAxis, TBytes(34, 1));
    Put(body, {7, 8, 9});
    const TBytes before = Get(0, TROMImage::capacity);
    map.SetOffset(0x100);
    EXPECT_EQ(loadAxis, 0x100 + 35);
    EXPECT_EQ(BodyOf(map), 0x100 + 35 + 36);
    EXPECT_EQ(map.data->size, 33 * 34);
    EXPECT_THAT(RawOf(*map.data), ElementsAre(7, 8));
    map.Save();
    EXPECT_EQ(Get(0, TROMImage::capacity), before);
    Cell(map, 0, 1).SetValue(80);
    map.Save();
    EXPECT_EQ(Get(body, 3), (TBytes{7, 80, 9}));
}

TEST_F(TMapTypesTest, OnlyBodyEditsCountAsModified) {
    PutMap(0x6000, {1, 2}, {3});
    map.SetOffset(0x6000);
    map.axes->rpmAxis->values->GetItem(0, 0)->SetValue(400);
    map.axes->throttleAxis->values->GetItem(0, 0)->SetValue(40);
    EXPECT_FALSE(map.IsModified()) << "axis edits do not count, as intended";
    Cell(map, 1, 0).SetValue(2);
    EXPECT_TRUE(map.IsModified());
    map.Save();
    EXPECT_FALSE(map.IsModified());
    EXPECT_TRUE(Image().modified);
}

TEST_F(TMapTypesTest, PlacingAnewDiscardsEdits) {
    PutMap(0x6000, {1, 2}, {3});
    map.SetOffset(0x6000);
    Cell(map, 1, 0).SetValue(99);
    map.SetOffset(0x6000);
    EXPECT_FALSE(map.IsModified());
    EXPECT_EQ(Cell(map, 1, 0).raw, 2);
}

TEST_F(TMapTypesTest, AnUnplacedMapSavesNothingButMarksTheImage) {
    Image().data.fill(9);
    map.Save();
    EXPECT_TRUE(ImageIsAll(9));
    EXPECT_TRUE(Image().modified);
}

TEST_F(TMapTypesTest, WithoutAnImageNothingHappens) {
    RemoveImage();
    map.SetOffset(0x100);
    map.SetPointer(0x100, 0xFF);
    map.Save();
    EXPECT_FALSE(map.IsModified());
    EXPECT_EQ(map.RPMCount(), 0);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(TMapTypesTest, ABodyThatStartsBehindTheImageReportsItsSave) {
    PutAxis(0xFFFF0, TBytes(14, 1));
    linear.SetOffset(0xFFFF0);
    EXPECT_EQ(BodyOf(linear), 0x100000);
    EXPECT_THAT(RawOf(*linear.data), SizeIs(14));
    linear.Save();
    EXPECT_THAT(Messages(), ElementsAre("Error saving data map data"));
    EXPECT_TRUE(Image().modified);
}

TEST_F(TMapTypesTest, AfterAReloadCellsAreRawWhileTheFormatIsConverted) {
    PutMap(0x6000, {1}, {3});
    map.SetOffset(0x6000);
    EXPECT_EQ(map.GetCellFormat(), "##0");
    map.data->SetShowConverted(true);
    EXPECT_EQ(map.GetCellFormat(), "###0.00");
    EXPECT_EQ(Cell(map, 0, 0).GetValue(), 1 / 128.0);
    map.SetOffset(0x6000);
    EXPECT_EQ(map.GetCellFormat(), "###0.00");
    EXPECT_EQ(Cell(map, 0, 0).GetValue(), 1.0);
}

TEST_F(TMapTypesTest, CellsFollowTheirFormat) {
    PutMap(0x6000, {1}, {3});
    Image().Poke(0x6006, 131);
    map.SetOffset(0x6000);
    EXPECT_EQ(FormatReal(map.GetCellFormat(), Cell(map, 0, 0).GetValue()), "131");
    map.data->SetShowConverted(true);
    EXPECT_EQ(FormatReal(map.GetCellFormat(), Cell(map, 0, 0).GetValue()), "1.02");
}

template <class TKind, class TData>
void ExpectCopyOf(TKind &source) {
    source.name = "Copied";
    source.rawFormat = "##0.0";
    source.data->SetShowConverted(true);
    const std::unique_ptr<TMap> copy = source.CreateCopy();
    EXPECT_NE(dynamic_cast<TKind *>(copy.get()), nullptr);
    EXPECT_NE(dynamic_cast<TData *>(&*copy->data), nullptr);
    EXPECT_TRUE(copy->isCopy);
    EXPECT_EQ(copy->name, "Copied");
    EXPECT_EQ(copy->rawFormat, "##0.0");
    EXPECT_EQ(copy->convertedFormat, source.convertedFormat);
    EXPECT_EQ(copy->axisCount, source.axisCount);
    EXPECT_EQ(copy->GetLocation(), source.GetLocation());
    EXPECT_EQ(copy->location->bitmask, source.location->bitmask);
    EXPECT_FALSE(copy->location->modified);
    EXPECT_EQ(copy->axes->offset, source.axes->offset);
    EXPECT_EQ(copy->axes->length, source.axes->length);
    EXPECT_EQ(copy->data->offset, source.data->offset);
    EXPECT_EQ(copy->RPMCount(), source.RPMCount());
    EXPECT_EQ(copy->LoadCount(), source.LoadCount());
    EXPECT_TRUE(copy->data->showConverted);
    EXPECT_TRUE(copy->IsModified());
    EXPECT_FALSE(source.IsModified());
}

TEST_F(TMapTypesTest, ACopyHasEverything) {
    PutMap(0x600, {1, 2}, {3, 4});
    Put(0x200, {0x06, 0x00});
    map.SetPointer(0x200, 0x7F);
    ExpectCopyOf<TFuelMap, TFuelMapData>(map);
    TTimingMap timing(1);
    timing.SetOffset(0x600);
    ExpectCopyOf<TTimingMap, TTimingMapData>(timing);
}

TEST_F(TMapTypesTest, ACopyIsPrivate) {
    PutMap(0x600, {1, 2}, {3, 4});
    map.SetOffset(0x600);
    const std::unique_ptr<TMap> copy = map.CreateCopy();
    Cell(map, 0, 0).SetValue(200);
    map.axes->rpmAxis->values->GetItem(0, 0)->raw = 5;
    EXPECT_EQ(Cell(*copy, 0, 0).raw, 1);
    EXPECT_EQ(copy->axes->rpmAxis->values->GetItem(0, 0)->raw, 253);
}

TEST_F(TMapTypesTest, APasteGoesToTheDestinationsPlace) {
    PutMap(0x600, {1, 2}, {3, 4});
    const std::int32_t body = PutMap(0x900, {9, 9}, {8, 8});
    Put(body, {50, 51, 52, 53});
    map.SetOffset(0x600);
    map.name = "Buffer";
    map.convertedFormat = "0.000";
    map.data->SetShowConverted(true);
    TFuelMap destination(2);
    destination.SetOffset(0x900);
    map.AssignTo(destination);
    EXPECT_EQ(destination.GetLocation(), 0x900);
    EXPECT_FALSE(destination.isCopy);
    EXPECT_EQ(destination.name, "Buffer");
    EXPECT_EQ(destination.GetCellFormat(), "0.000");
    EXPECT_TRUE(destination.IsModified());
    EXPECT_EQ(Get(body, 4), (TBytes{50, 51, 52, 53})) << "not in the image before the save";
    destination.Save();
    EXPECT_EQ(Get(0x900, 12), Get(0x600, 12));
    EXPECT_EQ(Get(0x600, 12), (TBytes{0xA5, 2, 1, 2, 0xA5, 2, 3, 4, 1, 2, 3, 4}));
}

TEST_F(TMapTypesTest, OutOfMemoryLeavesAMapThatCanBeUsed) {
    PutMap(0x600, {1, 2}, {3, 4});
    TFuelMap scarce(2, []() -> std::unique_ptr<TMapData> {
        return std::make_unique<TFuelMapData>(CreateCollection<TScarceValCollection>);
    });
    scarce.SetOffset(0x600);
    EXPECT_THAT(Messages(), ElementsAre("Out of memory allocating data map data"));
    EXPECT_FALSE(scarce.IsModified());
    EXPECT_EQ(scarce.RPMCount(), 2);
}

TEST_F(TMapTypesTest, APointerOutsideTheImageReadsZeros) {
    PutMap(0, {1, 2}, {3});
    PutMap(0x8600, {1, 2, 3}, {4, 5});
    Image().Poke(TROMImage::capacity - 1, 0x86);
    const struct {
        std::int32_t pointer, location, points;
    } cases[] = {{TROMImage::capacity - 1, 0x8600, 3}, // its low byte lies outside
                 {TROMImage::capacity, 0, 2},
                 {-2, 0, 2},
                 {std::numeric_limits<std::int32_t>::max(), 0, 2},
                 {std::numeric_limits<std::int32_t>::min(), 0, 2}};
    for (const auto &[pointer, location, points] : cases) {
        map.SetPointer(pointer, 0xFF);
        EXPECT_EQ(map.GetLocation(), location) << pointer;
        EXPECT_EQ(map.axes->offset, location) << pointer;
        EXPECT_EQ(map.RPMCount(), points) << pointer;
        EXPECT_EQ(map.location->offset, pointer);
    }
    EXPECT_THAT(Messages(), IsEmpty());
}
} // namespace
