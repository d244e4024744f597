// What a map page says of numbers that their bytes will not show again.
#include "maps/MapCellNames.h"
#include "maps/Maps.h"

QString TfrmMaps::CellNote(TMapKind kind, int column, int row, TNoteTime time) {
    const std::string text = Panel(kind).gridView.Cell(column, row);
    return QString::fromStdString(StoredNote(Map(kind), column, row, text, time));
}

QString TfrmMaps::StoredNotes(TMapKind kind, const std::vector<TGridCell> &cells, TNoteTime time) {
    QString first;
    int others = 0;
    for (const auto &[column, row] : cells) {
        const QString note = CellNote(kind, column, row, time);
        if (note.isEmpty())
            continue;
        if (!first.isEmpty())
            ++others;
        else if (cells.size() == 1)
            first = note;
        else
            first = MapCellPlace(*Panel(kind).grid, column, row) + ": " + note;
    }
    if (others == 0)
        return first;
    return others == 1 ? tr("%1; 1 more cell likewise").arg(first)
                       : tr("%1; %2 more cells likewise").arg(first, QString::number(others));
}

std::vector<TGridCell> TfrmMaps::EditedCells(TMapKind kind) {
    const TStringAlignGrid &grid = *Panel(kind).grid;
    std::vector<TGridCell> edited;
    for (int row = 1; row < grid.RowCount(); ++row)
        for (int column = 1; column < grid.ColCount(); ++column)
            if (grid.FontColor(column, row) == clBlue)
                edited.push_back({column, row});
    return edited;
}

void TfrmMaps::TellNotes(TMapPanel &row) {
    const TMapKind kind = row.traits.kind;
    row.grid->ShowCellHints = true;
    row.grid->OnShowHintCell = [this, kind](int column, int gridRow, QString &hint) {
        const QString note = CellNote(kind, column, gridRow);
        if (!note.isEmpty())
            hint = note;
    };
    row.grid->OnCellMeaning = [this, kind, mark = row.grid->OnCellMeaning](int column, int gridRow,
                                                                           QString &meaning) {
        mark(column, gridRow, meaning);
        meaning = WithNote(meaning, CellNote(kind, column, gridRow));
    };
}
