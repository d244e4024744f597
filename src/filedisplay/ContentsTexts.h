// What the bottom line says of the contents view's commands, in the user's language.
#pragma once

#include "filedisplay/MapSearch.h"
#include "filedisplay/NextMark.h"
#include "model/MapSets.h"

#include <string>

/// "$" and two digits.
std::string HexByte(TCellValue value);

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

/// What stands at `offset`: a byte, or -1 behind the last one, and what its mark means, if it has
/// one.
std::string CellText(std::size_t offset, TCellValue value, const std::string &meaning);

/// That the way to the cell of which `cell` tells led past an end of the image.
std::string WentRound(TWay way, const std::string &cell);
std::string NoCellIsMarked();

/// What is wrong with a typed offset: no number, or not in an image of `size` bytes.
std::string NoOffset(const std::string &text);
std::string OutsideTheImage(const std::string &text, std::size_t size);

std::string NothingIsChangedHere();

/// As the menu calls one of the notebook's maps.
std::string MapName(TMapContents contents, TMapKind kind);

/// Which map of the notebook went to `address`; 0 moves none.
std::string MovedTo(TMapContents contents, TMapKind kind, std::int32_t address);
