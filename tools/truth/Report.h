// Measures how well maps are found on images with a truth list: the figures of docs/discovery.md.
#pragma once

#include "truth/Corpus.h"

#include <ostream>

/// Tables by what the images are like, on so many images of the half and as many files that are
/// none.
void WriteReport(std::ostream &out, TCorpusHalf half, std::uint32_t images);

/// What was found in one image, beside the truth: true (+) and false ones (-) with score and
/// points.
void WriteFinds(std::ostream &out, const TTruthImage &image);
