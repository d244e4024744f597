// Counts of what was found in images with a truth list.
#pragma once

#include "discovery/FoundMaps.h"
#include "truth/Corpus.h"

#include <array>
#include <ostream>
#include <string>
#include <vector>

/// The true map of that place, if there is one.
const TTrueMap *TruthAt(const TTruthImage &image, const TMapPlace &place);

/// Of the ranked list, over some images.
class TListTally {
public:
    void Count(const TTruthImage &image, const TFoundMaps &found);

    static void WriteHead(std::ostream &out, const std::string &what);
    void WriteRow(std::ostream &out, const std::string &what) const;

    double Bytes() const { return bytes_; }
    /// Images whose true maps take the first places, of those that have any.
    int InFront() const { return inFront_; }
    int WithMaps() const { return withMaps_; }

private:
    void CountLocations(const TTruthImage &image, const TFoundMaps &found);

    int images_ = 0;
    int withMaps_ = 0;
    double bytes_ = 0;
    int maps_ = 0;
    int amongFirst_ = 0; ///< true ones among the first twelve places
    int inFront_ = 0;
    int likelyTrue_ = 0;  ///< true ones above the line
    int likelyFalse_ = 0; ///< false ones above the line
    int falseBefore_ = 0; ///< false ones in front of the last true one
    int rightKind_ = 0;   ///< true ones listed with their contents and kind
    int withFive_ = 0;    ///< images of five maps or more whose maps share the location
    int rpmRight_ = 0;    ///< of those
    int withFiveLoad_ = 0;
    int loadRight_ = 0;
    int wrong_ = 0; ///< locations that are told wrongly, of all images
};

/// Of finds by shape and contents, which may come from a search or from the list.
class TKindTally {
public:
    void Truth(const TTruthImage &image);
    void Find(const TTruthImage &image, const TMapPlace &place, TMapContents contents);
    static void WriteHead(std::ostream &out);
    void WriteRow(std::ostream &out, const std::string &what) const;

private:
    struct TCount {
        int maps = 0;
        int found = 0;
        int wrong = 0;
    };
    TCount &Of(TMapShape shape, TMapContents contents);

    std::array<TCount, 4> counts_;
    double bytes_ = 0;
};
