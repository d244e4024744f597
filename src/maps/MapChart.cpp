#include "maps/MapChart.h"

void TMapChart::SetVisible(bool visible) {
    visible_ = visible && !hiddenForGood_;
    chart_.setVisible(visible_);
}

void TMapChart::SetSeriesTitle(int series, const std::string &title) {
    chart_.SetSeriesTitle(series, QString::fromStdString(title));
}

void TMapChart::SetSeriesLoad(int series, const std::string &load) {
    chart_.SetSeriesLoad(series, QString::fromStdString(load));
}

void TMapChart::AddPoint(int series, double x, double value, const std::string &label,
                         TColor color) {
    chart_.AddPoint(series, {x, value, QString::fromStdString(label), color});
}

void TMapChart::HideForGood() {
    hiddenForGood_ = true;
    SetVisible(false);
}
