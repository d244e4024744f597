// A small picture of the body of a found map, in the colours of "Colour by Value".
#pragma once

#include "discovery/MapPlace.h"

#include <QImage>

/// One dot for each byte: engine speed from left to right, load downwards, as the grids of map
/// pages have it. `place` lies in `image`.
QImage FoundPicture(TRomBytes image, const TMapPlace &place);
