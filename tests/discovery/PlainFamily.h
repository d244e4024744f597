// A small image with six maps in random bytes, for tests that move its maps about.
#pragma once

#include "discovery/MovedMaps.h"
#include "truth/Chance.h"

#include <random>
#include <vector>

struct TPlainMap {
    std::vector<std::uint8_t> rpm;  ///< steps
    std::vector<std::uint8_t> load; ///< none of a linear map
    std::vector<std::uint8_t> body;

    std::vector<std::uint8_t> Bytes() const {
        std::vector<std::uint8_t> bytes{0x4A, static_cast<std::uint8_t>(rpm.size())};
        bytes.insert(bytes.end(), rpm.begin(), rpm.end());
        if (!load.empty()) {
            bytes.insert(bytes.end(), {0x4C, static_cast<std::uint8_t>(load.size())});
            bytes.insert(bytes.end(), load.begin(), load.end());
        }
        bytes.insert(bytes.end(), body.begin(), body.end());
        return bytes;
    }
};

class TPlainFamily {
public:
    using TBytes = ::TBytes;
    static constexpr std::size_t size = 0x4000;
    static constexpr std::uint32_t revLimiter = 0x0105;
    static constexpr std::array<std::uint32_t, 6> places{0x2000, 0x2100, 0x2140,
                                                         0x2200, 0x2300, 0x2340};

    explicit TPlainFamily(std::uint32_t seed = 1) : random_(seed) {
        for (std::size_t map = 0; map < maps.size(); ++map)
            maps[map] = NewMap(map % 3 == 0, map < 3 ? 110 : 30, static_cast<int>(map));
    }

    /// Random bytes without any count byte of the maps, so that they lie where they are put alone.
    TBytes Filling(std::uint32_t seed) const {
        std::mt19937 random(seed);
        TBytes bytes(size);
        for (std::uint8_t &byte : bytes)
            byte = static_cast<std::uint8_t>(40 + random() % 200);
        return bytes;
    }
    static void Put(TBytes &image, std::uint32_t offset, const TBytes &bytes) {
        std::copy(bytes.begin(), bytes.end(), image.begin() + offset);
    }
    TBytes Image(std::uint32_t seed, const std::array<std::uint32_t, 6> &at) const {
        TBytes image = Filling(seed);
        for (std::size_t map = 0; map < maps.size(); ++map)
            Put(image, at[map], maps[map].Bytes());
        return image;
    }
    TKnownImage Known(const TBytes &image) const {
        TKnownImage known{image, {}, revLimiter};
        std::copy(places.begin(), places.end(), known.maps.begin());
        return known;
    }

    std::array<TPlainMap, 6> maps;

private:
    int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
    std::vector<std::uint8_t> Steps(int count, int each) {
        std::vector<std::uint8_t> steps;
        for (int i = 0; i < count; ++i)
            steps.push_back(static_cast<std::uint8_t>(each + Below(5)));
        return steps;
    }
    TPlainMap NewMap(bool twoD, int level, int kind) {
        TPlainMap map{Steps(16, 9), twoD ? Steps(12, 15) : TBytes(), {}};
        const int loads = twoD ? 12 : 1;
        for (int rpm = 0; rpm < 16; ++rpm)
            for (int load = 0; load < loads; ++load)
                map.body.push_back(
                    static_cast<std::uint8_t>(level + 12 * (kind % 3) + rpm + load + Below(2)));
        return map;
    }

    std::mt19937 random_;
};
