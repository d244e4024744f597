// The maps of invented images: axes and bodies as control units have them, in their stored form.
#pragma once

#include "filedisplay/Marks.h"
#include "model/MapSets.h"
#include "truth/Chance.h"

/// A map before it lies in an image.
struct TMadeMap {
    TMapContents contents;
    TMapKind kind;
    TBytes bytes;
};

/// How the maps of an image are made.
struct TMapStyle {
    int rpmPoints;
    int loadPoints;
    std::vector<int> rpms;  ///< points, counts of 40 rpm
    std::vector<int> loads; ///< points, counts of 0.4 %
    int jitter;             ///< how far the axes of its maps part from these
    int noise;              ///< of the values
    bool ownAxes;           ///< each map has other axes
    int shortLinear;        ///< RPM points of the linear maps; 0: those of part throttle
    int rpmLocation;        ///< RAM cell in front of the RPM axis; -1: another one for each map
    int loadLocation;
    int timingOffset; ///< by how much the locations of timing maps are others; 0: the same
};

TMapStyle MakeStyle(TChance &chance);

/// Fuel or timing: part throttle, idle, full throttle, which agree as the maps of a unit do.
std::vector<TMadeMap> MakeSet(const TMapStyle &style, TMapContents contents, TChance &chance);

/// A table over RPM that is neither fuel nor timing.
TBytes OtherRpmTable(const TMapStyle &style, TChance &chance);

/// The same map tuned: other values in its body, now and then another axis point.
TMadeMap Tuned(const TMadeMap &map, TChance &chance);
