#include "discovery/MovedChoice.h"

#include <algorithm>
#include <limits>

namespace {
constexpr double impossible = -std::numeric_limits<double>::infinity();

/// Goes through all the ways to choose. An option's index is one higher here: 0 leaves the map out.
class TChoosing {
public:
    TChoosing(const std::vector<std::vector<TPlaceOption>> &options, const TPairBits &pairBits)
        : options_(options), chosen_(options.size()) {
        for (std::size_t map = 0; map < options.size(); ++map)
            bestWith_.emplace_back(options[map].size() + 1, impossible);
        FillPairs(pairBits);
        Go(0, 0);
    }

    std::vector<TPlaceChoice> Choices() const {
        std::vector<TPlaceChoice> choices(options_.size());
        for (std::size_t map = 0; map < options_.size(); ++map) {
            TPlaceChoice &choice = choices[map];
            if (best_[map] > 0)
                choice.option = best_[map] - 1;
            choice.bits = bestBits_ - bestWith_[map][0];
            for (std::size_t i = 1; i < bestWith_[map].size(); ++i)
                choice.losses.push_back(bestBits_ - bestWith_[map][i]);
        }
        return choices;
    }

private:
    void FillPairs(const TPairBits &pairBits) {
        pairs_.resize(options_.size());
        for (std::size_t map = 0; map < options_.size(); ++map)
            for (std::size_t before = 0; before < map; ++before) {
                std::vector<std::vector<double>> table(options_[map].size());
                for (std::size_t i = 0; i < options_[map].size(); ++i)
                    for (std::size_t j = 0; j < options_[before].size(); ++j)
                        table[i].push_back(
                            Overlap(options_[map][i].place, options_[before][j].place)
                                ? impossible
                                : pairBits(map, i, before, j));
                pairs_[map].push_back(std::move(table));
            }
    }

    double PairBits(std::size_t map) const {
        double bits = 0;
        for (std::size_t before = 0; before < map; ++before)
            if (chosen_[before] > 0)
                bits += pairs_[map][before][chosen_[map] - 1][chosen_[before] - 1];
        return bits;
    }

    void Go(std::size_t map, double bits) {
        if (map == options_.size()) {
            Take(bits);
            return;
        }
        chosen_[map] = 0;
        Go(map + 1, bits);
        for (std::size_t i = 1; i <= options_[map].size(); ++i) {
            chosen_[map] = i;
            const double sum = bits + options_[map][i - 1].bits + PairBits(map);
            if (sum > impossible)
                Go(map + 1, sum);
        }
    }

    void Take(double bits) {
        for (std::size_t map = 0; map < chosen_.size(); ++map)
            bestWith_[map][chosen_[map]] = std::max(bestWith_[map][chosen_[map]], bits);
        if (bits > bestBits_) {
            bestBits_ = bits;
            best_ = chosen_;
        }
    }

    const std::vector<std::vector<TPlaceOption>> &options_;
    /// Bits of [map][map before][option][option].
    std::vector<std::vector<std::vector<std::vector<double>>>> pairs_;
    std::vector<std::size_t> chosen_;
    std::vector<std::size_t> best_;
    double bestBits_ = impossible;
    std::vector<std::vector<double>> bestWith_; ///< of all that choose this option of this map
};
} // namespace

std::vector<TPlaceChoice> ChoosePlaces(const std::vector<std::vector<TPlaceOption>> &options,
                                       const TPairBits &pairBits) {
    return TChoosing(options, pairBits).Choices();
}
