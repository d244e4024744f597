#include "cli/MapChartContents.h"

#include "cli/MapGridText.h"
#include "maps/ChartData.h"
#include "maps/MapHeadings.h"
#include "system/Texts.h"

namespace {
constexpr int partThrottleSeries = 12; ///< of a page's chart before a map is shown

const char *CaptionOf(TMapSetKind set) {
    return set == TMapSetKind::Fuel ? "/\\ Trim" : "Ign Timing";
}

/// Takes the points of a map's chart for its contents.
class TContentsChart : public IMapChart {
public:
    explicit TContentsChart(TMapKind kind) {
        const bool partThrottle = kind == TMapKind::PT;
        RecreateSeries(partThrottle ? partThrottleSeries : 1);
        // Intended: a part throttle map of as many loads keeps the first series, whose last is
        // drawn in steps.
        contents_.walls.back().stairs = partThrottle;
        contents_.firstAtRight = partThrottle;
    }

    TChartContents &Contents() { return contents_; }

    bool Visible() const override { return true; }
    void SetVisible(bool) override {}
    int SeriesCount() const override { return static_cast<int>(contents_.walls.size()); }
    void RecreateSeries(int count) override {
        contents_.walls.assign(static_cast<std::size_t>(count), {});
        contents_.depthLabels.assign(static_cast<std::size_t>(count), {});
    }
    void ClearSeries(int series) override { Wall(series).points.clear(); }
    void SetSeriesTitle(int, const std::string &) override {} // drawn nowhere
    void SetSeriesLoad(int series, const std::string &load) override {
        contents_.depthLabels[static_cast<std::size_t>(series)] = load;
    }
    void AddPoint(int series, double, double value, const std::string &label,
                  TColor color) override {
        TWall &wall = Wall(series);
        wall.points.push_back({value, color});
        if (wall.points.size() > contents_.bottomLabels.size())
            contents_.bottomLabels.push_back(label);
    }

private:
    TWall &Wall(int series) { return contents_.walls[static_cast<std::size_t>(series)]; }

    TChartContents contents_;
};
} // namespace

TChartContents MapChartContents(TMapId id, const TMap &map) {
    TContentsChart chart(id.kind);
    map.SizeChart(chart);
    RedrawChart(GridOf(map), chart);
    TChartContents contents = std::move(chart.Contents());
    contents.title = Filled(MapHeading(id.kind), {CaptionOf(id.set)});
    contents.leftTitle = CaptionOf(id.set);
    contents.bottomTitle = "RPM";
    contents.depthTitle = id.set == TMapSetKind::Fuel ? "% Load" : "% Throttle";
    return contents;
}
