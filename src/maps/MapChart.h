// A chart as the model sees it: TAreaChart behind IMapChart.
#pragma once

#include "maps/AreaChart.h"
#include "model/MapViews.h"

class TMapChart : public IMapChart {
public:
    /// `chart` outlives the adapter.
    explicit TMapChart(TAreaChart &chart) : chart_(chart) {}

    bool Visible() const override { return visible_; }
    void SetVisible(bool visible) override;
    int SeriesCount() const override { return chart_.SeriesCount(); }
    void RecreateSeries(int count) override { chart_.RecreateSeries(count); }
    void ClearSeries(int series) override { chart_.ClearSeries(series); }
    void SetSeriesTitle(int series, const std::string &title) override;
    void SetSeriesLoad(int series, const std::string &load) override;
    void AddPoint(int series, double x, double value, const std::string &label,
                  TColor color) override;

    /// Hides the chart whatever SetVisible says later.
    void HideForGood();

private:
    TAreaChart &chart_;
    bool visible_ = true;
    bool hiddenForGood_ = false;
};
