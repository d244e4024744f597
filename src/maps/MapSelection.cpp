#include "maps/MapSelection.h"

#include "maps/MapCellNames.h"
#include "maps/Maps.h"
#include "model/Numbers.h"

#include <QCoreApplication>

namespace {
/// For the texts of this file.
struct TMapSelection {
    Q_DECLARE_TR_FUNCTIONS(TMapSelection)
};

/// The value of an axis at a column or row of the grid.
double PointAt(const TAxisData &axis, int place) {
    const TVal *point = axis.values->GetItem(place - 1, 0);
    return point ? point->GetValue() : 0;
}

/// The first of the cells that is no number, as the bottom line says it; empty when all are.
QString NoNumber(const TStringAlignGrid &grid, const TCellRange &range) {
    for (const auto &[column, row] : CellsIn(range)) {
        const QString text = grid.Cell(column, row);
        if (!TryParseReal(text.toStdString()))
            return TMapSelection::tr("Nothing is changed: '%1' is no number, at %2")
                .arg(text, MapCellPlace(grid, column, row));
    }
    return {};
}

/// The numbers of body cells, all of which hold one.
TNumberBlock BlockOf(const TMap &map, const TMapGrid &grid, const TCellRange &range) {
    TNumberBlock block;
    block.unit = UnitOf(map.GetCellFormat());
    for (int column = range.left; column <= range.right; ++column)
        block.rpm.push_back(PointAt(*map.axes->rpmAxis, column));
    for (int row = range.top; row <= range.bottom; ++row)
        block.load.push_back(PointAt(*map.axes->throttleAxis, row));
    for (const auto &[column, row] : CellsIn(range))
        block.values.push_back(ParseReal(grid.Cell(column, row)));
    return block;
}

/// The texts of the cells whose numbers have become others.
std::vector<TCellText> ChangedTexts(const TNumberBlock &before, const TNumberBlock &after,
                                    const TCellRange &range, const std::string &picture) {
    std::vector<TCellText> texts;
    std::size_t place = 0;
    for (const auto &[column, row] : CellsIn(range)) {
        const double number = after.values[place];
        const std::string text = FormatReal(picture, number);
        Round(number); // throws
        if (number != before.values[place] && TryParseReal(text) != before.values[place])
            texts.push_back({column, row, QString::fromStdString(text)});
        ++place;
    }
    return texts;
}
} // namespace

std::vector<TGridCell> CellsIn(const TCellRange &range) {
    std::vector<TGridCell> cells;
    for (int row = range.top; row <= range.bottom; ++row)
        for (int column = range.left; column <= range.right; ++column)
            cells.push_back({column, row});
    return cells;
}

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

void ChangeSelection(TfrmMaps &page, const QString &step, const TBlockChange &change) {
    const TMapKind kind = page.CurrentKind();
    const TMapPanel &panel = page.Panel(kind);
    const std::optional<TCellRange> cells = SelectedBody(page);
    if (!cells)
        return;
    if (const QString found = NoNumber(*panel.grid, *cells); !found.isEmpty())
        return page.Say(found);
    const TMap &map = page.Map(kind);
    const TNumberBlock before = BlockOf(map, panel.gridView, *cells);
    TNumberBlock after = before;
    if (const std::string problem = change(after); !problem.empty())
        return page.Say(QString::fromStdString(problem));
    const std::vector<TCellText> texts = ChangedTexts(before, after, *cells, map.GetCellFormat());
    if (texts.empty())
        return page.Say(TMapSelection::tr("No selected cell changes"));
    page.EnterTexts(kind, texts, step);
}
