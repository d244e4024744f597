// The editing of a map page: single cells, blocks of them, and the page's state for undo and redo.
#include "maps/Maps.h"
#include "model/Numbers.h"
#include "model/ROMImage.h"

#include <QSignalBlocker>

namespace {
/// What a cell of the grid says as a number; only the part throttle grid has load headers to edit.
double CellNumber(const TMapPanel &row, int column, int gridRow) {
    const std::string text = row.gridView.Cell(column, gridRow);
    const bool loadHeader = row.traits.kind == TMapKind::PT && column == 0;
    return ParseReal(loadHeader ? text.substr(0, text.find('%')) : text); // of "40%" the 40
}
/// `last` while it still holds for `thing`, else a state of its own.
template <class TState, class TThing>
std::shared_ptr<const TState> StateOf(const std::shared_ptr<const TState> &last,
                                      const TThing &thing) {
    return last && last->Matches(thing) ? last : std::make_shared<const TState>(thing);
}
} // namespace

void TfrmMaps::BeforeEdit(TMapKind kind, int column, int row) {
    EditOldValue = static_cast<long double>(CellNumber(Panel(kind), column, row));
}

void TfrmMaps::AfterEdit(TMapKind kind, int column, int row) {
    history.Run(tr("typing %1").arg(Panel(kind).grid->Cell(column, row)), [&] {
        MarkEdited(kind, column, row);
        RedrawMapChart(kind);
    });
    Say(StoredNotes(kind, {{column, row}}));
}

void TfrmMaps::MarkEdited(TMapKind kind, int column, int row) {
    TMapPanel &panel = Panel(kind);
    CellNumber(panel, column, row); // a text that is no number stays as typed, unmarked
    panel.gridView.SetFontColor(column, row, clBlue);
    Changed(kind) = true;
}

void TfrmMaps::EnterTexts(TMapKind kind, const std::vector<TCellText> &texts, const QString &step) {
    TStringAlignGrid &grid = *Panel(kind).grid;
    grid.CloseEditor();
    std::vector<TGridCell> entered;
    history.Run(step, [&] {
        const TGridUpdate update(grid);
        for (const TCellText &cell : texts) {
            grid.SetCell(cell.column, cell.row, cell.text);
            MarkEdited(kind, cell.column, cell.row);
            entered.push_back({cell.column, cell.row});
        }
        RedrawMapChart(kind);
    });
    Say(StoredNotes(kind, entered));
}

TMapPageState TfrmMaps::State(const TMapPageState &last) {
    TMapPageState now;
    for (const TMapKind kind : allMapKinds) {
        const auto place = static_cast<std::size_t>(kind);
        now.rows[place] = {StateOf(last.rows[place].grid, *Panel(kind).grid),
                           StateOf(last.rows[place].map, Map(kind)), Changed(kind)};
    }
    now.rev = RevState();
    now.showConverted = MapSet->showConverted;
    now.dataChanged = DataChanged;
    now.imageModified = ROMImage() && ROMImage()->modified;
    return now;
}

void TfrmMaps::Restore(const TMapPageState &state) {
    CloseEditors();
    const QSignalBlocker silent(InterpretBox());
    InterpretBox().setChecked(state.showConverted);
    MapSet->showConverted = state.showConverted;
    for (const TMapKind kind : allMapKinds) {
        const TMapPageState::TRow &row = state.rows[static_cast<std::size_t>(kind)];
        TMapPanel &panel = Panel(kind);
        if (!row.map->Matches(Map(kind)))
            row.map->Restore(Map(kind));
        if (!row.grid->Matches(*panel.grid)) {
            row.grid->Restore(panel.gridView, *panel.grid);
            RedrawMapChart(kind);
        }
        Changed(kind) = row.changed;
    }
    SetRevState(state.rev);
    DataChanged = state.dataChanged;
    if (TROMImage *image = ROMImage())
        image->modified = state.imageModified;
}
