// Values of another image come into a map page as edits: blue, waiting for "Commit", one step back
// with "Undo".
#pragma once

#include "model/MapSets.h"

#include <cstdint>
#include <vector>

#include <QString>

class TfrmMaps;

/// The byte that a cell of a map's body is to become.
struct TStoredCell {
    std::int32_t rpmPoint;  ///< from 0
    std::int32_t loadPoint; ///< from 0
    std::uint8_t byte;
};

/// Enters the bytes into the page's map of `kind`, in the units that it shows; a message where no
/// number gives them, which leaves those cells.
void TakeOverCells(TfrmMaps &page, TMapKind kind, const std::vector<TStoredCell> &cells);

/// The same of the cells that differ, behind a "Paste Map" of the whole `map`, whose axes come with
/// it; a message when the numbers of points differ, and then nothing is taken over.
void TakeOverMap(TfrmMaps &page, TMapKind kind, const TMap &map,
                 const std::vector<TStoredCell> &cells);
