// Pairs of byte buffers that differ as images do and do not: in nothing, in one byte, here and
// there, in runs, at both ends, in all.
#pragma once

#include <algorithm>
#include <cstdint>
#include <random>
#include <vector>

struct TBytePair {
    std::vector<std::uint8_t> before;
    std::vector<std::uint8_t> after;
};

/// Always the same pairs in the same order.
class TRandomPairs {
public:
    static constexpr int count = 10000; ///< of a proof

    /// Mostly up to 4 KiB, one of a hundred 64 KiB; both of one length.
    TBytePair Next() {
        std::vector<std::uint8_t> before(Size());
        for (std::uint8_t &byte : before)
            byte = static_cast<std::uint8_t>(random_());
        TBytePair pair{before, std::move(before)};
        if (!pair.after.empty())
            Change(pair.after);
        return pair;
    }

    /// As Next(), but one pair of four has two lengths.
    TBytePair NextOfAnyLengths() {
        TBytePair pair = Next();
        if (Below(4) == 0)
            pair.after.resize(Size());
        if (Below(2) == 0)
            std::swap(pair.before, pair.after);
        return pair;
    }

    /// From 0 to limit - 1.
    std::size_t Below(std::size_t limit) { return random_() % limit; }

private:
    std::size_t Size() {
        if (Below(100) == 0)
            return 0x10000;
        return Below(Below(10) == 0 ? 18 : 4097);
    }

    void Change(std::vector<std::uint8_t> &bytes) {
        switch (Below(6)) {
        case 0:
            return;
        case 1:
            return ChangeRun(bytes, Below(bytes.size()), 1);
        case 2:
            ChangeRun(bytes, 0, 1 + Below(20));
            return ChangeRun(bytes,
                             bytes.size() - 1 - Below(std::min<std::size_t>(bytes.size(), 20)), 20);
        case 3:
            return ChangeEach(bytes, 1 + Below(40));
        default:
            for (std::size_t runs = 1 + Below(12); runs > 0; --runs)
                ChangeRun(bytes, Below(bytes.size()), 1 + Below(70));
        }
    }

    void ChangeRun(std::vector<std::uint8_t> &bytes, std::size_t first, std::size_t length) {
        for (std::size_t i = first; i < bytes.size() && i < first + length; ++i)
            bytes[i] = static_cast<std::uint8_t>(bytes[i] + 1 + Below(255));
    }
    void ChangeEach(std::vector<std::uint8_t> &bytes, std::size_t oneOf) {
        for (std::size_t i = 0; i < bytes.size(); ++i)
            if (Below(oneOf) == 0)
                ChangeRun(bytes, i, 1);
    }

    std::mt19937 random_{3};
};

/// Random pairs, one behind the other.
inline TBytePair Joined(TRandomPairs &pairs, int count) {
    TBytePair joined;
    for (int i = 0; i < count; ++i) {
        const auto [before, after] = pairs.Next();
        joined.before.insert(joined.before.end(), before.begin(), before.end());
        joined.after.insert(joined.after.end(), after.begin(), after.end());
    }
    return joined;
}
