// Changing a map as its page does: numbers are entered into its grid as texts and committed.
#pragma once

#include "changes/MapChanges.h"
#include "changes/TextGrid.h"
#include "cli/Notes.h"
#include "maps/BulkAdjust.h"

#include <string>
#include <vector>

/// Throws EWrongUse, which begins with `place`, when `text` is no number or none that `value` can
/// store.
void NeedStorable(const std::string &place, const TVal &value, const std::string &text);

/// As NeedStorable; a note says what of the text does not become a byte exactly. The number that
/// "export" writes for a byte is exact, with however many digits.
void CheckEntry(const std::string &place, const TVal &value, const std::string &picture,
                const std::string &text, TNotes &notes);

/// A grid of texts that keeps the colours by which edits are told.
class TMarkedGrid : public TTextGrid {
public:
    void SetShape(int columns, int rows) override;
    TColor FontColor(int column, int row) const override;
    void SetFontColor(int column, int row, TColor color) override;

private:
    std::vector<TColor> colors_;
};

/// Lives while the map's image is in force; see TMappedImage::Change.
class TMapEdit {
public:
    TMapEdit(TMapId id, TMap &map, TNotes &notes);

    /// As it shows the map with what was entered.
    const IMapGrid &Grid() const { return grid_; }

    /// Enters a number into a cell or a header, as NeedStorable takes it. Throws EWrongUse for the
    /// one header that is in no image too, the load of a map with one axis.
    void Enter(int column, int row, const std::string &text);

    /// Adds percent of each cell, as the bulk tool does. Throws EWrongUse for a cell that becomes
    /// no number that can be stored.
    void AddPercent(const TCellRange &cells, int percent);

    /// Writes what was entered into the image; notes say what of it is not stored exactly.
    void Commit();

private:
    std::string Place(int column, int row) const;
    const TVal &ValueOf(int column, int row) const;
    /// Of those of the cells that are marked as entered.
    void NoteCells(const TCellRange &cells);
    /// Of all its points, if any was entered.
    void NoteAxis(const TAxisData &axis, TAxisData &&stored, const TCellRange &headers,
                  const TMarkedGrid &entered);

    TMapId id_;
    TMap &map_;
    TNotes &notes_;
    TMarkedGrid grid_;
};
