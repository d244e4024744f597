#include "truth/Fit.h"

#include "discovery/Candidates.h"
#include "discovery/OwnEvidence.h"
#include "discovery/ScoredPlaces.h"
#include "discovery/SharedEvidence.h"
#include "truth/Corpus.h"
#include "truth/Logistic.h"

#include <algorithm>
#include <iomanip>

namespace {

constexpr double penalty = 2;
constexpr std::size_t bins = TScoreRow::bins;

std::vector<TTruthImage> TrainingImages(std::uint32_t images) {
    std::vector<TTruthImage> all;
    for (std::uint32_t i = 0; i < images; ++i) {
        all.push_back(MakeTruthImage(TCorpusHalf::Training, i));
        all.push_back(MakeOtherFile(TCorpusHalf::Training, i));
    }
    return all;
}

bool IsTrue(const TTruthImage &image, const TMapPlace &place) {
    return std::ranges::any_of(image.maps, [&](const TTrueMap &map) { return map.place == place; });
}

std::uint16_t Parameter(std::size_t feature, std::size_t bin) {
    return static_cast<std::uint16_t>(1 + feature * bins + bin);
}

/// A bin's points are the sum of the parameters up to it, so that the penalty keeps the points of
/// neighbouring bins near each other. The features from `first` to before `end` are numbered from
/// 0.
TExample ExampleOf(const TScorecard &card, const TMeasures &measures, std::size_t first,
                   std::size_t end, bool outcome) {
    TExample example{{{0, 1.0F}}, outcome};
    for (std::size_t i = first; i < end; ++i)
        for (std::size_t bin = 1; bin <= card.rows[i].BinOf(measures[i]); ++bin)
            example.parts.push_back({Parameter(i - first, bin), 1.0F});
    return example;
}

/// How often the examples of one outcome are in each bin of a feature; adds up to 1.
std::array<double, bins> SharesOf(const std::vector<TExample> &examples, std::size_t feature,
                                  bool outcome) {
    std::array<double, bins> shares{};
    double all = 0;
    for (const TExample &example : examples) {
        if (example.outcome != outcome)
            continue;
        const auto in = std::ranges::count_if(example.parts, [&](const TExample::TPart &part) {
            return part.parameter >= Parameter(feature, 1) &&
                   part.parameter < Parameter(feature, bins);
        });
        ++shares[static_cast<std::size_t>(in)];
        ++all;
    }
    for (double &share : shares)
        share /= std::max(all, 1.0);
    return shares;
}

/// Takes the fitted points, those of each feature shifted so that maps and others have 0 on
/// average: then what is above 0 speaks for a map. Gives what the shifts add up to.
float TakePoints(TScorecard &card, const std::vector<double> &fitted,
                 const std::vector<TExample> &examples, std::size_t first, std::size_t end) {
    double shifted = 0;
    for (std::size_t i = first; i < end; ++i) {
        std::array<double, bins> points{};
        for (std::size_t bin = 1; bin < bins; ++bin)
            points[bin] = points[bin - 1] + fitted[Parameter(i - first, bin)];
        double average = 0;
        for (const bool outcome : {false, true}) {
            const std::array<double, bins> shares = SharesOf(examples, i - first, outcome);
            for (std::size_t bin = 0; bin < bins; ++bin)
                average += shares[bin] * points[bin] / 2;
        }
        for (std::size_t bin = 0; bin < bins; ++bin)
            card.rows[i].points[bin] = static_cast<float>(points[bin] - average);
        shifted += average;
    }
    return static_cast<float>(shifted);
}

/// The edges alone.
TScorecard WithoutPoints(TScorecard card) {
    for (TScoreRow &row : card.rows)
        row.points = {};
    card.base = card.sharedBase = 0;
    card.ownShare = 1;
    return card;
}

TScorecard FitOwn(TMapShape shape, const std::vector<TTruthImage> &images) {
    TScorecard card = WithoutPoints(FittedCards().Of(shape));
    std::vector<TExample> examples;
    for (const TTruthImage &image : images) {
        const TSurroundings surroundings(image.bytes);
        ForEachCandidate(image.bytes, [&](const TMapPlace &place) {
            if (place.shape == shape && AxesFit(image.bytes, place))
                examples.push_back(ExampleOf(card, MeasureOwn(image.bytes, place, surroundings), 0,
                                             ownFeatures, IsTrue(image, place)));
        });
    }
    const std::vector<double> fitted = FitLogistic(examples, 1 + ownFeatures * bins, penalty);
    card.base = static_cast<float>(fitted[0]) + TakePoints(card, fitted, examples, 0, ownFeatures);
    return card;
}

/// With the own points as they are: how much they count, and the points among others.
void FitShared(TScorecard &card, TMapShape shape, const std::vector<TTruthImage> &images,
               const TScorecards &cards) {
    constexpr std::size_t shared = featureCount - ownFeatures;
    constexpr std::uint16_t share = 1 + shared * bins;
    std::vector<TExample> examples;
    for (const TTruthImage &image : images)
        for (const TScoredPlace &scored : ScoredAmongOthers(image.bytes, cards)) {
            if (scored.place.shape != shape)
                continue;
            examples.push_back(ExampleOf(card, scored.measures, ownFeatures, featureCount,
                                         IsTrue(image, scored.place)));
            examples.back().parts.push_back({share, OwnScore(card, scored.measures)});
        }
    const std::vector<double> fitted = FitLogistic(examples, share + std::size_t{1}, penalty);
    card.ownShare = static_cast<float>(fitted[share]);
    card.sharedBase = static_cast<float>(fitted[0]) +
                      TakePoints(card, fitted, examples, ownFeatures, featureCount);
}

void WriteList(std::ostream &out, std::span<const float> numbers) {
    const char *between = "{{";
    for (const float number : numbers) {
        out << between << number << 'F';
        between = ", ";
    }
    out << "}}";
}

void WriteCard(std::ostream &out, const char *name, const TScorecard &card) {
    out << "const TScorecard " << name << "{\n    .base = " << card.base << "F,\n    .rows = {{\n";
    for (const TScoreRow &row : card.rows) {
        out << "        {";
        WriteList(out, row.edges);
        out << ", ";
        WriteList(out, row.points);
        out << "},\n";
    }
    out << "    }},\n    .ownShare = " << card.ownShare
        << "F,\n    .sharedBase = " << card.sharedBase << "F,\n};\n";
}

} // namespace

void WriteFit(std::ostream &out, std::uint32_t images) {
    const std::vector<TTruthImage> all = TrainingImages(images);
    TScorecards cards{FitOwn(TMapShape::Linear, all), FitOwn(TMapShape::TwoD, all)};
    for (int round = 0; round < 3; ++round) { // what is near depends on the scores of the others
        const TScorecards before = cards;
        FitShared(cards.linear, TMapShape::Linear, all, before);
        FitShared(cards.twoD, TMapShape::TwoD, all, before);
    }
    out << "// Made by \"ferrolyn_truth fit\"; see docs/discovery.md. Edges and points stand in "
           "the\n"
           "// order of TFeature.\n"
           "#include \"discovery/Scorecard.h\"\n\nnamespace {\n\n// clang-format off\n"
        << std::fixed << std::setprecision(3);
    WriteCard(out, "linearCard", cards.linear);
    WriteCard(out, "twoDCard", cards.twoD);
    out << "// clang-format on\n\n} // namespace\n\nconst TScorecards &FittedCards() {\n"
           "    static const TScorecards cards{linearCard, twoDCard};\n    return cards;\n}\n";
}
