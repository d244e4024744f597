// Small maps for the tests, byte by byte.
#pragma once

#include "discovery/MapPlace.h"

#include <functional>
#include <vector>

using TBytes = std::vector<std::uint8_t>;

/// RAM cell, count, and steps that add up to 240: even ones to the last point, then `rest`, what is
/// left to full scale.
inline TBytes Axis(std::uint8_t location, int points, int rest) {
    TBytes bytes{location, static_cast<std::uint8_t>(points)};
    const int span = 240 - rest;
    for (int i = 0; i + 1 < points; ++i)
        bytes.push_back(
            static_cast<std::uint8_t>(span * (i + 1) / (points - 1) - span * i / (points - 1)));
    bytes.push_back(static_cast<std::uint8_t>(rest));
    return bytes;
}

/// A linear map whose value at RPM point r is value(r).
inline TBytes LinearMap(int points, const std::function<int(int)> &value) {
    TBytes bytes = Axis(0x4A, points, 60);
    for (int r = 0; r < points; ++r)
        bytes.push_back(static_cast<std::uint8_t>(value(r)));
    return bytes;
}

/// A 2-D map, by RPM point and load point.
inline TBytes TwoDMap(int rpmPoints, int loadPoints, const std::function<int(int, int)> &value) {
    TBytes bytes = Axis(0x4A, rpmPoints, 60);
    const TBytes load = Axis(0x4C, loadPoints, 0);
    bytes.insert(bytes.end(), load.begin(), load.end());
    for (int r = 0; r < rpmPoints; ++r)
        for (int t = 0; t < loadPoints; ++t)
            bytes.push_back(static_cast<std::uint8_t>(value(r, t)));
    return bytes;
}

/// Puts a map into an image.
inline void Put(TBytes &image, std::size_t offset, const TBytes &map) {
    std::copy(map.begin(), map.end(), image.begin() + static_cast<std::ptrdiff_t>(offset));
}
