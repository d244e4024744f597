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

/// One for the bin of each feature from `first` to before `end`, which are numbered from 0.
TExample ExampleOf(const TScorecard &card, const TMeasures &measures, std::size_t first,
                   std::size_t end, bool outcome) {
    TExample example{{{0, 1.0F}}, outcome};
    for (std::size_t i = first; i < end; ++i)
        example.parts.push_back({Parameter(i - first, card.rows[i].BinOf(measures[i])), 1.0F});
    return example;
}

/// Takes the fitted points; those of a feature are shifted so that what says nothing gives 0.
void TakePoints(TScorecard &card, const std::vector<double> &fitted, std::size_t first,
                std::size_t end) {
    for (std::size_t i = first; i < end; ++i)
        for (std::size_t bin = 0; bin < bins; ++bin)
            card.rows[i].points[bin] = static_cast<float>(fitted[Parameter(i - first, bin)]);
}

TScorecard FitOwn(TMapShape shape, const std::vector<TTruthImage> &images) {
    TScorecard card = FittedCards().Of(shape); // for its edges
    card.ownShare = 1;
    card.sharedBase = 0;
    TakePoints(card, std::vector<double>(1 + featureCount * bins), 0, featureCount);
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
    card.base = static_cast<float>(fitted[0]);
    TakePoints(card, fitted, 0, ownFeatures);
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
    card.sharedBase = static_cast<float>(fitted[0]);
    TakePoints(card, fitted, ownFeatures, featureCount);
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
