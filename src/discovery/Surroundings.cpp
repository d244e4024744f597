#include "discovery/Surroundings.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr std::size_t blockSize = 32;
constexpr std::size_t blocksAround = 5;
} // namespace

TSurroundings::TSurroundings(TRomBytes image)
    : blocks_((image.size() + blockSize - 1) / blockSize) {
    for (std::size_t i = 0; i < image.size(); ++i) {
        TBlock &block = blocks_[i / blockSize];
        block.sum += image[i];
        block.squares += std::uint32_t{image[i]} * image[i];
        ++block.bytes;
    }
}

TSurroundings::TBlock TSurroundings::Blocks(std::size_t first, std::size_t end) const {
    TBlock all;
    for (std::size_t i = first; i < std::min(end, blocks_.size()); ++i) {
        all.sum += blocks_[i].sum;
        all.squares += blocks_[i].squares;
        all.bytes += blocks_[i].bytes;
    }
    return all;
}

TSpread TSurroundings::Around(std::size_t first, std::size_t end) const {
    const std::size_t front = first / blockSize;
    const std::size_t behind = (end + blockSize - 1) / blockSize;
    const TBlock before = Blocks(front - std::min(front, blocksAround), front);
    const TBlock after = Blocks(behind, behind + blocksAround);
    const double bytes = before.bytes + after.bytes;
    if (bytes == 0)
        return {};
    const double mean = (before.sum + after.sum) / bytes;
    const double variance = (double(before.squares) + after.squares) / bytes - mean * mean;
    return {mean, std::sqrt(std::max(variance, 0.0))};
}
