#include "support/ModelFixture.h"

#include <cstdint>
#include <limits>
#include <memory>
#include <string>

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string revLimiterSaveText = "Error saving rev limiter data";
const std::string dividerText = "Timing Divider Not yet Set";

struct TValuesTest : TModelTest {
    void SetConstants() { TimingConstants() = {0.65, 12.7}; }
};

template <class TValue>
TValue Shown(std::int32_t raw, bool converted = true) {
    TValue value;
    value.raw = raw;
    value.showConverted = converted;
    return value;
}

template <class TValue>
std::int32_t StoredFor(double entry) {
    TValue value = Shown<TValue>(7);
    value.SetValue(entry);
    EXPECT_TRUE(value.modified);
    return value.raw;
}

TEST_F(TValuesTest, AreUnplacedAndUnmodifiedAtFirst) {
    const TVal value;
    EXPECT_FALSE(value.modified);
    EXPECT_EQ(value.raw, 0);
    EXPECT_EQ(value.offset, -1);
    EXPECT_EQ(TMapPointerVal().bitmask, 0);
    EXPECT_EQ(TimingConstants().divider, 0.0);
    EXPECT_EQ(TimingConstants().subtractor, 0.0);
}

TEST_F(TValuesTest, OnlySpeedsAndPercentagesShowConvertedAtFirst) {
    EXPECT_TRUE(TRPMVal().showConverted);
    EXPECT_TRUE(TThrVal().showConverted);
    EXPECT_FALSE(TVal().showConverted);
    EXPECT_FALSE(TFuelVal().showConverted);
    EXPECT_FALSE(TTimingVal().showConverted);
    EXPECT_FALSE(TMapPointerVal().showConverted);
}

TEST_F(TValuesTest, ConvertStoredCounts) {
    SetConstants();
    for (const std::int32_t raw : {0, 1, 0x7F, 0x80, 0xFF, -16, 300}) {
        EXPECT_DOUBLE_EQ(Shown<TVal>(raw).GetValue(), raw);
        EXPECT_DOUBLE_EQ(Shown<TRPMVal>(raw).GetValue(), raw * 40.0);
        EXPECT_DOUBLE_EQ(Shown<TThrVal>(raw).GetValue(), raw * 0.4);
        EXPECT_DOUBLE_EQ(Shown<TFuelVal>(raw).GetValue(), raw / 128.0);
        EXPECT_DOUBLE_EQ(Shown<TTimingVal>(raw).GetValue(), (raw - 12.7) * 0.65);
        EXPECT_DOUBLE_EQ(Shown<TMapPointerVal>(raw).GetValue(), raw);
        EXPECT_DOUBLE_EQ(Shown<TFuelVal>(raw, false).GetValue(), raw);
        EXPECT_DOUBLE_EQ(Shown<TRPMVal>(raw, false).GetValue(), raw);
    }
    EXPECT_EQ(Shown<TRPMVal>(0xFF).GetValue(), 10200.0);
    EXPECT_EQ(Shown<TThrVal>(250).GetValue(), 100.0);
    EXPECT_EQ(Shown<TFuelVal>(128).GetValue(), 1.0);
    EXPECT_DOUBLE_EQ(Shown<TTimingVal>(60).GetValue(), 30.745);
}

TEST_F(TValuesTest, RoundEntriesToCountsWithTiesToEven) {
    SetConstants();
    EXPECT_EQ(StoredFor<TRPMVal>(6510), 163);
    EXPECT_EQ(StoredFor<TRPMVal>(6500), 162);
    EXPECT_EQ(StoredFor<TRPMVal>(6540), 164) << "163.5 goes up to the even one";
    EXPECT_EQ(StoredFor<TThrVal>(50), 125);
    EXPECT_EQ(StoredFor<TFuelVal>(0.996), 127);
    EXPECT_EQ(StoredFor<TFuelVal>(1.50390625), 192) << "192.5 goes down to the even one";
    EXPECT_EQ(StoredFor<TFuelVal>(1.51171875), 194) << "193.5 goes up to the even one";
    EXPECT_EQ(StoredFor<TTimingVal>(30), 59);
    EXPECT_EQ(StoredFor<TVal>(2.5), 2);
    EXPECT_EQ(StoredFor<TMapPointerVal>(1000.4), 1000);
}

