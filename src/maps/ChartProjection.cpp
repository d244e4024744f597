#include "maps/ChartProjection.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace {
/// Height of the box over its width, before the fitting: how much of a tilted view is floor.
constexpr double boxHeight = 0.7;

TTurn TurnOf(int degrees) {
    switch (degrees) {
    case 0:
        return {1, 0};
    case 90:
        return {0, 1};
    case 180:
        return {-1, 0};
    case 270:
        return {0, -1};
    default:
        const double angle = degrees * std::numbers::pi / 180;
        return {std::cos(angle), std::sin(angle)};
    }
}

/// Half of what a box takes of the screen, to the right and upwards.
std::array<double, 2> Extents(const TTurn &turn, const TTurn &tilt, double depth) {
    const double right = std::abs(turn.cosine) + depth * std::abs(turn.sine);
    const double away = std::abs(turn.sine) + depth * std::abs(turn.cosine);
    const double up = boxHeight * std::abs(tilt.cosine) + away * std::abs(tilt.sine);
    return {right / 2, up / 2};
}
} // namespace

int DrawnZoom(int zoom) {
    return std::clamp(zoom, 1, largestZoom);
}

TTurn DrawnTurn(int angle) {
    return TurnOf((360 - angle % 360) % 360);
}

TChartProjection::TChartProjection(const TChartView &view, double depth, const TScreenArea &area)
    : turn_(DrawnTurn(view.rotation)), tilt_(DrawnTurn(view.elevation)), depth_(depth) {
    const TChartView initial;
    const std::array<double, 2> now = Extents(turn_, tilt_, depth_);
    const std::array<double, 2> first =
        Extents(DrawnTurn(initial.rotation), DrawnTurn(initial.elevation), depth_);
    const double zoom = static_cast<double>(DrawnZoom(view.zoom)) / initial.zoom;
    const double width = std::max(area.width, 1.0);
    const double height = std::max(area.height, 1.0);
    scaleX_ = zoom * width / (2 * std::max(now[0], first[0]));
    scaleY_ = zoom * height / (2 * std::max(now[1], first[1]));
    centre_ = {area.left + width / 2 + width * view.horizontalOffset / 1000,
               area.top + height / 2 + height * view.verticalOffset / 1000};
}

TScreenPoint TChartProjection::Map(const TBoxPoint &point) const {
    const double x = point.x - 0.5;
    const double y = (point.y - 0.5) * boxHeight;
    const double z = (point.z - 0.5) * depth_;
    const double right = x * turn_.cosine + z * turn_.sine;
    const double away = z * turn_.cosine - x * turn_.sine;
    const double up = y * tilt_.cosine + away * tilt_.sine;
    return {centre_.x + right * scaleX_, centre_.y - up * scaleY_};
}

TBoxPoint TChartProjection::Away() const {
    return {-turn_.sine * tilt_.cosine, -tilt_.sine, turn_.cosine * tilt_.cosine};
}
