#include "maps/MapCellNames.h"

#include "forms/Aligrid.h"

#include <QCoreApplication>

QString MapCellPlace(const TStringAlignGrid &grid, int column, int row) {
    if (column == 0 && row == 0)
        return QCoreApplication::translate("MapCellNames", "Corner");
    if (row == 0)
        return QCoreApplication::translate("MapCellNames", "RPM point %1").arg(column);
    if (column == 0)
        return QCoreApplication::translate("MapCellNames", "Load point %1").arg(row);
    return QCoreApplication::translate("MapCellNames", "%1 RPM, %2")
        .arg(grid.Cell(column, 0), grid.Cell(0, row));
}

QString MarkMeaning(TColor fontColor) {
    switch (fontColor) {
    case clBlue:
        return QCoreApplication::translate("MapCellNames", "edited, waiting for Commit");
    case clRed:
        return QCoreApplication::translate("MapCellNames", "no number, left out by the bulk tool");
    case clGreen:
        return QCoreApplication::translate("MapCellNames", "written into the map");
    default:
        return {};
    }
}

QString WithNote(const QString &mark, const QString &note) {
    return mark.isEmpty() || note.isEmpty() ? mark + note : mark + "; " + note;
}

void NameMapCells(TStringAlignGrid &grid) {
    grid.OnCellPlace = [&grid](int column, int row, QString &place) {
        place = MapCellPlace(grid, column, row);
    };
    grid.OnCellMeaning = [&grid](int column, int row, QString &meaning) {
        meaning = MarkMeaning(grid.FontColor(column, row));
    };
}
