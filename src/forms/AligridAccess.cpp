// What the grid tells screen readers of its cells: where each is, its text, what its colours mean.
#include "forms/Aligrid.h"
#include "forms/AligridEvents.h"

QString TStringAlignGrid::CellPlace(TGridCell cell) const {
    QStringList headers;
    if (cell.column >= FixedCols() && cell.row >= FixedRows()) {
        if (FixedRows() > 0)
            headers << Cell(cell.column, 0);
        if (FixedCols() > 0)
            headers << Cell(0, cell.row);
        headers.removeAll(QString());
    }
    QString place = headers.join(", ");
    Fire(OnCellPlace, cell.column, cell.row, place);
    return place;
}

QString TStringAlignGrid::CellName(TGridCell cell) const {
    const QString place = CellPlace(cell);
    QString text = Cell(cell.column, cell.row);
    if (text.isEmpty())
        text = tr("empty");
    return place.isEmpty() ? text : place + ": " + text;
}

QString TStringAlignGrid::CellMeaning(TGridCell cell) const {
    QString meaning;
    Fire(OnCellMeaning, cell.column, cell.row, meaning);
    return meaning;
}
