// How well the maps of one image are found in a revision of it.
#pragma once

#include "truth/Corpus.h"

#include <iosfwd>

/// Of the first so many images with maps, each against two revisions of it, and against an image
/// that has nothing to do with it.
void WriteMovedReport(std::ostream &out, TCorpusHalf half, std::uint32_t images);
