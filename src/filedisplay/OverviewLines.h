// Which colours the overview strip of the contents view shows (Overview.h), each of whose lines
// stands for many cells.
#pragma once

#include "filedisplay/Marks.h"

#include <vector>

/// The colours of one line from left to right, each of which has the same share of it; empty for a
/// line without a mark.
using TOverviewLine = std::vector<TColor>;

/// Shares the rows of cells evenly among `lines` lines, from the first row to the last. No kind of
/// mark hides another one, so that a single searched value is seen among possible values that lie
/// everywhere; only the axes of maps give way where a line has data of maps, which tell fuel from
/// timing. Marks are shown in their plain colours; data of maps of any values in the yellow of the
/// key window, since white would be none on white.
std::vector<TOverviewLine> OverviewLines(const TSeenColors &colors, std::size_t lines);
