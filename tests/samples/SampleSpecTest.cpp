// The sample spec files, read as the program reads them.
#include "samples/SampleFiles.h"
#include "spec/SpecFile.h"
#include "support/ModelFixture.h"

#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::UnorderedElementsAre;
namespace fs = std::filesystem;

namespace {

const fs::path samples = fs::path(FERROLYN_SOURCE_DIR) / "samples";

class TSampleSpec : public testing::TestWithParam<const char *> {
protected:
    TSampleSpec() {
        ROMImage()->LoadFromFile(samples / "FERRO32K.BIN");
        const TIniFile ini = TIniFile::Load(samples / GetParam());
        placed_ = PlaceFromSpec(ini, fuel_, timing_);
        ReadTimingConstants(ini);
    }

    static std::vector<std::int32_t> Places(const TMapSet &mapSet) {
        return {mapSet.PTMap->GetLocation(), mapSet.IdleMap->GetLocation(),
                mapSet.WOTMap->GetLocation()};
    }

    static std::vector<double> Values(const TValCollection &values, int rows, int columns) {
        std::vector<double> numbers;
        for (int row = 0; row < rows; ++row)
            for (int column = 0; column < columns; ++column)
                numbers.push_back(values.GetItem(row, column)->GetValue());
        return numbers;
    }

    static void ExpectCells(TMapSet &mapSet, double low, double high) {
        mapSet.SetShowConverted(true);
        for (const TMapKind kind : {TMapKind::PT, TMapKind::Idle, TMapKind::WOT}) {
            const TMap &map = mapSet.Map(kind);
            const auto rpms = Values(*map.axes->rpmAxis->values, map.RPMCount(), 1);
            ASSERT_EQ(rpms.size(), 16U);
            EXPECT_EQ(rpms.front(), 600);
            EXPECT_EQ(rpms.back(), 7600);
            EXPECT_TRUE(std::is_sorted(rpms.begin(), rpms.end()));
            const auto cells = Values(*map.data->values, map.RPMCount(), map.LoadCount());
            EXPECT_GE(*std::min_element(cells.begin(), cells.end()), low);
            EXPECT_LE(*std::max_element(cells.begin(), cells.end()), high);
        }
    }

    const TFreshModel fresh_;
    TFuelMapSet fuel_;
    TTimingMapSet timing_;
    bool placed_ = false;
};

TEST_P(TSampleSpec, LeadsToTheSixMapsAndTheRevLimiter) {
    EXPECT_TRUE(placed_);
    EXPECT_THAT(Places(fuel_), ElementsAre(0x6000, 0x6100, 0x6140));
    EXPECT_THAT(Places(timing_), ElementsAre(0x6200, 0x6300, 0x6340));
    EXPECT_EQ(fuel_.revLimiter.GetValue(), 6800);
    EXPECT_DOUBLE_EQ(TimingConstants().divider, 0.65);
    EXPECT_DOUBLE_EQ(TimingConstants().subtractor, 12.7);
}

TEST_P(TSampleSpec, LeadsToPlausibleMaps) {
    ExpectCells(fuel_, 0.85, 1.15);
    ExpectCells(timing_, 8, 40);
    EXPECT_EQ(fuel_.PTMap->LoadCount(), 12);
    EXPECT_EQ(timing_.PTMap->LoadCount(), 10);
    for (const TMap *map : {&*fuel_.PTMap, &*timing_.PTMap}) {
        const auto loads = Values(*map->axes->throttleAxis->values, map->LoadCount(), 1);
        EXPECT_DOUBLE_EQ(loads.front(), 4);
        EXPECT_DOUBLE_EQ(loads.back(), 100);
        EXPECT_TRUE(std::is_sorted(loads.begin(), loads.end()));
    }
}

INSTANTIATE_TEST_SUITE_P(Forms, TSampleSpec, testing::Values("FERRO32K.SPC", "FERRO32P.SPC"));

TEST(SampleSpecs, AreListedByTheirLabels) {
    std::vector<std::string> labels;
    for (const TSpecEntry &entry : ScanSpecFiles(samples).entries)
        labels.push_back(entry.label);
    EXPECT_THAT(labels, UnorderedElementsAre("Ferrolyn sample 32K, offsets",
                                             "Ferrolyn sample 32K, map pointers"));
}

} // namespace
