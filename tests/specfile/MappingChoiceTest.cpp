// What a choice in "Set Mapping Type" does to the maps, step by step and with an error at each
// step. The window's side of it is in pages/ROMInfoChoiceTest.cpp.
#include "spec/MappingChoice.h"

#include "support/ModelFixture.h"
#include "support/TemporaryFolder.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>

namespace {
using testing::ElementsAre;

/// Both sets placed at maps of two RPM points whose bodies count up from 1, the constants 1.5 and
/// 2.5, and the offset 0x1F0 for a rev limiter of 6800.
class TMappingChoiceTest : public TModelTest {
protected:
    TMappingChoiceTest() {
        TimingConstants() = {1.5, 2.5};
        for (const std::int32_t place : {0x100, 0x400, 0x700})
            PutMap(place, {0x20, 0x40}, {0x20, 0x00});
        for (const std::int32_t place : {0x200, 0x300, 0x500, 0x600})
            PutMap(place, {0x20, 0x40}, {});
        Put(0x1F0, {170});
        workspace.fuelMapSet.SetOffsets(0x100, 0x200, 0x300);
        workspace.timingMapSet.SetOffsets(0x400, 0x500, 0x600);
        workspace.fuelMapSet.revLimiter.SetOffset(0x1F0);
    }

    /// Where the RPM axes lie, fuel before timing: a location of 0 leaves them.
    std::vector<std::int32_t> Axes() const {
        std::vector<std::int32_t> places;
        ForEachMap([&](const TMap &map) { places.push_back(map.axes->rpmAxis->offset); });
        return places;
    }
    /// The first raw cell of each map.
    std::vector<std::int32_t> Cells() const {
        std::vector<std::int32_t> cells;
        ForEachMap([&](const TMap &map) { cells.push_back(map.data->values->GetItem(0, 0)->raw); });
        return cells;
    }
    void ExpectRevLimiterAndConstantsStay() const {
        EXPECT_EQ(workspace.fuelMapSet.revLimiter.offset, 0x1F0);
        EXPECT_EQ(workspace.fuelMapSet.revLimiter.GetValue(), 6800);
        EXPECT_FALSE(workspace.fuelMapSet.revLimiter.modified);
        EXPECT_EQ(TimingConstants().divider, 1.5);
        EXPECT_EQ(TimingConstants().subtractor, 2.5);
    }

