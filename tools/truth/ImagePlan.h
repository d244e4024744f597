// An image before its bytes have their places: its parts in their order. What is changed here moves
// all that stands behind it, as in the revisions of a program.
#pragma once

#include "truth/Corpus.h"
#include "truth/Fillers.h"
#include "truth/TrueMaps.h"

#include <vector>

/// One stretch of the image.
struct TImagePart {
    TBytes bytes;
    int map = -1;              ///< index of the map that it is
    bool pointerTable = false; ///< two bytes for each map, to be filled in
    bool code = false;         ///< may shrink and grow
};

struct TImagePlan {
    TFlavour flavour;
    TFiller filler;
    std::size_t size;
    std::size_t busBase; ///< address of the first byte on the processor's bus
    TMapStyle style;
    std::vector<TMadeMap> maps;
    std::vector<TImagePart> parts;
};

TImagePlan MakePlan(TCorpusHalf half, TChance &chance);

/// Maps tuned, code changed and moved.
TImagePlan Revised(const TImagePlan &plan, TChance &chance);

/// The bytes of the plan, cut or filled with 0xFF to its size; maps that do not fit are left out
/// of the truth.
TTruthImage Assembled(const TImagePlan &plan, const std::string &name);
