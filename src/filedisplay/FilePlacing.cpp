// What the page "File Contents" does with found maps: it moves a map of the workspace to a cell,
// opens pages for all that is highlighted, and charts the map at a cell.
#include "filedisplay/AddedMapPage.h"
#include "filedisplay/FileDisplay.h"
#include "filedisplay/FileGrid.h"
#include "forms/Hourglass.h"
#include "forms/KelvaneNotebook.h"
#include "forms/PageControl.h"
#include "maps/FuelMaps.h"
#include "maps/QuickChart.h"
#include "maps/TimingMaps.h"

#include <algorithm>
#include <array>

namespace {
constexpr int rowDigits = 3; // of a row's address that count

std::unique_ptr<TfrmMaps> MakePage(TMapContents contents, TWorkspace &workspace) {
    if (contents == TMapContents::Fuel)
        return std::make_unique<TAddedMapPage<TfrmFuelMaps, TFuelMapSet>>(workspace);
    return std::make_unique<TAddedMapPage<TfrmTimingMaps, TTimingMapSet>>(workspace);
}

/// Of the map's tab; "%1" is its address of four digits.
QString CaptionOf(const TMapStart &start) {
    if (start.contents == TMapContents::Fuel)
        return start.shape == TMapShape::TwoD ? TfrmFileContents::tr("2-D Fuel Map at $%1")
                                              : TfrmFileContents::tr("1-D Fuel Map at $%1");
    return start.shape == TMapShape::TwoD ? TfrmFileContents::tr("2-D Timing Map at $%1")
                                          : TfrmFileContents::tr("1-D Timing Map at $%1");
}

TMapKind KindOf(TMapShape shape) {
    return shape == TMapShape::TwoD ? TMapKind::PT : TMapKind::WOT;
}

/// Whether an added page shows the map of that kind at `address` already.
bool IsShown(const TfrmKelvaneNotebook &host, TMapKind kind, std::int32_t address) {
    const auto &pages = host.AddedPages();
    return std::any_of(pages.begin(), pages.end(), [&](const TEmbeddedForm *page) {
        return dynamic_cast<const TfrmMaps &>(*page).MapSet->Map(kind).GetLocation() == address;
    });
}
} // namespace

std::int32_t TfrmFileContents::AddressOf(TGridCell cell) const {
    const QString digits =
        grdFile_->Cell(0, cell.row).left(rowDigits) + grdFile_->Cell(cell.column, 0);
    return digits.toInt(nullptr, 16);
}

void TfrmFileContents::UpdateNotebookMap(TMapSet &set, TMapKind kind) {
    if (values_.empty())
        return; // there is no cell
    std::array offsets{set.PTMap->GetLocation(), set.IdleMap->GetLocation(),
                       set.WOTMap->GetLocation()};
    offsets[static_cast<std::size_t>(kind)] = AddressOf({grdFile_->Col(), grdFile_->Row()});
    set.SetOffsets(offsets[0], offsets[1], offsets[2]);
}

void TfrmFileContents::AllHighlighted1Click() {
    const TfrmKelvaneNotebook *host = Notebook();
    if (!host)
        return;
    const THourglass hourglass;
    for (std::size_t i = 0; i < colors_.size(); ++i) {
        const TMapStart *start = MapStartOf(colors_[i]);
        if (!start)
            continue;
        const std::int32_t address = AddressOf(CellAt(i));
        if (!IsShown(*host, KindOf(start->shape), address))
            AddMapPage(*start, address);
    }
}

void TfrmFileContents::AddMapPage(const TMapStart &start, std::int32_t address) {
    const bool linear = start.shape == TMapShape::Linear;
    const QString digits = QString("%1").arg(address, 4, 16, QChar('0')).toUpper();
    const QString caption = CaptionOf(start).arg(digits);
    std::unique_ptr<TfrmMaps> page = MakePage(start.contents, workspace_);
    page->setObjectName(page->objectName() + "_" + digits);
    // A linear map is placed at the current cell, not at the one found; this is intended.
    page->MapSet->Map(KindOf(start.shape))
        .SetOffset(linear ? AddressOf({grdFile_->Col(), grdFile_->Row()}) : address);
    page->ShowOnly(KindOf(start.shape));
    const int tab = Notebook()->AddExtraPage(
        std::move(page), "tabMap_" + digits,
        start.contents == TMapContents::Fuel ? tr("map at $%1").arg(digits) : caption);
    Notebook()->PageControl1->setTabText(tab, caption);
}

void TfrmFileContents::QuickMap(TMapShape shape, bool throughPointer) {
    if (selected.column < 1 || selected.row < 1)
        return;
    const auto offset = static_cast<std::int32_t>(CellOffset(selected.column, selected.row));
    auto *chart = new TfrmQuickChart(window()); // frees itself when it is closed
    chart->SetMapKind(shape == TMapShape::TwoD ? 2 : 1);
    if (throughPointer)
        chart->SetMapPointer(offset, parameters.pointerMask);
    else
        chart->SetMapOffset(offset);
    chart->show();
}
