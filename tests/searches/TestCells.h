// Cells with colours of their own, and small maps to lay into them.
#pragma once

#include "filedisplay/Marks.h"

#include <cstddef>
#include <cstdint>
#include <vector>

using TBytes = std::vector<std::uint8_t>;

class TTestCells {
public:
    explicit TTestCells(const TBytes &bytes, bool padded = true)
        : values(bytes.begin(), bytes.end()) {
        const std::size_t cells = (bytes.size() + cellsPerRow - 1) / cellsPerRow * cellsPerRow;
        if (padded)
            values.resize(cells, -1);
        colors.resize(cells, unmarkedColor);
    }

    TSearchGrid Grid() { return {values, colors}; }

    std::vector<std::size_t> Marked() const {
        std::vector<std::size_t> positions;
        for (std::size_t i = 0; i < colors.size(); ++i) {
            if (colors[i] != unmarkedColor)
                positions.push_back(i);
        }
        return positions;
    }

    std::vector<TCellValue> values;
    std::vector<TColor> colors;
};

/// Every position from `first` to before `end`.
inline std::vector<std::size_t> Positions(std::size_t first, std::size_t end) {
    std::vector<std::size_t> positions;
    for (; first < end; ++first)
        positions.push_back(first);
    return positions;
}

inline void Append(TBytes &bytes, std::size_t count, int value) {
    bytes.insert(bytes.end(), count, static_cast<std::uint8_t>(value));
}

inline TBytes LinearMap(int count, int data, int header = 0x70, int axis = 0xFE) {
    const auto n = static_cast<std::size_t>(count);
    TBytes map{static_cast<std::uint8_t>(header), static_cast<std::uint8_t>(count)};
    Append(map, n, axis);
    Append(map, n, data);
    return map;
}

inline TBytes TwoDMap(int xCount, int yCount, int data, int xHeader = 0x70, int yHeader = 0x71,
                      int axis = 0xFE) {
    const auto x = static_cast<std::size_t>(xCount);
    const auto y = static_cast<std::size_t>(yCount);
    TBytes map{static_cast<std::uint8_t>(xHeader), static_cast<std::uint8_t>(xCount)};
    Append(map, x, axis);
    map.push_back(static_cast<std::uint8_t>(yHeader));
    map.push_back(static_cast<std::uint8_t>(yCount));
    Append(map, y, axis);
    Append(map, x * y, data);
    return map;
}

/// `size` bytes 0xFF, which fit no default range, with `map` at `position`.
inline TBytes ImageWith(const TBytes &map, std::size_t position, std::size_t size) {
    TBytes image(size, 0xFF);
    for (std::size_t i = 0; i < map.size() && position + i < size; ++i)
        image[position + i] = map[i];
    return image;
}