TEST_F(TValuesTest, AreNotClamped) {
    SetConstants();
    EXPECT_EQ(StoredFor<TRPMVal>(12000), 300);
    EXPECT_EQ(StoredFor<TRPMVal>(-40), -1);
    EXPECT_EQ(StoredFor<TFuelVal>(3), 384);
    EXPECT_EQ(StoredFor<TTimingVal>(-65), -87);
}

TEST_F(TValuesTest, RawEntriesAreRoundedAsTheyAre) {
    TFuelVal fuel = Shown<TFuelVal>(1, false);
    fuel.SetValue(127.5);
    EXPECT_EQ(fuel.raw, 128);
    TTimingVal timing = Shown<TTimingVal>(1, false);
    timing.SetValue(60);
    EXPECT_EQ(timing.raw, 60);
    EXPECT_TRUE(timing.modified);
    EXPECT_THAT(Messages(), IsEmpty());
}

template <class TValue>
void ExpectRangeError(bool converted) {
    TValue value = Shown<TValue>(7, converted);
    EXPECT_THROW(value.SetValue(1e30), ERangeError);
    EXPECT_EQ(value.raw, 7);
    EXPECT_FALSE(value.modified);
}

TEST_F(TValuesTest, AnEntryBeyond32BitsChangesNothing) {
    for (const bool converted : {false, true}) {
        ExpectRangeError<TVal>(converted);
        ExpectRangeError<TRPMVal>(converted);
        ExpectRangeError<TThrVal>(converted);
        ExpectRangeError<TFuelVal>(converted);
        ExpectRangeError<TMapPointerVal>(converted);
    }
    ExpectRangeError<TTimingVal>(false);
}

TEST_F(TValuesTest, TimingWithoutDividerShowsZeroAndKeepsTheByte) {
    TTimingVal value = Shown<TTimingVal>(60);
    EXPECT_EQ(value.GetValue(), 0.0);
    value.SetValue(30);
    EXPECT_THAT(Messages(), ElementsAre(dividerText));
    EXPECT_EQ(value.raw, 60);
    EXPECT_TRUE(value.modified) << "a failed entry still counts as an edit";
}

TEST_F(TValuesTest, TimingEntriesOutOfRangeAreReportedAlike) {
    SetConstants();
    TTimingVal value = Shown<TTimingVal>(60);
    value.SetValue(1e30);
    EXPECT_THAT(Messages(), ElementsAre(dividerText));
    EXPECT_EQ(value.raw, 60);
    EXPECT_TRUE(value.modified);
}

TEST_F(TValuesTest, PlacingReadsTheByteAndKeepsTheModifiedFlag) {
    Put(0x1000, {0xA2});
    for (const bool modified : {false, true}) {
        TRPMVal value;
        value.modified = modified;
        value.SetOffset(0x1000);
        EXPECT_EQ(value.offset, 0x1000);
        EXPECT_EQ(value.raw, 0xA2);
        EXPECT_EQ(value.modified, modified);
    }
}

TEST_F(TValuesTest, PlacingNowhereKeepsTheRawValue) {
    TRPMVal value = Shown<TRPMVal>(9);
    value.SetOffset(-1);
    EXPECT_EQ(value.raw, 9);
    EXPECT_EQ(value.offset, -1);
    for (const std::int32_t outside : {0x100000, highest, -2}) {
        value.raw = 9;
        value.SetOffset(outside);
        EXPECT_EQ(value.raw, 0) << outside;
    }
}

