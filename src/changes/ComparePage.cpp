#include "changes/ComparePage.h"

#include "forms/Dialogs.h"
#include "forms/ElidedLabel.h"
#include "forms/Guard.h"
#include "forms/Hint.h"
#include "forms/KelvaneNotebook.h"
#include "forms/Named.h"
#include "forms/PageControl.h"
#include "forms/Paths.h"
#include "maps/FuelMaps.h"
#include "maps/MapTakeOver.h"
#include "model/Numbers.h"

#include <utility>

#include <QComboBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>

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
    : TfrmDifferences(parent, sharedWorkspace), cboSpec_(Named("cboSpec", new QComboBox(this))) {
    setObjectName("frmCompare");
    MakeOtherLine();
    btnTakeCells_ = AddButton("btnTakeCells", tr("Take Over &Cells"),
                              tr("Enter the values there into the selected cells of the map page"),
                              [this] { btnTakeCellsClick(); });
    btnTakeAll_ = AddButton("btnTakeAll", tr("&Take Over All"),
                            tr("Enter all that is chosen in the list into the map page"),
                            [this] { btnTakeAllClick(); });
    FillSpecs();
}

void TfrmCompare::MakeOtherLine() {
    auto *line = new QWidget(this);
    auto *btnOther = Named("btnOther", new QPushButton(tr("&Other Image..."), line));
    SetHint(btnOther, tr("Choose the image file to compare with"));
    ConnectGuarded(btnOther, &QPushButton::clicked, this, [this] { btnOtherClick(); });
    auto *label = new QLabel(tr("&Its maps"), line);
    label->setBuddy(cboSpec_);
    SetHint(cboSpec_, tr("Where the maps of the other image are: as here, or by a spec file"));
    ConnectGuarded(cboSpec_, &QComboBox::currentIndexChanged, this, [this] { cboSpecChange(); });
    auto *row = new QHBoxLayout(line);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(btnOther);
    row->addStretch(1);
    row->addWidget(label);
    row->addWidget(cboSpec_, 2);
    AddOnTop(line, btnOther, cboSpec_);
}

void TfrmCompare::FillSpecs() {
    const QSignalBlocker silent(cboSpec_);
    cboSpec_->clear();
    cboSpec_->addItem(tr("where they are in this image"));
    if (other_)
        for (const auto &[label, path] : other_->Specs())
            cboSpec_->addItem(
                tr("%1 (%2)").arg(QString::fromStdString(label), FromPath(path.filename())));
}

void TfrmCompare::CompareWith(TOtherImage other) {
    other_ = std::move(other);
    FillSpecs();
    Compare();
}

void TfrmCompare::btnOtherClick() {
    const QString chosen = Dialogs().OpenFile(tr("Binary Data (*.BIN)|*.BIN"),
                                              QFileInfo(FromPath(workspace.romFileName)).path());
    if (!chosen.isEmpty())
        CompareWith(TOtherImage(ToPath(chosen)));
}

void TfrmCompare::cboSpecChange() {
    Compare();
}

TMappedImage TfrmCompare::There() {
    const int spec = cboSpec_->currentIndex() - 1;
    return other_->Mapped(workspace,
                          spec < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(spec)));
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
