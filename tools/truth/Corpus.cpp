#include "truth/Corpus.h"

#include "truth/ImagePlan.h"

#include <algorithm>
#include <array>

namespace {

TChance ChanceOf(TCorpusHalf half, std::uint32_t number) {
    return TChance(2 * number + (half == TCorpusHalf::HeldOut ? 1 : 0));
}

std::string NameOf(TCorpusHalf half, std::uint32_t number) {
    return (half == TCorpusHalf::Training ? "training " : "held out ") + std::to_string(number);
}

// Files that are no images.

/// A grey picture: soft slopes with edges, a line below the other.
TBytes Picture(std::size_t size, TChance &chance) {
    const int width = chance.Between(60, 320);
    const int across = chance.Between(1, 5);
    const int down = chance.Between(1, 5);
    TBytes bytes;
    for (int i = 0; bytes.size() < size; ++i) {
        const int x = i % width;
        const int y = i / width;
        const int edge = (x / 40 + y / 30) % 2 * 40;
        bytes.push_back(
            static_cast<std::uint8_t>((x * across + y * down) / 4 + edge + chance.Below(3)));
    }
    return bytes;
}

/// Rows of numbers that rise and fall slowly, as sound and measurements do.
TBytes Signal(std::size_t size, TChance &chance) {
    TBytes bytes;
    int value = 128;
    int slope = 0;
    while (bytes.size() < size) {
        slope = std::clamp(slope + chance.Between(-2, 2), -9, 9);
        value = std::clamp(value + slope, 0, 255);
        bytes.push_back(static_cast<std::uint8_t>(value));
    }
    return bytes;
}

struct TOtherKind {
    const char *name;
    TBytes (*make)(std::size_t size, TChance &chance);
};

constexpr std::array<TOtherKind, 7> otherKinds{{
    {"program",
     [](std::size_t size, TChance &chance) {
         return Fill(static_cast<TFiller>(chance.Below(4)), size, chance);
     }},
    {"picture", Picture},
    {"signal", Signal},
    {"text", [](std::size_t size, TChance &chance) { return Fill(TFiller::Text, size, chance); }},
    {"compressed",
     [](std::size_t size, TChance &chance) { return Fill(TFiller::Compressed, size, chance); }},
    {"random",
     [](std::size_t size, TChance &chance) { return Fill(TFiller::Random, size, chance); }},
    {"scalars",
     [](std::size_t size, TChance &chance) { return Fill(TFiller::Scalars, size, chance); }},
}};

} // namespace

TTruthImage MakeTruthImage(TCorpusHalf half, std::uint32_t number) {
    TChance chance = ChanceOf(half, number);
    return Assembled(MakePlan(half, chance), NameOf(half, number));
}

TTruthImage MakeRevision(TCorpusHalf half, std::uint32_t number, std::uint32_t revision) {
    TChance chance = ChanceOf(half, number);
    TImagePlan plan = MakePlan(half, chance);
    TChance changes(number * 1000 + revision);
    plan = Revised(plan, changes);
    return Assembled(plan, NameOf(half, number) + ", revision " + std::to_string(revision));
}

TTruthImage MakeOtherFile(TCorpusHalf half, std::uint32_t number) {
    TChance chance = ChanceOf(half, number);
    const TOtherKind &kind = otherKinds[number % otherKinds.size()];
    TTruthImage file{NameOf(half, number), TFlavour::NoMaps, kind.name, {}, {}, {}, {}};
    file.bytes = kind.make(0x10000, chance);
    file.bytes.resize(0x10000);
    return file;
}
