// Chance that is the same on every machine: the standard fixes the raw output of mt19937 for a
// seed, and only that is used.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

using TBytes = std::vector<std::uint8_t>;

class TChance {
public:
    explicit TChance(std::uint32_t seed) : random_(seed) {}

    /// 0 to `limit` - 1.
    int Below(int limit) { return static_cast<int>(random_() % static_cast<std::uint32_t>(limit)); }
    /// Both ends included.
    int Between(int least, int most) { return least + Below(most - least + 1); }
    bool Percent(int percent) { return Below(100) < percent; }
    std::uint8_t Byte() { return static_cast<std::uint8_t>(random_() >> 8); }
    template <class T>
    const T &OneOf(const std::vector<T> &list) {
        return list[static_cast<std::size_t>(Below(static_cast<int>(list.size())))];
    }

private:
    std::mt19937 random_;
};
