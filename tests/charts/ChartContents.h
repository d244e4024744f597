// A plain chart for the tests of layout and painting.
#pragma once

#include "maps/ChartData.h"
#include "maps/ChartLayout.h"

#include <cmath>
#include <string>

/// A hilly map with all its texts, inverted axis off, in the initial view.
inline TChartContents SampleContents(int walls, int points) {
    TChartContents contents;
    contents.title = "Partial Throttle /\\ Trim Map";
    contents.bottomTitle = "RPM";
    contents.depthTitle = "% Load";
    contents.leftTitle = "/\\ Trim";
    for (int w = 0; w < walls; ++w) {
        TWall wall;
        for (int p = 0; p < points; ++p) {
            const double value = 50 + 20 * std::sin(p * 0.7 + w) + 3 * w;
            wall.points.push_back(ChartValueOf(value));
        }
        contents.walls.push_back(wall);
        contents.depthLabels.push_back(std::to_string(5 * (w + 1)) + "%");
    }
    for (int p = 0; p < points; ++p)
        contents.bottomLabels.push_back(std::to_string(600 + 240 * p));
    return contents;
}
