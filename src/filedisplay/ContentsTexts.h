// What the bottom line says of the contents view's commands, in the user's language.
#pragma once

#include "filedisplay/MapSearch.h"
#include "model/MapSets.h"

#include <string>

/// "12 cells, first at $B2C6"; the other two likewise.
std::string FoundCells(const TFound &found);
std::string FoundPointers(const TFound &found);
std::string FoundMaps(const TFound &found);

/// What is marked in all. The counters outlive the marks, so they are not said to be marked.
std::string MarkedInAll(std::size_t cells, const TMapCounters &counters);

/// That no map starts at `offset`, and where the next try would be.
std::string NoMapAt(std::size_t offset, std::size_t next);

std::string NoCellIsSelected();
std::string NoImageIsLoaded();
std::string AllMarkersAreCleared();

/// As the menu calls one of the notebook's maps.
std::string MapName(TMapContents contents, TMapKind kind);

/// Which map of the notebook went to `address`; 0 moves none.
std::string MovedTo(TMapContents contents, TMapKind kind, std::int32_t address);
