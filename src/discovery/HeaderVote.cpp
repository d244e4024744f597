#include "discovery/HeaderVote.h"

#include <algorithm>

namespace {
/// The part that a place itself has in the votes, or one that shares bytes with it.
float OwnVotes(const TScoredPlaces &voters, const TMapPlace &place, TRomBytes image, bool ofLoad,
               std::uint8_t header) {
    float votes = 0;
    for (const TScoredPlace &voter : voters)
        if (Overlap(voter.place, place) && HeaderOf(image, voter.place, ofLoad) == header)
            votes += static_cast<float>(voter.Weight());
    return votes;
}
} // namespace

THeaderVote::THeaderVote(TRomBytes image, const TScoredPlaces &places, bool ofLoad)
    : image_(image), ofLoad_(ofLoad), voters_(places) {
    for (const TScoredPlace &scored : places)
        if (const auto header = HeaderOf(image, scored.place, ofLoad))
            votes_[*header] += static_cast<float>(scored.Weight());
}

float THeaderVote::Support(const TScoredPlace &scored) const {
    const std::optional<std::uint8_t> header = HeaderOf(image_, scored.place, ofLoad_);
    if (!header)
        return 0;
    const float others =
        votes_[*header] - OwnVotes(voters_, scored.place, image_, ofLoad_, *header);
    float rival = 0;
    for (std::size_t i = 0; i < votes_.size(); ++i)
        if (i != *header)
            rival = std::max(rival, votes_[i]);
    return others >= rival ? others : others - rival;
}
