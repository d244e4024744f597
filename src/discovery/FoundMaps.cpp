#include "discovery/FoundMaps.h"

#include "discovery/SharedEvidence.h"
#include "discovery/SixMaps.h"

#include <algorithm>

namespace {

constexpr double shareThatAgrees = 0.7;
constexpr double mapsThatTell = 1.5; // by their chances

/// The header that the likely maps agree on, each counted by its chance.
std::optional<TSharedHeader> AgreedHeader(TRomBytes image, const TFoundMaps &found, bool ofLoad) {
    std::array<double, 256> votes{};
    std::array<int, 256> maps{};
    double all = 0;
    int ofMaps = 0;
    for (std::size_t i = 0; i < found.likely; ++i)
        if (const auto header = HeaderOf(image, found.maps[i].place, ofLoad)) {
            votes[*header] += found.maps[i].Chance();
            ++maps[*header];
            all += found.maps[i].Chance();
            ++ofMaps;
        }
    const auto most = std::max_element(votes.begin(), votes.end());
    if (*most < mapsThatTell || *most < shareThatAgrees * all)
        return std::nullopt;
    const auto location = static_cast<std::uint8_t>(most - votes.begin());
    return TSharedHeader{location, maps[location], ofMaps};
}

} // namespace

double TFoundMap::Chance() const {
    return ChanceOf(score);
}

TFoundMaps FindMaps(TRomBytes image) {
    const TScorecards &cards = FittedCards();
    TFoundMaps found;
    for (const TScoredPlace &scored : WithoutOverlaps(ScoredAmongOthers(image, cards), mostFound))
        found.maps.push_back({scored.place, scored.contents, TMapKind::PT, double(scored.score),
                              scored.measures,
                              EvidenceOf(cards.Of(scored.place.shape), scored.measures)});
    const auto unlikely = std::ranges::find_if(
        found.maps, [](const TFoundMap &map) { return map.Chance() < likelyChance; });
    found.likely = static_cast<std::size_t>(unlikely - found.maps.begin());
    found.rpmLocation = AgreedHeader(image, found, false);
    found.loadLocation = AgreedHeader(image, found, true);
    TellKinds(image, found);
    return found;
}
