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
struct TListTally {
    int images = 0;
    int withMaps = 0;
    double bytes = 0;
    int maps = 0;
    int amongFirst = 0;  ///< true ones among the first twelve places
    int inFront = 0;     ///< images whose true maps take the first places
    int likelyTrue = 0;  ///< true ones above the line
    int likelyFalse = 0; ///< false ones above the line
    int falseBefore = 0; ///< false ones in front of the last true one
    int rightKind = 0;   ///< true ones listed with their contents and kind
    int withRpm = 0;     ///< images of five maps or more that share the location of RPM
    int rpmRight = 0;
    int withLoad = 0; ///< and that of load
    int loadRight = 0;
    int wrong = 0; ///< locations that are told wrongly, of all images

    void Count(const TTruthImage &image, const TFoundMaps &found);
    /// False finds are told by 64 KiB.
    double Units() const { return bytes / 0x10000; }

    static void WriteHead(std::ostream &out, const std::string &what);
    void WriteRow(std::ostream &out, const std::string &what) const;

private:
    void CountLocations(const TTruthImage &image, const TFoundMaps &found);
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
