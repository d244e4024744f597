#include "discovery/Scorecard.h"

#include <cmath>

std::size_t TScoreRow::BinOf(float measure) const {
    std::size_t bin = 0;
    while (bin < edges.size() && measure >= edges[bin])
        ++bin;
    return bin;
}

float OwnScore(const TScorecard &card, const TMeasures &measures) {
    float score = card.base;
    for (std::size_t i = 0; i < ownFeatures; ++i)
        score += card.rows[i].PointsOf(measures[i]);
    return score;
}

TEvidence EvidenceOf(const TScorecard &card, const TMeasures &measures) {
    TEvidence evidence{};
    for (std::size_t i = 0; i < featureCount; ++i)
        evidence[i] = card.rows[i].PointsOf(measures[i]) * (i < ownFeatures ? card.ownShare : 1.0F);
    return evidence;
}

float FullScore(const TScorecard &card, const TMeasures &measures) {
    float score = card.base * card.ownShare + card.sharedBase;
    for (const float points : EvidenceOf(card, measures))
        score += points;
    return score;
}

double ChanceOf(double score) {
    return 1 / (1 + std::exp(-score));
}
