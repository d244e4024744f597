#include "discovery/MovedLimiter.h"

#include <algorithm>

namespace {
constexpr std::int64_t lookedAt = 8; ///< bytes on either side
constexpr int enough = 11;           ///< of these that are the same
constexpr int fewer = 3;             ///< another place has so many fewer, or is a rival
constexpr int leastChanges = 6;      ///< fewer are a filling, which tells nothing

/// Bytes around two offsets that are the same.
int SameAroundByte(TRomBytes known, std::int64_t offset, TRomBytes image, std::int64_t place) {
    int same = 0;
    for (std::int64_t i = -lookedAt; i <= lookedAt; ++i) {
        const std::int64_t at = place + i;
        const std::int64_t atKnown = offset + i;
        if (i == 0 || std::min(at, atKnown) < 0 || at >= std::ssize(image) ||
            atKnown >= std::ssize(known))
            continue;
        same +=
            known[static_cast<std::size_t>(atKnown)] == image[static_cast<std::size_t>(at)] ? 1 : 0;
    }
    return same;
}

int ChangesAround(TRomBytes known, std::int64_t offset) {
    const std::int64_t first = std::max<std::int64_t>(offset - lookedAt, 0);
    const std::int64_t end = std::min<std::int64_t>(offset + lookedAt + 1, std::ssize(known));
    int changes = 0;
    for (std::int64_t at = first + 1; at < end; ++at)
        changes += known[static_cast<std::size_t>(at)] != known[static_cast<std::size_t>(at - 1)];
    return changes;
}

/// A cheap look: enough bytes can only be the same where one of the next six is.
bool MayBeAlike(TRomBytes known, std::int64_t offset, TRomBytes image, std::int64_t place) {
    int same = 0;
    for (const std::int64_t i : {-3, -2, -1, 1, 2, 3}) {
        const std::int64_t at = place + i;
        const std::int64_t atKnown = offset + i;
        if (std::min(at, atKnown) >= 0 && at < std::ssize(image) && atKnown < std::ssize(known))
            same += known[static_cast<std::size_t>(atKnown)] == image[static_cast<std::size_t>(at)];
    }
    return same > 0;
}
} // namespace

TMovedByte FindMovedLimiter(TRomBytes known, std::optional<std::uint32_t> offset, TRomBytes image) {
    if (!offset || *offset >= known.size())
        return {{}, {{TMovedFact::NotPlaced}}};
    const std::int64_t from = *offset;
    if (ChangesAround(known, from) < leastChanges)
        return {{}, {{TMovedFact::ByteInFilling}}};
    int best = 0;
    int second = 0;
    std::int64_t place = 0;
    for (std::int64_t at = 0; at < std::ssize(image); ++at) {
        if (!MayBeAlike(known, from, image, at))
            continue;
        const int same = SameAroundByte(known, from, image, at);
        if (same > best) {
            second = best;
            best = same;
            place = at;
        } else {
            second = std::max(second, same);
        }
    }
    if (best < enough)
        return {{}, {{TMovedFact::ByteNotFound}}};
    if (second > best - fewer)
        return {{}, {{TMovedFact::ByteNotAlone}}};
    return {static_cast<std::uint32_t>(place), {{TMovedFact::ByteAround, best, 2 * lookedAt}}};
}
