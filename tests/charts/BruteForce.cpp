#include "charts/BruteForce.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr double tie = 1e-9;

double Radians(int degrees) {
    return (360 - degrees % 360) * M_PI / 180;
}

double Cross(const TScreenPoint &a, const TScreenPoint &b, const TScreenPoint &c) {
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

} // namespace

TDepthBuffer::TDepthBuffer(int columns, int rows)
    : columns_(columns), rows_(rows), samples_(static_cast<std::size_t>(columns * rows)) {}

void TDepthBuffer::AddWalls(const std::vector<TWall> &walls, const TChartScale &scale,
                            bool firstAtRight, const TChartView &view, double depth,
                            const TChartProjection &projection) {
    projection_ = &projection;
    depth_ = depth;
    view_ = view;
    std::size_t places = 0;
    for (const TWall &wall : walls)
        places = std::max(places, wall.points.size());
    const double steps = places > 1 ? static_cast<double>(places - 1) : 1;
    const double slot = 1.0 / static_cast<double>(walls.size());
    for (std::size_t w = 0; w < walls.size(); ++w) {
        const TWall &wall = walls[w];
        const double z1 = 1 - static_cast<double>(w) * slot; // the first wall is the farthest
        const double z0 = z1 - slot;
        const std::size_t n = wall.points.size();
        const auto x = [&](double place) {
            const double along = std::clamp(place, 0.0, steps) / steps;
            return firstAtRight ? 1 - along : along;
        };
        const auto height = [&](std::size_t i) {
            return IsReadable(wall.points[i]) ? scale.Height(wall.points[i].value) : 0;
        };
        // Both halves of each point as a body of six faces.
        for (std::size_t i = 0; i < n; ++i)
            for (const int side : {-1, 1}) {
                double from = static_cast<double>(i);
                double to = from + side * 0.5;
                if (places == 1) {
                    from = 0.5;
                    to = side < 0 ? 0 : 1;
                } else if ((side < 0 && i == 0) || (side > 0 && i + 1 == n && n > 1)) {
                    continue;
                }
                const double own = height(i);
                double other = own;
                if (!wall.stairs && n > 1)
                    other = (own + height(side < 0 ? i - 1 : i + 1)) / 2;
                const double a = x(from);
                const double b = x(to);
                const TColor color = wall.points[i].color;
                AddFace({{a, 0, z0}, {a, own, z0}, {b, other, z0}, {b, 0, z0}}, color, false);
                AddFace({{a, 0, z1}, {a, own, z1}, {b, other, z1}, {b, 0, z1}}, color, false);
                AddFace({{a, own, z0}, {a, own, z1}, {b, other, z1}, {b, other, z0}}, color, false);
                AddFace({{a, 0, z0}, {a, 0, z1}, {b, 0, z1}, {b, 0, z0}}, color, false);
                AddFace({{b, 0, z0}, {b, other, z0}, {b, other, z1}, {b, 0, z1}}, color, true);
                // The side at the point is inside of the wall, but at a wall's end.
                if (i == 0 || i + 1 == n)
                    AddFace({{a, 0, z0}, {a, own, z0}, {a, own, z1}, {a, 0, z1}}, color, true);
            }
    }
}

const TSample &TDepthBuffer::At(int column, int row) const {
    return samples_[static_cast<std::size_t>(row * columns_ + column)];
}

bool TDepthBuffer::IsInside(int column, int row) const {
    if (column < 2 || row < 2 || column + 2 >= columns_ || row + 2 >= rows_)
        return false;
    const TSample &middle = At(column, row);
    for (int y = row - 2; y <= row + 2; ++y)
        for (int x = column - 2; x <= column + 2; ++x)
            if (const TSample &sample = At(x, y);
                sample.face != middle.face || !sample.wall || sample.undecided)
                return false;
    return true;
}

void TDepthBuffer::AddFace(const std::vector<TBoxPoint> &corners, TColor color, bool end) {
    const double a = Radians(view_.rotation);
    const double e = Radians(view_.elevation);
    std::vector<TCorner> placed;
    for (const TBoxPoint &p : corners) {
        const double away = p.z * depth_ * std::cos(a) - p.x * std::sin(a);
        placed.push_back({projection_->Map(p), away * std::cos(e) - p.y * 0.7 * std::sin(e)});
    }
    ++faces_;
    AddTriangle(placed[0], placed[1], placed[2], color, end);
    AddTriangle(placed[0], placed[2], placed[3], color, end);
}

void TDepthBuffer::AddTriangle(const TCorner &a, const TCorner &b, const TCorner &c, TColor color,
                               bool end) {
    const double area = Cross(a.at, b.at, c.at);
    if (std::abs(area) < 1e-9)
        return;
    const auto [left, right] = std::minmax({a.at.x, b.at.x, c.at.x});
    const auto [top, bottom] = std::minmax({a.at.y, b.at.y, c.at.y});
    const int lastRow = static_cast<int>(std::min<double>(bottom, rows_ - 1));
    const int lastColumn = static_cast<int>(std::min<double>(right, columns_ - 1));
    for (int row = static_cast<int>(std::max(top, 0.0)); row <= lastRow; ++row)
        for (int column = static_cast<int>(std::max(left, 0.0)); column <= lastColumn; ++column) {
            const TScreenPoint p{column + 0.5, row + 0.5};
            const double u = Cross(b.at, c.at, p) / area;
            const double v = Cross(c.at, a.at, p) / area;
            const double w = 1 - u - v;
            if (u >= 0 && v >= 0 && w >= 0)
                Put(samples_[static_cast<std::size_t>(row * columns_ + column)],
                    u * a.distance + v * b.distance + w * c.distance, color, end);
        }
}

void TDepthBuffer::Put(TMarked &sample, double distance, TColor color, bool end) const {
    if (sample.wall && std::abs(distance - sample.distance) < tie) {
        sample.undecided |= color != sample.color || end != sample.end;
        return;
    }
    if (sample.wall && distance > sample.distance)
        return;
    sample = {};
    sample.color = color;
    sample.end = end;
    sample.wall = true;
    sample.face = faces_;
    sample.distance = distance;
}
