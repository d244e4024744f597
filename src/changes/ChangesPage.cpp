#include "changes/ChangesPage.h"

#include "model/ROMImage.h"

#include <algorithm>

#include <QPushButton>

namespace {
/// All bytes of a map: its axes and, directly behind them, its body.
TByteRun RunOf(const TMap &map) {
    const TMapData &body = *map.data;
    return {static_cast<std::uint32_t>(map.axes->offset),
            static_cast<std::uint32_t>(map.axes->length + body.rows * body.columns)};
}
} // namespace

TfrmChanges::TfrmChanges(QWidget *parent, TWorkspace &sharedWorkspace)
    : TfrmDifferences(parent, sharedWorkspace),
      edits_(*this, sharedWorkspace),
      btnPutBackCells_(AddButton("btnPutBackCells", tr("Put Back &Cells"),
                                 tr("Give the selected cells their values of the file again"),
                                 [this] { btnPutBackCellsClick(); })),
      btnPutBack_(AddButton("btnPutBack", tr("Put &Back All"),
                            tr("Give all that is chosen in the list its bytes of the file again"),
                            [this] { btnPutBackClick(); })) {
    setObjectName("frmChanges");
    edits_.OnStep = [this] { Compare(); };
}

void TfrmChanges::ShowPage() {
    edits_.Begin();
    TfrmDifferences::ShowPage();
}

TMappedImage TfrmChanges::There() {
    TMappedImage file(ROMImage()->FileBytes());
    file.PlaceAs(workspace);
    return file;
}

void TfrmChanges::UpdateButtons() {
    btnPutBackCells_->setEnabled(Shown() && !View().SelectedCells().empty());
    btnPutBack_->setEnabled(Shown() && View().Chosen() != TDifferencesView::TKind::None);
}

void TfrmChanges::btnPutBackCellsClick() {
    edits_.Run(tr("Put Back Cells"), [this](std::span<std::uint8_t> image) {
        for (const TCellChange &cell : View().SelectedCells())
            image[cell.byte.offsetAfter] = cell.byte.before;
    });
}

void TfrmChanges::btnPutBackClick() {
    edits_.Run(tr("Put Back All"), [this](std::span<std::uint8_t> image) {
        const auto file = ROMImage()->FileBytes();
        for (const auto &[offset, length] : ChosenRuns()) {
            const std::size_t end = std::min<std::size_t>(offset + length, file.size());
            for (std::size_t i = offset; i < end; ++i)
                image[i] = file[i];
        }
    });
}

std::vector<TByteRun> TfrmChanges::ChosenRuns() {
    switch (View().Chosen()) {
    case TDifferencesView::TKind::Map: {
        // Each as long as it is there: its shape may be another one in the file.
        const TMapId map = View().ChosenMap().map;
        return {RunOf(MapOf(Shown()->here.Maps(), map)), RunOf(MapOf(Shown()->there.Maps(), map))};
    }
    case TDifferencesView::TKind::RevLimiter:
        return {{Shown()->changes.revLimiter->offsetAfter, 1}};
    case TDifferencesView::TKind::Elsewhere:
        return Shown()->changes.elsewhere;
    default:
        return {};
    }
}
