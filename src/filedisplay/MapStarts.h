// Which cells of the contents view start a map, told by their colour alone: the searches of
// MapSearch.h leave these colours, the page opens pages for the maps.
#pragma once

#include "filedisplay/MapSearch.h"

/// A kind of map whose start is recognised.
struct TMapStart {
    TColor color; ///< exactly, unshaded
    TMapContents contents;
    TMapShape shape;
};

/// The kind of map that a cell of this colour starts; nullptr for any other colour.
///
/// The searches give 0x008001 and 0x800081 to no linear map's header: the first is the axis colour,
/// so that zero axis bytes of any found map start one (0x008002 likewise), and the second never
/// stands anywhere. White maps are never recognised. All of that is intended.
const TMapStart *MapStartOf(TColor color);