    TWorkspace workspace;

private:
    template <class TWork>
    void ForEachMap(TWork work) const {
        for (const TMapSet *maps : {static_cast<const TMapSet *>(&workspace.fuelMapSet),
                                    static_cast<const TMapSet *>(&workspace.timingMapSet)})
            for (const TMapKind kind : {TMapKind::PT, TMapKind::Idle, TMapKind::WOT})
                work(maps->Map(kind));
    }
};

const auto planted = ElementsAre(0x100, 0x200, 0x300, 0x400, 0x500, 0x600);
const auto counted = ElementsAre(1, 1, 1, 1, 1, 1);
const auto zeroed = ElementsAre(0, 0, 0, 0, 0, 0);

TEST_F(TMappingChoiceTest, TheLastItemIsManualThoseBeforeItAreSpecFiles) {
    const struct {
        int item;
        int lastItem;
        TMappingType type;
    } cases[] = {
        {-1, 0, TMappingType::None},  {0, 0, TMappingType::Manual}, {1, 0, TMappingType::None},
        {-1, 3, TMappingType::None},  {0, 3, TMappingType::Spec},   {2, 3, TMappingType::Spec},
        {3, 3, TMappingType::Manual}, {4, 3, TMappingType::None},   {-2, 3, TMappingType::None}};
    for (const auto &[item, lastItem, type] : cases)
        EXPECT_EQ(MappingTypeOf(item, lastItem), type) << item << " of " << lastItem;
}

TEST_F(TMappingChoiceTest, NoneZeroesBothSetsWhereTheyAre) {
    ZeroBothSets(workspace);
    EXPECT_THAT(Axes(), planted);
    EXPECT_THAT(Cells(), zeroed);
    EXPECT_TRUE(workspace.fuelMapSet.IsModified());
    EXPECT_TRUE(workspace.timingMapSet.IsModified());
    EXPECT_EQ(workspace.fuelMapSet.PTMap->GetLocation(), 0x100);
    EXPECT_EQ(Image().Peek(0x100 + 8), 1) << "nothing is written to the image";
    ExpectRevLimiterAndConstantsStay();
}

struct TReadCase {
    const char *name;
    const char *text;
    bool placed;
    const char *error; ///< empty for none
    int fuelPT;        ///< where the fuel part throttle map lies then
    int revLimiter;
    double divider;
    double subtractor;
};
class TReadSpecTest : public TMappingChoiceTest, public testing::WithParamInterface<TReadCase> {};

TEST_P(TReadSpecTest, GoesAsFarAsTheErrorLetsIt) {
    const TReadCase &spec = GetParam();
    const TTemporaryFolder folder;
    const std::string text = spec.text;
    PutFile(folder / "A.SPC", {text.begin(), text.end()});
    const TSpecReading reading = ReadSpec(folder / "A.SPC", workspace);
    EXPECT_EQ(reading.placed, spec.placed);
    std::string error;
    try {
        if (reading.error)
            std::rethrow_exception(reading.error);
    } catch (const EConvertError &thrown) {
        error = thrown.what();
    }
    EXPECT_EQ(error, spec.error);
    EXPECT_EQ(workspace.fuelMapSet.PTMap->axes->rpmAxis->offset, spec.fuelPT);
    EXPECT_THAT(Cells(), counted) << "no map is left zeroed";
    EXPECT_EQ(workspace.fuelMapSet.revLimiter.offset, spec.revLimiter);
    EXPECT_EQ(TimingConstants().divider, spec.divider);
    EXPECT_EQ(TimingConstants().subtractor, spec.subtractor);
}

INSTANTIATE_TEST_SUITE_P(
    Table, TReadSpecTest,
    testing::Values(
        TReadCase{"Whole",
                  "[Fuel Maps]\npt_offset=$700\n[Other Maps]\nrevlimit_offset=$1F1\n"
                  "[Main]\ntiming_divider=0.5\ntiming_subtractor=3\n",
                  true, "", 0x700, 0x1F1, 0.5, 3},
        TReadCase{"ConstantsMissing", "[Fuel Maps]\npt_offset=$700\n", true, "", 0x700, 0, 0.65,
                  12.7},
        TReadCase{"BadMap",
                  "[Fuel Maps]\npt_offset=$700\nwot_offset=x\n[Main]\ntiming_divider=0.5\n", false,
                  "", 0x100, 0x1F0, 0.5, 12.7},
        TReadCase{"BadMapAndDivider",
                  "[Timing Maps]\npt_offset=x\n[Main]\ntiming_divider=y\ntiming_subtractor=3\n",
                  false, "'y' is not a valid floating point value", 0x100, 0x1F0, 1.5, 2.5},
        TReadCase{"BadRevLimiter",
                  "[Fuel Maps]\npt_offset=$700\n[Other Maps]\nrevlimit_offset=x\n"
                  "[Main]\ntiming_divider=0.5\n",
                  false, "'x' is not a valid integer value", 0x100, 0x1F0, 1.5, 2.5},
        TReadCase{"BadDivider",
                  "[Fuel Maps]\npt_offset=$700\n[Main]\ntiming_divider=x\ntiming_subtractor=3\n",
                  true, "'x' is not a valid floating point value", 0x700, 0, 1.5, 2.5},
        TReadCase{"BadSubtractor",
                  "[Fuel Maps]\npt_offset=$700\n[Main]\ntiming_divider=0.5\ntiming_subtractor=x\n",
                  true, "'x' is not a valid floating point value", 0x700, 0, 0.5, 2.5},
        TReadCase{"BadMask", "[Main]\nprimary_offset=0\nbitmask=x\ntiming_divider=0.5\n", false, "",
                  0x100, 0x1F0, 0.5, 12.7}),
    [](const auto &test) { return std::string(test.param.name); });

TEST_F(TMappingChoiceTest, AFileThatCannotBeReadChangesNothing) {
    const TTemporaryFolder folder;
    const TSpecReading reading = ReadSpec(folder.Path(), workspace);
    EXPECT_FALSE(reading.placed);
    ASSERT_TRUE(reading.error);
    EXPECT_THROW(std::rethrow_exception(reading.error), EFileError);
    EXPECT_THAT(Axes(), planted);
    ExpectRevLimiterAndConstantsStay();
}

TEST_F(TMappingChoiceTest, ByHandAllSixMapsAndNothingElseAreMoved) {
    PlaceByHand({"$400", " $500", "1536", "$100", "+512", "$300"}, workspace);
    EXPECT_THAT(Axes(), ElementsAre(0x400, 0x500, 0x600, 0x100, 0x200, 0x300));
    EXPECT_THAT(Cells(), counted) << "read from the image after they were zeroed";
    EXPECT_FALSE(workspace.fuelMapSet.IsModified());
    EXPECT_FALSE(workspace.timingMapSet.IsModified());
    ExpectRevLimiterAndConstantsStay();
}

TEST_F(TMappingChoiceTest, ByHandTheOneAxisMapsKeepTheirLoadPoints) {
    PlaceByHand({"$400", "$500", "$600", "$100", "$200", "$300"}, workspace);
    for (const TMapSet *maps : {static_cast<const TMapSet *>(&workspace.fuelMapSet),
                                static_cast<const TMapSet *>(&workspace.timingMapSet)}) {
        EXPECT_EQ(maps->IdleMap->axes->throttleAxis->values->GetItem(0, 0)->GetValue(), 0);
        EXPECT_EQ(maps->WOTMap->axes->throttleAxis->values->GetItem(0, 0)->GetValue(), 100);
    }
}

TEST_F(TMappingChoiceTest, ByHandAnOffsetOf0LeavesItsMapInPlaceAndZeroed) {
    PlaceByHand({"$400", "0", "$600", "$0", "$200", "-0"}, workspace);
    EXPECT_THAT(Axes(), ElementsAre(0x400, 0x200, 0x600, 0x400, 0x200, 0x600));
    EXPECT_THAT(Cells(), ElementsAre(1, 0, 1, 0, 1, 0));
}

TEST_F(TMappingChoiceTest, ByHandATextThatIsNoIntegerLeavesAllAsItWas) {
    for (std::size_t bad = 0; bad < 6; ++bad) {
        TTypedOffsets typed{"$700", "$700", "$700", "$700", "$700", "later"};
        typed[bad] = "0x10";
        try {
            PlaceByHand(typed, workspace);
            ADD_FAILURE() << bad;
        } catch (const EConvertError &error) {
            EXPECT_STREQ(error.what(), "'0x10' is not a valid integer value")
                << "the first of them";
        }
        EXPECT_THAT(Axes(), planted) << bad;
        EXPECT_THAT(Cells(), counted) << bad;
    }
    ExpectRevLimiterAndConstantsStay();
}
} // namespace
