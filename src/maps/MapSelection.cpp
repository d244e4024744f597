#include "maps/MapSelection.h"

#include "maps/MapCellNames.h"
#include "maps/Maps.h"

#include <QCoreApplication>

namespace {
/// For the texts of this file.
struct TMapSelection {
    Q_DECLARE_TR_FUNCTIONS(TMapSelection)
};

/// The first of the cells that is no number, as the bottom line says it; empty when all are.
QString NoNumber(const TMapPanel &panel, const TCellRange &range) {
    const std::optional<TGridCell> cell = FirstNoNumber(panel.gridView, range);
    if (!cell)
        return {};
    return TMapSelection::tr("Nothing is changed: '%1' is no number, at %2")
        .arg(panel.grid->Cell(cell->column, cell->row),
             MapCellPlace(*panel.grid, cell->column, cell->row));
}
} // namespace

TCellRange SelectedCells(const TStringAlignGrid &grid) {
    const TGridRect selection = grid.Selection();
    return {selection.left, selection.top, selection.right, selection.bottom};
}

std::optional<TCellRange> SelectedBody(TfrmMaps &page) {
    TStringAlignGrid &grid = *page.Panel(page.CurrentKind()).grid;
    grid.CloseEditor();
    const TCellRange cells = SelectedCells(grid);
    if (cells.left > 0 && cells.top > 0)
        return cells;
    page.Say(TMapSelection::tr("Nothing is changed: headers are selected too"));
    return std::nullopt;
}

std::vector<TCellText> CellTexts(const std::vector<TCellEntry> &entries) {
    std::vector<TCellText> texts;
    for (const TCellEntry &entry : entries)
        texts.push_back({entry.column, entry.row, QString::fromStdString(entry.text)});
    return texts;
}

void ChangeSelection(TfrmMaps &page, const QString &step, const TBlockChange &change) {
    const TMapKind kind = page.CurrentKind();
    const TMapPanel &panel = page.Panel(kind);
    const std::optional<TCellRange> cells = SelectedBody(page);
    if (!cells)
        return;
    if (const QString found = NoNumber(panel, *cells); !found.isEmpty())
        return page.Say(found);
    const TBlockEntries changed = ChangedCells(page.Map(kind), panel.gridView, *cells, change);
    if (!changed.problem.empty())
        return page.Say(QString::fromStdString(changed.problem));
    if (changed.entries.empty())
        return page.Say(TMapSelection::tr("No selected cell changes"));
    page.EnterTexts(kind, CellTexts(changed.entries), step);
}
