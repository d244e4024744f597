// The charts that the command line draws beside those of the map pages, on the sample: all that is
// drawn is the same.
#include "cli/Images.h"
#include "cli/MapChartContents.h"
#include "maps/FuelMaps.h"
#include "maps/TimingMaps.h"
#include "pages/PageFixture.h"

#include <array>

namespace {
constexpr std::array<const char *, 3> chartNames{"chtPTMap", "chtIdMap", "chtFTMap"};

std::vector<std::pair<double, TColor>> PointsOf(const TWall &wall) {
    std::vector<std::pair<double, TColor>> points;
    for (const TChartValue &point : wall.points)
        points.emplace_back(point.value, point.color);
    return points;
}

void ExpectSame(const TChartContents &drawn, const TChartContents &shown) {
    EXPECT_EQ(drawn.title, shown.title);
    EXPECT_EQ(drawn.leftTitle, shown.leftTitle);
    EXPECT_EQ(drawn.bottomTitle, shown.bottomTitle);
    EXPECT_EQ(drawn.depthTitle, shown.depthTitle);
    EXPECT_EQ(drawn.bottomLabels, shown.bottomLabels);
    EXPECT_EQ(drawn.depthLabels, shown.depthLabels);
    EXPECT_EQ(drawn.firstAtRight, shown.firstAtRight);
    EXPECT_EQ(drawn.view.rotation, shown.view.rotation);
    EXPECT_EQ(drawn.view.elevation, shown.view.elevation);
    ASSERT_EQ(drawn.walls.size(), shown.walls.size());
    for (std::size_t i = 0; i < drawn.walls.size(); ++i) {
        EXPECT_EQ(PointsOf(drawn.walls[i]), PointsOf(shown.walls[i])) << "wall " << i;
        EXPECT_EQ(drawn.walls[i].stairs, shown.walls[i].stairs) << "wall " << i;
    }
}

class TCommandLineChartTest : public TPageTest {
protected:
    template <class TPage>
    void ExpectPageDrawn(TMapSetKind set, TShown shown) {
        const std::filesystem::path samples =
            std::filesystem::path(FERROLYN_SOURCE_DIR) / "samples";
        TMappedImage image =
            ReadMappedImage(samples / "FERRO32K.BIN", samples / "FERRO32K.SPC", shown);
        image.Change([&](TWorkspace &maps) {
            TPage page(nullptr, maps);
            page.ShowPage();
            for (const TMapId id : allMaps)
                if (id.set == set)
                    ExpectSame(
                        MapChartContents(id, MapOf(std::as_const(maps), id)),
                        FindControl<TAreaChart>(page, chartNames[static_cast<std::size_t>(id.kind)])
                            .Contents());
        });
    }
};

class TFuelPage : public TfrmFuelMaps {
public:
    TFuelPage(QWidget *parent, TWorkspace &maps) : TfrmFuelMaps(parent, maps, maps.fuelMapSet) {}
};

class TTimingPage : public TfrmTimingMaps {
public:
    TTimingPage(QWidget *parent, TWorkspace &maps)
        : TfrmTimingMaps(parent, maps, maps.timingMapSet) {}
};

TEST_F(TCommandLineChartTest, AreThoseOfTheFuelPage) {
    ExpectPageDrawn<TFuelPage>(TMapSetKind::Fuel, TShown::Units);
    ExpectPageDrawn<TFuelPage>(TMapSetKind::Fuel, TShown::Counts);
}

TEST_F(TCommandLineChartTest, AreThoseOfTheTimingPage) {
    ExpectPageDrawn<TTimingPage>(TMapSetKind::Timing, TShown::Units);
}
} // namespace