TEST_F(TValuesTest, SaveWritesOneByte) {
    Put(0x1000, {1, 2, 3});
    TRPMVal rpm;
    rpm.SetOffset(0x1001);
    rpm.SetValue(6510);
    EXPECT_TRUE(rpm.Save());
    EXPECT_FALSE(rpm.modified);
    EXPECT_EQ(Get(0x1000, 3), (TBytes{1, 163, 3}));
    TThrVal throttle;
    throttle.SetOffset(0x1002);
    throttle.SetValue(100);
    EXPECT_TRUE(throttle.Save());
    EXPECT_EQ(Get(0x1000, 3), (TBytes{1, 163, 250}));
    EXPECT_FALSE(Image().modified) << "only a map's save marks the image";
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(TValuesTest, SaveWrapsToTheLowByte) {
    TRPMVal value;
    value.SetOffset(0);
    for (const auto &[raw, byte] : {std::pair{300, 44}, {-1, 255}, {256, 0}, {highest, 255}}) {
        value.raw = raw;
        EXPECT_TRUE(value.Save());
        EXPECT_EQ(Image().Peek(0), byte) << raw;
    }
}

template <class TValue>
void ExpectSaveFails(std::int32_t offset) {
    TValue value;
    value.offset = offset;
    value.modified = true;
    EXPECT_FALSE(value.Save());
    EXPECT_FALSE(value.modified) << "cleared although nothing was written";
}

TEST_F(TValuesTest, AFailedSaveShowsTheRevLimiterTextForBothClasses) {
    Image().data.fill(0x33);
    for (const std::int32_t offset :
         {-1, 0x100000, highest, std::numeric_limits<std::int32_t>::min()}) {
        Messages().clear();
        ExpectSaveFails<TRPMVal>(offset);
        ExpectSaveFails<TThrVal>(offset);
        EXPECT_THAT(Messages(), ElementsAre(revLimiterSaveText, revLimiterSaveText)) << offset;
    }
    EXPECT_EQ(Get(0, TROMImage::capacity), TBytes(TROMImage::capacity, 0x33));
}

TEST_F(TValuesTest, OtherClassesDoNotSaveThemselves) {
    Put(0x10, {5});
    TFuelVal fuel;
    fuel.SetOffset(0x10);
    fuel.SetValue(9);
    EXPECT_FALSE(fuel.Save());
    EXPECT_TRUE(fuel.modified);
    EXPECT_EQ(Get(0x10, 1), TBytes{5});
    EXPECT_FALSE(TTimingVal().Save());
    EXPECT_FALSE(TMapPointerVal().Save());
    EXPECT_FALSE(TVal().Save());
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(TValuesTest, WithoutAnImageNothingIsReadOrWritten) {
    RemoveImage();
    TRPMVal value = Shown<TRPMVal>(9);
    value.SetOffset(0x1000);
    EXPECT_EQ(value.raw, 9);
    value.modified = true;
    EXPECT_FALSE(value.Save());
    EXPECT_FALSE(value.modified);
    EXPECT_THAT(Messages(), IsEmpty());
    TMapPointerVal pointer;
    pointer.SetOffset(0x1000);
    EXPECT_EQ(pointer.GetRaw(), 0.0);
}

template <class TValue>
void ExpectCopy() {
    TValue source = Shown<TValue>(77);
    source.offset = 0x44;
    const std::unique_ptr<TVal> copy = source.CreateCopy();
    EXPECT_NE(dynamic_cast<TValue *>(copy.get()), nullptr);
    EXPECT_EQ(copy->raw, 77);
    EXPECT_EQ(copy->offset, 0x44);
    EXPECT_TRUE(copy->showConverted);
    EXPECT_TRUE(copy->modified);
}

TEST_F(TValuesTest, CopiesKeepClassPlaceAndSwitchAndAreModified) {
    ExpectCopy<TVal>();
    ExpectCopy<TRPMVal>();
    ExpectCopy<TThrVal>();
    ExpectCopy<TFuelVal>();
    ExpectCopy<TTimingVal>();
}

TEST_F(TValuesTest, AssignToLeavesTheDestinationsPlace) {
    const TFuelVal source = Shown<TFuelVal>(77);
    TFuelVal destination;
    destination.offset = 0x55;
    source.AssignTo(destination);
    EXPECT_EQ(destination.raw, 77);
    EXPECT_TRUE(destination.showConverted);
    EXPECT_TRUE(destination.modified);
    EXPECT_EQ(destination.offset, 0x55);
}

struct TPointerCase {
    std::int32_t offset;
    std::int32_t bitmask;
    double address;
};

TEST_F(TValuesTest, PointersAreBigEndianWithAMaskedHighByte) {
    Put(0x1000, {0xF2, 0x34});
    Put(0xFFFFF, {0x12});
    for (const auto &[offset, bitmask, address] : {TPointerCase{0x1000, 0x0F, 0x0234},
                                                   {0x1000, 0xFF, 0xF234},
                                                   {0x1000, 0x7F, 0x7234},
                                                   {0x1000, 0, 0x34},
                                                   {0x1000, -1, 0xF234},
                                                   {0xFFFFF, 0xFF, 0x1200},
                                                   {0x100000, 0xFF, 0},
                                                   {highest, 0xFF, 0},
                                                   {-2, 0xFF, 0}}) {
        TMapPointerVal pointer;
        pointer.SetOffset(offset);
        pointer.raw = 99;
        pointer.bitmask = bitmask;
        EXPECT_EQ(pointer.GetRaw(), address) << offset << " " << bitmask;
    }
}

TEST_F(TValuesTest, APointerReadsTheImageAtEveryCall) {
    TMapPointerVal pointer;
    Put(0x1000, {0x12, 0x34});
    pointer.SetOffset(0x1000);
    pointer.bitmask = 0xFF;
    EXPECT_EQ(pointer.raw, 0x12) << "placing takes one byte, as for any value";
    EXPECT_EQ(pointer.GetValue(), 0x1234);
    Put(0x1000, {0x56});
    EXPECT_EQ(pointer.GetValue(), 0x5634);
    EXPECT_EQ(pointer.GetConverted(), 0x12) << "the converted value is the stored field";
}

TEST_F(TValuesTest, AnUnplacedPointerCarriesTheOffsetItself) {
    TMapPointerVal pointer;
    pointer.raw = 0x6000;
    EXPECT_EQ(pointer.GetRaw(), 0x6000);
}

TEST_F(TValuesTest, PointerCopiesKeepTheMaskAndAreUnmodified) {
    TMapPointerVal source;
    source.raw = 5;
    source.offset = 0x20;
    source.bitmask = 0x7F;
    source.showConverted = true;
    source.modified = true;
    const auto copy = source.CreateCopy();
    const auto *pointer = dynamic_cast<TMapPointerVal *>(copy.get());
    ASSERT_NE(pointer, nullptr);
    EXPECT_EQ(pointer->bitmask, 0x7F);
    EXPECT_EQ(pointer->raw, 5);
    EXPECT_EQ(pointer->offset, 0x20);
    EXPECT_TRUE(pointer->showConverted);
    EXPECT_FALSE(pointer->modified);
}

TEST_F(TValuesTest, PointersGiveTheirMaskToPointersOnly) {
    TMapPointerVal source;
    source.raw = 5;
    source.bitmask = 0x7F;
    TMapPointerVal pointer;
    source.AssignTo(pointer);
    EXPECT_EQ(pointer.bitmask, 0x7F);
    EXPECT_EQ(pointer.raw, 5);
    TVal plain;
    source.AssignTo(plain);
    EXPECT_EQ(plain.raw, 5);
    EXPECT_TRUE(plain.modified);
}

} // namespace
