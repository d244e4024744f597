// Images with the truth about them, made from numbers: for the fit of the scores, for the report on
// them and for tests. The same number gives the same bytes on every machine.
#pragma once

#include "discovery/MapPlace.h"
#include "model/MapSets.h"
#include "truth/Chance.h"

#include <optional>
#include <string>

/// The fit sees the first, the report is on the second.
enum class TCorpusHalf { Training, HeldOut };

enum class TFlavour {
    SixMaps,    ///< of which all begin alike
    TwelveMaps, ///< two sets of each kind
    FewMaps,    ///< one to four
    OwnHeaders, ///< each map has headers and axes of its own
    InScalars,  ///< six maps between single values
    Decoys,     ///< six maps and other tables of the same form
    NoMaps,
    Count
};

struct TTrueMap {
    std::size_t number; ///< among the maps that were made, also of a revision
    TMapPlace place;
    TMapContents contents;
    TMapKind kind;
};

struct TTruthImage {
    std::string name;
    TFlavour flavour;
    std::string filler; ///< what most of it is filled with
    TBytes bytes;
    std::vector<TTrueMap> maps;
    /// What its maps share in front of their axes.
    std::optional<std::uint8_t> rpmLocation;
    std::optional<std::uint8_t> loadLocation;
};

std::string FlavourName(TFlavour flavour);

TTruthImage MakeTruthImage(TCorpusHalf half, std::uint32_t number);

/// A later image of the same family: `maps` are those of MakeTruthImage in the same order, tuned,
/// at other places.
TTruthImage MakeRevision(TCorpusHalf half, std::uint32_t number, std::uint32_t revision);

/// A file that is no image: a program, a picture, a text, compressed or random bytes.
TTruthImage MakeOtherFile(TCorpusHalf half, std::uint32_t number);
