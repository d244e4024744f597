// What a saved file is to hold, worked out from the bytes of an image alone, without the model: an
// axis is [RAM location][count][steps], a body lies behind its axes, RPM by RPM.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

using TBytes = std::vector<std::uint8_t>;

/// Where one map's parts lie; offsets into the image, counts as stored.
struct TLayout {
    int rpmAxis;
    int rpmCount;
    int loadAxis;
    int loadCount;
    int body;

    int Cell(int rpm, int load) const { return body + rpm * loadCount + load; }
};

/// The layout of the map at `at`; bytes beyond the image count as 0.
inline TLayout LayoutOf(const TBytes &image, int at, bool twoAxes) {
    const auto byte = [&](int place) {
        const auto index = static_cast<std::size_t>(place);
        return index < image.size() ? int{image[index]} : 0;
    };
    TLayout layout{at, byte(at + 1), 0, 1, 0};
    layout.loadAxis = at + layout.rpmCount + 2;
    layout.body = layout.loadAxis;
    if (twoAxes) {
        layout.loadCount = byte(layout.loadAxis + 1);
        layout.body += layout.loadCount + 2;
    }
    return layout;
}

/// Writes one byte; a place beyond the image is left out.
inline void Put(TBytes &image, int place, int value) {
    const auto index = static_cast<std::size_t>(place);
    if (index < image.size())
        image[index] = static_cast<std::uint8_t>(value & 0xFF);
}

/// The raw counts of an axis's points, summed down from `base` (256 for RPM, 250 for load).
inline std::vector<int> PointsOf(const TBytes &image, int axis, int base) {
    std::vector<int> points(image[static_cast<std::size_t>(axis) + 1]);
    int point = base;
    for (std::size_t k = points.size(); k-- > 0;) {
        point -= image[static_cast<std::size_t>(axis) + 2 + k];
        points[k] = point;
    }
    return points;
}

/// Writes the steps between `points` and from the last one to `base`.
inline void PutPoints(TBytes &image, int axis, const std::vector<int> &points, int base) {
    for (std::size_t k = 0; k < points.size(); ++k) {
        const int next = k + 1 < points.size() ? points[k + 1] : base;
        Put(image, axis + 2 + static_cast<int>(k), next - points[k]);
    }
}

/// Moves one inner point up by `counts`: the step in front of it grows, the one behind it shrinks.
inline void MovePoint(TBytes &image, int axis, int point, int counts) {
    const auto step = static_cast<std::size_t>(axis + 2 + point);
    image[step - 1] = static_cast<std::uint8_t>(image[step - 1] + counts);
    image[step] = static_cast<std::uint8_t>(image[step] - counts);
}

/// Every place in which two images differ, one line each; empty when they are equal.
inline std::string Differences(const TBytes &expected, const TBytes &actual) {
    if (expected.size() != actual.size())
        return std::to_string(expected.size()) + " bytes expected, " +
               std::to_string(actual.size()) + " there";
    std::string lines;
    if (expected == actual)
        return lines; // as nearly always: the loop would be most of a test's own work
    for (std::size_t i = 0; i < expected.size(); ++i)
        if (expected[i] != actual[i])
            lines += "at " + std::to_string(i) + ": expected " + std::to_string(expected[i]) +
                     ", is " + std::to_string(actual[i]) + "\n";
    return lines;
}
