#include "cli/MapEdit.h"

#include "cli/CellNames.h"
#include "cli/GridValues.h"
#include "cli/WrongUse.h"
#include "maps/BlockCells.h"
#include "maps/StoredValue.h"
#include "model/Numbers.h"

#include <algorithm>

void NeedStorable(const std::string &place, const TVal &value, const std::string &text) {
    const std::optional<double> number = TryParseReal(text);
    if (!number)
        throw EWrongUse(place + ": '" + text + "' is no number");
    if (!CanBeStored(value, *number))
        throw EWrongUse(place + ": " + text + " cannot be stored");
}

void CheckEntry(const std::string &place, const TVal &value, const std::string &picture,
                const std::string &text, TNotes &notes) {
    NeedStorable(place, value, text);
    const std::string note = StoredNote(value, picture, text, TNoteTime::After);
    const std::int32_t count = *CountOf(value, text);
    if (note.empty() || StandsFor(value, picture, LowByte(count), text))
        return;
    if (count == LowByte(count))
        notes.AddRounding(place + ": " + note);
    else
        notes.Add(place + ": " + note);
}

void TMarkedGrid::SetShape(int columns, int rows) {
    TTextGrid::SetShape(columns, rows);
    colors_.assign(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows),
                   clWindowText);
}

TColor TMarkedGrid::FontColor(int column, int row) const {
    return colors_[static_cast<std::size_t>(row * ColCount() + column)];
}

void TMarkedGrid::SetFontColor(int column, int row, TColor color) {
    colors_[static_cast<std::size_t>(row * ColCount() + column)] = color;
}

TMapEdit::TMapEdit(TMapId id, TMap &map, TNotes &notes) : id_(id), map_(map), notes_(notes) {
    std::string label;
    map.SizeGrid(grid_);
    map.FillGrid(grid_, label, map.GetCellFormat(), TMap::rpmLimit, TMap::rpmLimit);
}

void TMapEdit::Enter(int column, int row, const std::string &text) {
    NeedStorable(Place(column, row), ValueOf(column, row), text);
    grid_.SetCell(column, row, text);
    grid_.SetFontColor(column, row, clBlue);
}

void TMapEdit::AddPercent(const TCellRange &cells, int percent) {
    AdjustCells(grid_, cells, {1, true, percent}, map_.GetCellFormat());
    for (const auto &[column, row] : CellsIn(cells)) {
        if (grid_.FontColor(column, row) == clRed)
            throw EWrongUse(Place(column, row) + ": the change of " + grid_.Cell(column, row) +
                            " is out of range");
        NeedStorable(Place(column, row), ValueOf(column, row), grid_.Cell(column, row));
    }
}

void TMapEdit::Commit() {
    const int right = grid_.ColCount() - 1;
    const int bottom = grid_.RowCount() - 1;
    NoteCells({1, 1, right, bottom}); // by the axes that are in the image
    const TMarkedGrid entered = grid_;
    map_.ReadGrid(grid_);
    map_.Save();
    NoteAxis(*map_.axes->rpmAxis, TRPMAxisData(), {1, 0, right, 0}, entered);
    if (map_.axisCount > 1)
        NoteAxis(*map_.axes->throttleAxis, TThrAxisData(), {0, 1, 0, bottom}, entered);
}

std::string TMapEdit::Place(int column, int row) const {
    return CellName(id_, map_, column, row);
}

const TVal &TMapEdit::ValueOf(int column, int row) const {
    const bool stored = column > 0 || map_.axisCount > 1;
    const TVal *value = stored ? ValueAt(map_, column, row) : nullptr;
    if (!value)
        throw EWrongUse(Place(column, row) + ": it has no byte in the image");
    return *value;
}

void TMapEdit::NoteCells(const TCellRange &cells) {
    for (const auto &[column, row] : CellsIn(cells))
        if (grid_.FontColor(column, row) == clBlue)
            CheckEntry(Place(column, row), ValueOf(column, row), PictureAt(map_, column, row),
                       grid_.Cell(column, row), notes_);
}

void TMapEdit::NoteAxis(const TAxisData &axis, TAxisData &&stored, const TCellRange &headers,
                        const TMarkedGrid &entered) {
    const std::vector<TGridCell> cells = CellsIn(headers);
    const auto isEntered = [&](const TGridCell &cell) {
        return entered.FontColor(cell.column, cell.row) == clBlue;
    };
    if (std::none_of(cells.begin(), cells.end(), isEntered))
        return;
    // Only bytes between neighbours are stored: what all points have become is known once they are
    // read again.
    stored.LoadAxis(axis.offset);
    for (const TGridCell &cell : cells) {
        const TVal &own = ValueOf(cell.column, cell.row);
        const std::string wanted = isEntered(cell)
                                       ? WithoutPercent(entered.Cell(cell.column, cell.row))
                                       : EntryFor(own, axisPicture, own.raw);
        const TVal &point = *stored.values->GetItem(std::max(cell.column, cell.row) - 1, 0);
        if (!StandsFor(point, axisPicture, point.raw, wanted))
            notes_.Add(Place(cell.column, cell.row) + ": " + wanted + " was stored as " +
                       FormatReal(axisPicture, point.GetValue()));
    }
}
