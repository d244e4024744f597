// Random maps and views for the chart's tests, the same in every run.
#pragma once

#include "maps/ChartData.h"
#include "maps/ChartProjection.h"
#include "maps/ChartScale.h"

#include <random>

class TRandomCharts {
public:
    explicit TRandomCharts(unsigned seed) : random_(seed) {}

    int Number(int from, int to) { return std::uniform_int_distribution(from, to)(random_); }

    /// Walls with points in colours of their own; some unreadable, some stairs, some shorter.
    std::vector<TWall> Walls(int mostWalls, int mostPoints) {
        std::vector<TWall> walls(static_cast<std::size_t>(Number(1, mostWalls)));
        const int points = Number(1, mostPoints);
        for (TWall &wall : walls) {
            wall.stairs = Number(0, 5) == 0;
            const int count = Number(0, 9) == 0 ? Number(0, points) : points;
            for (int i = 0; i < count; ++i) {
                ++color_;
                if (Number(0, 19) == 0)
                    wall.points.push_back({unreadableValue, clRed});
                else
                    wall.points.push_back({Number(-500, 3000) / 10.0, color_ * 2731 % 0xFFFFFE});
            }
        }
        return walls;
    }

    TChartView View() {
        TChartView view;
        view.rotation = Angle();
        view.elevation = Angle();
        view.zoom = Number(30, 80);
        return view;
    }

private:
    /// Often one of the right angles, where faces are seen edge on.
    int Angle() { return Number(0, 5) == 0 ? 90 * Number(-4, 8) : Number(-720, 720); }

    std::mt19937 random_;
    TColor color_ = 1;
};
