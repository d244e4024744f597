// The search commands of the page "File Contents": their questions, and what they move and mark.
#include "filedisplay/FileDisplay.h"
#include "filedisplay/FileGrid.h"
#include "forms/Dialogs.h"
#include "forms/Hourglass.h"
#include "model/Numbers.h"

namespace {
std::optional<std::int32_t> NumberIn(const QString &text) {
    return TryParseInteger(text.toStdString());
}
} // namespace

void TfrmFileContents::Run(const TSearch &search) {
    const THourglass hourglass;
    std::vector<TColor> marked = colors_;
    search({values_, marked});
    const TGridUpdate update(*grdFile_);
    for (std::size_t i = 0; i < marked.size(); ++i)
        if (marked[i] != colors_[i]) {
            const TGridCell cell = CellAt(i);
            grdFile_->SetCellColor(cell.column, cell.row, marked[i]);
        }
    colors_.swap(marked);
}

void TfrmFileContents::ScanAll(const TSearch &search) {
    selected = {0, 0};
    Run(search);
}

void TfrmFileContents::EnterParamClick(std::int32_t TSearchParameters::*parameter,
                                       const QString &prompt) {
    std::int32_t &value = parameters.*parameter;
    const QString current = value == -1 ? QString("") : QString::number(value);
    const QString answer = Dialogs().InputBox(tr("Search Parameters"), prompt, current);
    value = NumberIn(answer).value_or(-1);
}

void TfrmFileContents::FindConsecutivePossFuelValsClick() {
    ScanAll([this](const TSearchGrid &grid) { MarkPossibleFuelValues(grid, parameters); });
}

void TfrmFileContents::FindConsecutivePossTimeValsClick() {
    ScanAll([this](const TSearchGrid &grid) { MarkPossibleTimingValues(grid, parameters); });
}

void TfrmFileContents::HighlightAValue1Click() {
    for (;;) {
        const QString answer =
            Dialogs().InputBox(tr("Find Value"), tr("Enter a value to search for"), "");
        if (answer.isEmpty())
            return;
        const std::optional<std::int32_t> value = NumberIn(answer);
        if (!value || *value < 0)
            continue; // asks again
        ScanAll([value](const TSearchGrid &grid) { MarkValue(grid, *value); });
        return;
    }
}

void TfrmFileContents::FindMapPointers1Click() {
    const QString caption = tr("Indirect Ref Lookup");
    const QString answer = Dialogs().InputBox(caption, tr("Enter Address To Find"), "");
    // The mask is asked for and kept even when there is no address; this is intended.
    const QString mask =
        Dialogs().InputBox(caption, tr("Mask Bits"), QString::number(parameters.pointerMask));
    parameters.pointerMask = static_cast<std::uint8_t>(NumberIn(mask).value_or(0));
    const std::optional<std::int32_t> number = NumberIn(answer);
    if (!number)
        return;
    const std::optional<TPointerAddress> address = SplitAddress(*number);
    if (!address) {
        Dialogs().ShowMessage(tr("Address out of range"));
        return;
    }
    ScanAll([this, &address](const TSearchGrid &grid) {
        MarkPointers(grid, *address, parameters.pointerMask);
    });
}

void TfrmFileContents::ClearAllMarkers1Click() {
    Run([this](const TSearchGrid &grid) { ClearAllMarkers(grid.colors, counters); });
}

void TfrmFileContents::HighlightFromSelected(TMapShape shape, TMapContents contents) {
    if (selected.column < 1 || selected.row < 1)
        return;
    Run([&](const TSearchGrid &grid) {
        selected = CellAt(HighlightMapAt(grid, CellOffset(selected.column, selected.row), shape,
                                         contents, parameters, counters)
                              .next);
    });
}

void TfrmFileContents::HighlightAll(TMapShape shape, TMapContents contents) {
    ScanAll([&](const TSearchGrid &grid) {
        HighlightAllMaps(grid, shape, contents, parameters, counters);
    });
}
