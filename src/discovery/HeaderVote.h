// Which bytes stand in front of the axes: the maps of an image name the same RAM cells there.
#pragma once

#include "discovery/ScoredPlaces.h"

/// What the likely maps say about one of the two headers.
class THeaderVote {
public:
    /// Of places that do not overlap; each counts by its weight. They outlive this.
    THeaderVote(TRomBytes image, const TScoredPlaces &places, bool ofLoad);

    /// How many others, by their weights, have the same header as this place, less those that have
    /// the commonest other header, if that is more common. 0 where the place has no such header.
    float Support(const TScoredPlace &scored) const;

private:
    TRomBytes image_;
    bool ofLoad_;
    std::array<float, 256> votes_{};
    const TScoredPlaces &voters_;
};
