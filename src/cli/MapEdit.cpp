#include "cli/MapEdit.h"

#include "cli/CellNames.h"
#include "cli/WrongUse.h"
#include "maps/StoredValue.h"
#include "model/Numbers.h"

#include <cstdlib>

void CheckEntry(const std::string &place, const TVal &value, const std::string &picture,
                const std::string &text, TNotes &notes) {
    const std::optional<double> number = TryParseReal(text);
    if (!number)
        throw EWrongUse(place + ": '" + text + "' is no number");
    if (!CanBeStored(value, *number))
        throw EWrongUse(place + ": " + text + " cannot be stored");
    const std::string note = StoredNote(value, picture, text, TNoteTime::After);
    if (!note.empty())
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
    Check(column, row, text);
    grid_.SetCell(column, row, text);
    grid_.SetFontColor(column, row, clBlue);
}

void TMapEdit::AddPercent(const TCellRange &cells, int percent) {
    AdjustCells(grid_, cells, {percent < 0 ? -1 : 1, true, std::abs(percent)},
                map_.GetCellFormat());
    for (int row = cells.top; row <= cells.bottom; ++row)
        for (int column = cells.left; column <= cells.right; ++column)
            Check(column, row, grid_.Cell(column, row));
}

void TMapEdit::Commit() {
    map_.ReadGrid(grid_);
    map_.Save();
}

const TVal &TMapEdit::ValueAt(int column, int row) const {
    const TVal *value = nullptr;
    if (row == 0)
        value = map_.axes->rpmAxis->values->GetItem(column - 1, 0);
    else if (column > 0)
        value = map_.data->values->GetItem(column - 1, row - 1);
    else if (map_.axisCount > 1)
        value = map_.axes->throttleAxis->values->GetItem(row - 1, 0);
    if (!value)
        throw EWrongUse(CellName(id_, map_, column, row) + ": it has no byte in the image");
    return *value;
}

void TMapEdit::Check(int column, int row, const std::string &text) {
    const std::string picture = row == 0 || column == 0 ? axisPicture : map_.GetCellFormat();
    CheckEntry(CellName(id_, map_, column, row), ValueAt(column, row), picture, text, notes_);
}
