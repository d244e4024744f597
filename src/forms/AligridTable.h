// Values of a grid's cells, one kind of them, by the cells' positions in reading order. Storage for
// AligridCells; nothing here knows what the values mean.
#pragma once

#include <cstddef>
#include <span>
#include <utility>
#include <vector>

/// A value for each position, T() where none was set. Memory reaches to the last one that was, so
/// that a grid of a million cells costs what is in it.
template <class T>
class TCellTable {
public:
    T At(std::size_t position) const { return position < values_.size() ? values_[position] : T(); }

    void Set(std::size_t position, T value) {
        if (position >= values_.size())
            values_.resize(position + 1);
        values_[position] = std::move(value);
    }

    /// The values of the first `count` positions, which all of them are.
    std::span<T> Whole(std::size_t count) {
        values_.resize(count);
        return values_;
    }

    std::span<const T> Values() const { return values_; }

    /// Forgets the values from position `count` on and gives their memory back.
    void Cut(std::size_t count) {
        if (count >= values_.size())
            return;
        values_.resize(count);
        values_.shrink_to_fit();
    }

    /// Moves to each position the value of the one that `sources` names for it, each at most once;
    /// one for which there is no value leaves T().
    void Rearrange(const std::vector<std::size_t> &sources) {
        std::vector<T> old = std::exchange(values_, {});
        for (std::size_t i = 0; i < sources.size(); ++i)
            if (sources[i] < old.size())
                Set(i, std::move(old[sources[i]]));
    }

private:
    std::vector<T> values_;
};
