#include "support/FailingVals.h"
#include "support/ModelFixture.h"

#include <cstdint>
#include <limits>
#include <numeric>
#include <string>
#include <vector>

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using TAxisBytes = std::vector<std::uint8_t>;

/// Steps 1, 2, 3 ... `count`, modulo 256.
TAxisBytes Ramp(std::size_t count) {
    TAxisBytes steps(count);
    std::iota(steps.begin(), steps.end(), std::uint8_t{1});
    return steps;
}

struct TAxesTest : TModelTest {
    TRPMAxisData rpm;
    TThrAxisData throttle;
};

struct TAxisCase {
    const char *name;
    TAxisBytes steps;
    std::vector<std::int32_t> points;
};

class TAxisLoadTest : public TAxesTest, public testing::WithParamInterface<TAxisCase> {};

TEST_P(TAxisLoadTest, DecodesAndEncodesBackToTheSameBytes) {
    const auto &[name, steps, points] = GetParam();
    PutAxis(0x6000, steps);
    Image().Poke(0x6002 + static_cast<std::int32_t>(steps.size()), 0xEE);
    const TAxisBytes before = Get(0, TROMImage::capacity);
    rpm.LoadAxis(0x6000);
    EXPECT_EQ(RawOf(rpm), points);
    EXPECT_EQ(rpm.offset, 0x6000);
    EXPECT_EQ(rpm.axisOffset, 0x6000);
    EXPECT_EQ(rpm.size, static_cast<std::int32_t>(steps.size()));
    EXPECT_EQ(rpm.length, static_cast<std::int32_t>(steps.size()) + 2);
    EXPECT_EQ(rpm.columns, 1);
    EXPECT_EQ(rpm.rows, static_cast<std::int32_t>(points.size()));
    EXPECT_FALSE(rpm.AnyModified());
    rpm.SaveAxis();
    EXPECT_EQ(Get(0, TROMImage::capacity), before);
    EXPECT_FALSE(Image().modified) << "only a body's save marks the image";
    EXPECT_THAT(Messages(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Axes, TAxisLoadTest,
    testing::Values(TAxisCase{"none", {}, {}}, TAxisCase{"one", {0x10}, {240}},
                    TAxisCase{"three rising points", {0x10, 0x20, 0x40}, {144, 160, 192}},
                    TAxisCase{"last at the base", {0x08, 0x00}, {248, 256}},
                    TAxisCase{"negative points", {0x80, 0xFF, 0x02}, {-129, -1, 254}},
                    TAxisCase{"extremes", {0x00, 0x7F, 0x80, 0xFF}, {-254, -254, -127, 1}},
                    TAxisCase{"32 is none", Ramp(32), {}},
                    TAxisCase{"33 is one, from the last byte", Ramp(33), {256 - 33}},
                    TAxisCase{"64 is none", Ramp(64), {}}),
    [](const auto &test) {
        std::string name = test.param.name;
        for (char &c : name)
            c = c == ' ' || c == ',' ? '_' : c;
        return name;
    });

TEST_F(TAxesTest, TakeEveryCountModulo32) {
    for (const std::size_t count : {0U, 1U, 30U, 31U, 32U, 33U, 63U, 255U}) {
        PutAxis(0x6000, Ramp(count));
        rpm.LoadAxis(0x6000);
        EXPECT_THAT(RawOf(rpm), SizeIs(count % 32));
        EXPECT_EQ(rpm.length, static_cast<std::int32_t>(count) + 2);
    }
}

TEST_F(TAxesTest, ShowConvertedFromTheirOwnBase) {
    PutAxis(0x10, {0x10, 0x20, 0x40});
    rpm.LoadAxis(0x10);
    throttle.LoadAxis(0x10);
    EXPECT_TRUE(rpm.showConverted);
    EXPECT_TRUE(throttle.showConverted);
    EXPECT_EQ(rpm.base, 256);
    EXPECT_EQ(throttle.base, 250);
    EXPECT_EQ(rpm.values->GetItem(0, 0)->GetValue(), 5760.0);
    EXPECT_EQ(rpm.values->GetItem(1, 0)->GetValue(), 6400.0);
    EXPECT_EQ(rpm.values->GetItem(2, 0)->GetValue(), 7680.0);
    EXPECT_DOUBLE_EQ(throttle.values->GetItem(2, 0)->GetValue(), 186 * 0.4);
}

TEST_F(TAxesTest, ALastByteOfZeroIsTheBase) {
    PutAxis(0x10, {0x00});
    rpm.LoadAxis(0x10);
    throttle.LoadAxis(0x10);
    EXPECT_EQ(rpm.values->GetItem(0, 0)->GetValue(), 10240.0);
    EXPECT_EQ(throttle.values->GetItem(0, 0)->GetValue(), 100.0);
}

TEST_F(TAxesTest, EditingAMiddlePointChangesTwoSteps) {
    PutAxis(0x10, {0x10, 0x20, 0x40, 0x08});
    TAxisBytes expected = Get(0, TROMImage::capacity);
    rpm.LoadAxis(0x10);
    rpm.values->GetItem(1, 0)->raw += 3;
    rpm.values->GetItem(1, 0)->modified = true;
    rpm.SaveAxis();
    expected[0x12] = 0x13;
    expected[0x13] = 0x1D;
    EXPECT_EQ(Get(0, TROMImage::capacity), expected);
    EXPECT_FALSE(rpm.AnyModified());
}

TEST_F(TAxesTest, EditingTheEndsChangesTheirSteps) {
    PutAxis(0x10, {0x10, 0x20, 0x40});
    rpm.LoadAxis(0x10);
    rpm.values->GetItem(0, 0)->raw -= 1;
    rpm.values->GetItem(2, 0)->raw += 1;
    rpm.SaveAxis();
    EXPECT_EQ(Get(0x10, 5), (TAxisBytes{0xA5, 3, 0x11, 0x21, 0x3F}));
}

TEST_F(TAxesTest, ANegativePointIsWrittenModulo256) {
    PutAxis(0x10, {0x10, 0x20});
    rpm.LoadAxis(0x10);
    rpm.values->GetItem(0, 0)->SetValue(-400);
    rpm.SaveAxis();
    EXPECT_EQ(Get(0x10, 4), (TAxisBytes{0xA5, 2, static_cast<std::uint8_t>(224 + 10), 0x20}));
}

TEST_F(TAxesTest, OffsetZeroIsNeverWrittenAndKeepsTheMarks) {
    PutAxis(0, {0x10, 0x20});
    const TAxisBytes before = Get(0, 16);
    rpm.LoadAxis(0);
    EXPECT_THAT(RawOf(rpm), ElementsAre(208, 224)) << "it can be read all the same";
    rpm.values->GetItem(0, 0)->SetValue(0);
    rpm.SaveAxis();
    EXPECT_EQ(Get(0, 16), before);
    EXPECT_TRUE(rpm.AnyModified());
}

TEST_F(TAxesTest, AnAxisThatRunsOverTheEndLoadsNoPoints) {
    Image().data.fill(3);
    rpm.LoadAxis(0xFFFFE);
    EXPECT_EQ(rpm.size, 3);
    EXPECT_THAT(RawOf(rpm), ElementsAre(0, 0, 0));
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(TAxesTest, AnAxisThatEndsAtTheLastByteIsLoadedAndSaved) {
    PutAxis(0xFFFFB, {0x10, 0x20, 0x40});
    const TAxisBytes before = Get(0, TROMImage::capacity);
    rpm.LoadAxis(0xFFFFB);
    EXPECT_THAT(RawOf(rpm), ElementsAre(144, 160, 192));
    rpm.SaveAxis();
    EXPECT_EQ(Get(0, TROMImage::capacity), before);
    rpm.values->GetItem(2, 0)->raw = 193;
    rpm.SaveAxis();
    EXPECT_EQ(Get(0xFFFFD, 3), (TAxisBytes{0x10, 0x21, 0x3F}));
}

TEST_F(TAxesTest, AnAxisThatWasNotLoadedIsNotWritten) {
    Image().data.fill(20);
    rpm.LoadAxis(0xFFFF0);
    EXPECT_THAT(RawOf(rpm), SizeIs(20));
    rpm.values->GetItem(0, 0)->SetValue(4000);
    rpm.SaveAxis();
    EXPECT_EQ(Get(0, TROMImage::capacity), TAxisBytes(TROMImage::capacity, 20));
    EXPECT_FALSE(rpm.AnyModified());
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(TAxesTest, OffsetsOutsideTheImageAreHarmless) {
    Image().data.fill(2);
    for (const std::int32_t offset : {0xFFFFF, 0x100000, highest, highest - 1, -2, -1000,
                                      std::numeric_limits<std::int32_t>::min()}) {
        rpm.LoadAxis(offset);
        EXPECT_EQ(rpm.size, 0) << offset;
        EXPECT_EQ(rpm.length, 2);
        EXPECT_THAT(RawOf(rpm), IsEmpty());
        rpm.SaveAxis();
    }
    EXPECT_EQ(Get(0, TROMImage::capacity), TAxisBytes(TROMImage::capacity, 2));
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(TAxesTest, AnAxisMayBeginOneByteBeforeTheImage) {
    Put(0, {2, 0x10, 0x20});
    const TAxisBytes before = Get(0, TROMImage::capacity);
    rpm.LoadAxis(-1);
    EXPECT_THAT(RawOf(rpm), ElementsAre(208, 224));
    rpm.SaveAxis();
    EXPECT_EQ(Get(0, TROMImage::capacity), before);
}

TEST_F(TAxesTest, OutOfMemoryKeepsThePointsThatWereMade) {
    PutAxis(0x10, {0x10, 0x20, 0x40});
    TRPMAxisData scarce(CreateCollection<TScarceValCollection>);
    scarce.LoadAxis(0x10);
    EXPECT_THAT(Messages(), ElementsAre(memoryText));
    EXPECT_EQ(scarce.values->GetItem(0, 0)->raw, 144);
    EXPECT_EQ(scarce.values->GetItem(1, 0)->raw, 160);
    EXPECT_EQ(scarce.values->GetItem(2, 0), nullptr);
}

TEST_F(TAxesTest, AFailedSaveReportsWithTheLoadsText) {
    PutAxis(0x10, {0x10, 0x20, 0x40});
    rpm.LoadAxis(0x10);
    rpm.values->SetSize(2, 1);
    rpm.SetModified(true);
    rpm.SaveAxis();
    EXPECT_THAT(Messages(), ElementsAre(memoryText));
    EXPECT_FALSE(rpm.AnyModified());
}

TEST_F(TAxesTest, WithoutAnImageTheGridStaysAndMarksAreCleared) {
    PutAxis(0x10, {0x10, 0x20});
    rpm.LoadAxis(0x10);
    rpm.values->GetItem(0, 0)->SetValue(400);
    RemoveImage();
    rpm.SaveAxis();
    EXPECT_FALSE(rpm.AnyModified());
    rpm.LoadAxis(0x20);
    EXPECT_EQ(rpm.offset, 0x20);
    EXPECT_EQ(rpm.size, 0);
    EXPECT_THAT(RawOf(rpm), ElementsAre(10, 224));
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(TAxesTest, ASinglePointIsAPlainValue) {
    PutAxis(0x10, {0x10, 0x20, 0x40});
    throttle.LoadAxis(0x10);
    for (const double value : {0.0, 100.0}) {
        throttle.SetSinglePoint(value);
        EXPECT_EQ(throttle.size, 1);
        EXPECT_EQ(throttle.rows, 1);
        EXPECT_EQ(throttle.columns, 1);
        ASSERT_THAT(RawOf(throttle), SizeIs(1));
        EXPECT_EQ(throttle.values->GetItem(0, 0)->GetValue(), value);
        EXPECT_FALSE(throttle.values->GetItem(0, 0)->showConverted);
        EXPECT_FALSE(throttle.AnyModified());
    }
}

TEST_F(TAxesTest, ASetOfTwoPlacesTheLoadAxisBehindTheRPMAxis) {
    PutAxis(PutAxis(0x6000, Ramp(16)), Ramp(8));
    TAxisSet axes(2);
    axes.SetOffset(0x6000);
    EXPECT_EQ(axes.offset, 0x6000);
    EXPECT_EQ(axes.rpmAxis->offset, 0x6000);
    EXPECT_EQ(axes.throttleAxis->offset, 0x6012);
    EXPECT_EQ(axes.length, 18 + 10);
    EXPECT_EQ(axes.throttleAxis->size, 8);
}

TEST_F(TAxesTest, ASetOfOneHasTheSinglePointZero) {
    PutAxis(0x6000, Ramp(16));
    TAxisSet axes(1);
    EXPECT_EQ(axes.throttleAxis->size, 0);
    axes.SetOffset(0x6000);
    EXPECT_EQ(axes.length, 18);
    EXPECT_EQ(axes.throttleAxis->size, 1);
    EXPECT_EQ(axes.throttleAxis->values->GetItem(0, 0)->GetValue(), 0.0);
}

TEST_F(TAxesTest, ASetSavesTheLoadAxisOnlyWithTwoAxes) {
    for (const std::int32_t count : {1, 2}) {
        PutAxis(PutAxis(0x6000, {0x10, 0x20}), {0x30});
        TAxisSet axes(count);
        axes.SetOffset(0x6000);
        axes.rpmAxis->values->GetItem(1, 0)->raw -= 1;
        axes.throttleAxis->offset = 0x6004;
        axes.throttleAxis->values->GetItem(0, 0)->raw = 9;
        axes.SaveAxes();
        EXPECT_EQ(Get(0x6000, 4), (TAxisBytes{0xA5, 2, 0x0F, 0x21}));
        const std::uint8_t loadStep = count == 2 ? std::uint8_t{241} : std::uint8_t{0x30};
        EXPECT_EQ(Get(0x6004, 3), (TAxisBytes{0xA5, 1, loadStep}));
    }
}

TEST_F(TAxesTest, AssignTakesPlaceAndPointsButNotTheCount) {
    PutAxis(PutAxis(0x6000, Ramp(3)), Ramp(2));
    TAxisSet source(2);
    source.SetOffset(0x6000);
    TAxisSet destination(1);
    destination.Assign(source);
    EXPECT_EQ(destination.offset, 0x6000);
    EXPECT_EQ(destination.length, 9);
    EXPECT_EQ(destination.axisCount, 1);
    EXPECT_EQ(destination.throttleAxis->offset, 0x6005);
    EXPECT_EQ(RawOf(*destination.rpmAxis), RawOf(*source.rpmAxis));
    EXPECT_EQ(RawOf(*destination.throttleAxis), RawOf(*source.throttleAxis));
}

TEST_F(TAxesTest, AssignToLeavesTheDestinationsPlace) {
    PutAxis(PutAxis(0x6000, Ramp(3)), Ramp(2));
    PutAxis(PutAxis(0x7000, {9, 9, 9}), {9, 9});
    TAxisSet source(2);
    TAxisSet destination(2);
    source.SetOffset(0x6000);
    destination.SetOffset(0x7000);
    source.AssignTo(destination);
    EXPECT_EQ(destination.offset, 0x7000);
    EXPECT_EQ(destination.rpmAxis->offset, 0x7000);
    EXPECT_EQ(destination.throttleAxis->offset, 0x7005);
    EXPECT_EQ(RawOf(*destination.rpmAxis), RawOf(*source.rpmAxis));
    destination.SaveAxes();
    EXPECT_EQ(Get(0x7000, 9), Get(0x6000, 9)) << "the pasted points go to the destination's place";
}

TEST_F(TAxesTest, ASinglePointOf100SurvivesAPaste) {
    TAxisSet source(1);
    source.throttleAxis->SetSinglePoint(100);
    TAxisSet destination(1);
    destination.throttleAxis->SetSinglePoint(0);
    source.AssignTo(destination);
    EXPECT_EQ(destination.throttleAxis->values->GetItem(0, 0)->GetValue(), 100.0);
}

TEST_F(TAxesTest, ASetNearTheLargestOffsetDoesNotWrap) {
    TAxisSet axes(2);
    axes.SetOffset(highest);
    EXPECT_EQ(axes.throttleAxis->offset, highest);
    EXPECT_EQ(axes.length, 4);
    axes.SaveAxes();
    EXPECT_THAT(Messages(), IsEmpty());
}

} // namespace
