// What the page "File Contents" does with found maps: it moves a map of the workspace to a cell,
// opens pages for all that is highlighted, and charts the map at a cell.
#include "filedisplay/AddedMapPage.h"
#include "filedisplay/ContentsTexts.h"
#include "filedisplay/FileDisplay.h"
#include "filedisplay/FileGrid.h"
#include "forms/Hourglass.h"
#include "forms/KelvaneNotebook.h"
#include "forms/PageControl.h"
#include "maps/FuelMaps.h"
#include "maps/QuickChart.h"
#include "maps/TimingMaps.h"

#include <array>

namespace {
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

TShownMaps MapsShownBy(const TfrmKelvaneNotebook &host) {
    TShownMaps shown;
    for (const TEmbeddedForm *page : host.AddedPages()) {
        const TMapSet &set = *dynamic_cast<const TfrmMaps &>(*page).MapSet;
        shown.partThrottle.insert(set.PTMap->GetLocation());
        shown.fullThrottle.insert(set.WOTMap->GetLocation());
    }
    return shown;
}
} // namespace

std::int32_t TfrmFileContents::CurrentAddress() const {
    return HeaderAddress(CellOffset(grdFile_->Col(), grdFile_->Row()));
}

void TfrmFileContents::UpdateNotebookMap(TMapContents contents, TMapKind kind) {
    if (session.IsEmpty()) {
        Say(NoImageIsLoaded());
        return; // there is no cell
    }
    TMapSet &set = contents == TMapContents::Fuel ? static_cast<TMapSet &>(workspace_.fuelMapSet)
                                                  : workspace_.timingMapSet;
    std::array offsets{set.PTMap->GetLocation(), set.IdleMap->GetLocation(),
                       set.WOTMap->GetLocation()};
    const std::int32_t address = CurrentAddress();
    offsets[static_cast<std::size_t>(kind)] = address;
    set.SetOffsets(offsets[0], offsets[1], offsets[2]);
    Say(MovedTo(contents, kind, address));
}

void TfrmFileContents::AllHighlighted1Click() {
    const TfrmKelvaneNotebook *host = Notebook();
    if (!host || session.IsEmpty())
        return;
    const THourglass hourglass;
    for (const TMapToAdd &map : MapsToAdd(session.Colors(), MapsShownBy(*host), CurrentAddress()))
        AddMapPage(map);
}

void TfrmFileContents::AddMapPage(const TMapToAdd &map) {
    const TMapStart &start = map.start;
    const QString digits = QString("%1").arg(map.foundAt, 4, 16, QChar('0')).toUpper();
    const QString caption = CaptionOf(start).arg(digits);
    std::unique_ptr<TfrmMaps> page = MakePage(start.contents, workspace_);
    page->setObjectName(page->objectName() + "_" + digits);
    page->MapSet->Map(KindOf(start.shape)).SetOffset(map.placedAt);
    page->ShowOnly(KindOf(start.shape));
    const int tab = Notebook()->AddExtraPage(
        std::move(page), "tabMap_" + digits,
        start.contents == TMapContents::Fuel ? tr("map at $%1").arg(digits) : caption);
    Notebook()->PageControl1->setTabText(tab, caption);
}

void TfrmFileContents::QuickMap(TMapShape shape, bool throughPointer) {
    const std::optional<std::size_t> cell = session.Recorded();
    if (!cell)
        return;
    const auto offset = static_cast<std::int32_t>(*cell);
    auto *chart = new TfrmQuickChart(window()); // frees itself when it is closed
    chart->SetMapKind(shape == TMapShape::TwoD ? 2 : 1);
    if (throughPointer)
        chart->SetMapPointer(offset, session.parameters.pointerMask);
    else
        chart->SetMapOffset(offset);
    chart->show();
}
