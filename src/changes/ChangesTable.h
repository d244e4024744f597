// The differences of two images as a table for other programs: comma-separated values, a line for
// each differing byte. For people there is ChangesReport.h, for applying them Patch.h.
#pragma once

#include "changes/MapChanges.h"

#include <string>

/// The whole file: a line of headers and a line for each byte, ended by CR and LF; UTF-8. A byte
/// that two maps share has a line for each. The words are the same in every language and the
/// numbers have a point, so that programs can rely on both.
///
/// @param changes  what ImageChanges says of the two images
std::string ChangesTable(const TImageChanges &changes, const TMappedImage &before,
                         const TMappedImage &after);
