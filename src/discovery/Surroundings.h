// What the bytes around a place are like: their mean and their spread.
#pragma once

#include "discovery/MapPlace.h"

#include <vector>

struct TSpread {
    double mean = 0;
    double deviation = 0; ///< standard deviation
};

class TSurroundings {
public:
    explicit TSurroundings(TRomBytes image);

    /// Of about 160 bytes in front of `first` and as many behind `end`; of fewer at the image's
    /// ends. All zero where nothing is around.
    TSpread Around(std::size_t first, std::size_t end) const;

private:
    struct TBlock { // of 32 bytes
        std::uint32_t sum = 0;
        std::uint32_t squares = 0;
        std::uint32_t bytes = 0;
    };
    TBlock Blocks(std::size_t first, std::size_t end) const;

    std::vector<TBlock> blocks_;
};
