#include "maps/MapClipboard.h"

#include "forms/Dialogs.h"
#include "maps/CellTable.h"
#include "maps/MapSelection.h"
#include "maps/Maps.h"

#include <algorithm>

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>

void CopyCells(TfrmMaps &page, bool withHeaders) {
    const TMapPanel &panel = page.Panel(page.CurrentKind());
    TCellRange cells = SelectedCells(*panel.grid);
    if (withHeaders) { // unlocked ones that are selected stand there anyway
        cells.left = std::max(cells.left, 1);
        cells.top = std::max(cells.top, 1);
    }
    const std::string text = TableText(panel.gridView, cells, withHeaders);
    QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}

void PasteCells(TfrmMaps &page) {
    const std::optional<TCellRange> cells = SelectedBody(page);
    if (!cells)
        return;
    const TMapKind kind = page.CurrentKind();
    const TPasting pasting = PastingOf(QGuiApplication::clipboard()->text().toStdString(),
                                       page.Panel(kind).gridView, cells->left, cells->top);
    if (!pasting.problem.empty())
        return Dialogs().ShowMessage(QString::fromStdString(pasting.problem));
    page.EnterTexts(kind, CellTexts(pasting.entries),
                    QCoreApplication::translate("MapClipboard", "Paste"));
}
