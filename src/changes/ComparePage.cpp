#include "changes/ComparePage.h"

#include "forms/Guard.h"
#include "forms/KelvaneNotebook.h"
#include "forms/PageControl.h"
#include "maps/FuelMaps.h"
#include "maps/MapTakeOver.h"
#include "model/Numbers.h"

#include <QComboBox>
#include <QPushButton>

namespace {
std::vector<TStoredCell> BytesThere(const std::vector<TCellChange> &cells) {
    std::vector<TStoredCell> bytes;
    for (const auto &[rpmPoint, loadPoint, byte] : cells)
        bytes.push_back({rpmPoint, loadPoint, byte.before});
    return bytes;
}

bool BothHave(const TMapChanges &map) {
    return map.match != TMatch::OnlyAfter && map.match != TMatch::OnlyBefore;
}
} // namespace

TfrmCompare::TfrmCompare(QWidget *parent, TWorkspace &sharedWorkspace)
    : TfrmDifferences(parent, sharedWorkspace),
      line_(new TOtherImageLine(
          this,
          {.choose = tr("&Other Image..."),
           .chooseHint = tr("Choose the image file to compare with"),
           .specsHint = tr("Where the maps of the other image are: as here, or by a spec file"),
           .noSpec = tr("where they are in this image")})) {
    setObjectName("frmCompare");
    line_->OnChange = [this] { Compare(); };
    ConnectGuarded(line_->Button(), &QPushButton::clicked, this, [this] { btnOtherClick(); });
    AddOnTop(line_, line_->Button(), line_->Specs());
    btnTakeCells_ = AddButton("btnTakeCells", tr("Take Over &Cells"),
                              tr("Enter the values there into the selected cells of the map page"),
                              [this] { btnTakeCellsClick(); });
    btnTakeAll_ = AddButton("btnTakeAll", tr("&Take Over All"),
                            tr("Enter all that is chosen in the list into the map page"),
                            [this] { btnTakeAllClick(); });
}

void TfrmCompare::btnOtherClick() {
    line_->Ask(workspace.romFileName);
}

TMappedImage TfrmCompare::There() {
    return line_->Other()->Mapped(workspace, line_->Spec());
}

void TfrmCompare::UpdateButtons() {
    using TKind = TDifferencesView::TKind;
    const TKind chosen = Shown() ? View().Chosen() : TKind::None;
    btnTakeCells_->setEnabled(chosen == TKind::Map && !View().SelectedCells().empty());
    btnTakeAll_->setEnabled(chosen == TKind::RevLimiter ||
                            (chosen == TKind::Map && BothHave(View().ChosenMap())));
}

TfrmMaps *TfrmCompare::GoToMaps(TMapSetKind set) {
    const TMapSet *maps = set == TMapSetKind::Fuel ? static_cast<TMapSet *>(&workspace.fuelMapSet)
                                                   : &workspace.timingMapSet;
    TfrmKelvaneNotebook &host = *Notebook();
    for (int tab = 0; tab < host.PageCount(); ++tab) {
        auto *page = dynamic_cast<TfrmMaps *>(host.GetPage(tab));
        if (!page || page->MapSet != maps || !page->ShowsGrids())
            continue;
        host.PageControl1->SelectByUser(tab);
        return host.CurrentPage() == page ? page : nullptr;
    }
    return nullptr;
}

void TfrmCompare::btnTakeCellsClick() {
    const TMapId map = View().ChosenMap().map;
    const std::vector<TStoredCell> cells = BytesThere(View().SelectedCells());
    if (TfrmMaps *page = GoToMaps(map.set))
        TakeOverCells(*page, map.kind, cells);
}

void TfrmCompare::btnTakeAllClick() {
    if (View().Chosen() == TDifferencesView::TKind::RevLimiter) {
        const double rpm = Shown()->there.Maps().fuelMapSet.revLimiter.GetConverted();
        if (auto *page = dynamic_cast<TfrmFuelMaps *>(GoToMaps(TMapSetKind::Fuel)))
            page->EnterRevLimiter(Round(rpm));
        return;
    }
    const TMapChanges map = View().ChosenMap();
    if (TfrmMaps *page = GoToMaps(map.map.set))
        TakeOverMap(*page, map.map.kind, MapOf(Shown()->there.Maps(), map.map),
                    BytesThere(map.cells));
}
