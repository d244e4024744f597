#include "filedisplay/FilePlacing.h"

#include "filedisplay/ContentsTexts.h"
#include "filedisplay/FileDisplay.h"
#include "forms/Dialogs.h"
#include "forms/Hourglass.h"
#include "forms/KelvaneNotebook.h"
#include "forms/PageControl.h"
#include "maps/FuelMaps.h"
#include "maps/QuickChart.h"
#include "maps/TimingMaps.h"

#include <array>

namespace {
constexpr std::size_t quietPages = 200; // more are made behind a window that offers "Cancel"

/// A page with a map set of its own.
template <class TPage, class TSet>
std::unique_ptr<TfrmMaps> NewPage(TWorkspace &workspace) {
    struct TOwnSet : QObject {
        TSet set;
    };
    auto *own = new TOwnSet;
    auto page = std::make_unique<TPage>(nullptr, workspace, own->set);
    own->setParent(page.get());
    return page;
}

TMapKind KindOf(TMapShape shape) {
    return shape == TMapShape::TwoD ? TMapKind::PT : TMapKind::WOT;
}

/// Places a page's map. The page's own controls come when it is first shown.
std::unique_ptr<TfrmMaps> MakePage(const TMapToAdd &map, TWorkspace &workspace) {
    std::unique_ptr<TfrmMaps> page = map.start.contents == TMapContents::Fuel
                                         ? NewPage<TfrmFuelMaps, TFuelMapSet>(workspace)
                                         : NewPage<TfrmTimingMaps, TTimingMapSet>(workspace);
    const TMapKind kind = KindOf(map.start.shape);
    page->MapSet->Map(kind).SetOffset(map.placedAt);
    page->ShowOnly(kind);
    return page;
}

/// Frees itself when it is closed.
TfrmQuickChart &NewQuickChart(QWidget *owner, TMapShape shape) {
    auto *chart = new TfrmQuickChart(owner);
    chart->SetMapKind(shape == TMapShape::TwoD ? 2 : 1);
    return *chart;
}

/// Of the map's tab; "%1" is its address of four digits.
QString CaptionOf(const TMapStart &start) {
    if (start.contents == TMapContents::Fuel)
        return start.shape == TMapShape::TwoD ? TFilePlacing::tr("2-D Fuel Map at $%1")
                                              : TFilePlacing::tr("1-D Fuel Map at $%1");
    return start.shape == TMapShape::TwoD ? TFilePlacing::tr("2-D Timing Map at $%1")
                                          : TFilePlacing::tr("1-D Timing Map at $%1");
}
} // namespace

void TFilePlacing::UpdateNotebookMap(TMapContents contents, TMapKind kind) {
    if (page_.session.IsEmpty()) {
        page_.Say(NoImageIsLoaded());
        return; // there is no cell
    }
    MoveNotebookMap(contents, kind, page_.CurrentAddress());
}

void TFilePlacing::MoveNotebookMap(TMapContents contents, TMapKind kind, std::int32_t address) {
    TMapSet &set = contents == TMapContents::Fuel ? static_cast<TMapSet &>(workspace_.fuelMapSet)
                                                  : workspace_.timingMapSet;
    std::array offsets{set.PTMap->GetLocation(), set.IdleMap->GetLocation(),
                       set.WOTMap->GetLocation()};
    offsets[static_cast<std::size_t>(kind)] = address;
    set.SetOffsets(offsets[0], offsets[1], offsets[2]);
    page_.Say(MovedTo(contents, kind, address));
    page_.TellState(); // the maps are read anew
}

void TFilePlacing::AllHighlighted1Click() {
    TfrmKelvaneNotebook *host = page_.Notebook();
    if (!host || page_.session.IsEmpty())
        return;
    const THourglass hourglass;
    const std::vector<TMapToAdd> maps =
        MapsToAdd(page_.session.Colors(), ShownMaps(), page_.CurrentAddress());
    std::vector<std::unique_ptr<TfrmMaps>> pages;
    const auto make = [&] { pages.push_back(MakePage(maps[pages.size()], workspace_)); };
    if (maps.size() > quietPages)
        Dialogs().TakeSteps(tr("Adding pages for the highlighted maps"), int(maps.size()), make);
    else
        while (pages.size() < maps.size())
            make();
    if (pages.empty())
        return;
    host->PageControl1->AddInOneGo([&] {
        for (std::size_t i = 0; i < pages.size(); ++i)
            AddPage(std::move(pages[i]), maps[i]);
    });
}

const std::vector<QPointer<TfrmMaps>> &TFilePlacing::AddedPages() {
    std::erase_if(addedPages_, [](const TfrmMaps *page) { return !page || !page->Notebook(); });
    return addedPages_;
}

TShownMaps TFilePlacing::ShownMaps() {
    TShownMaps shown;
    for (const TfrmMaps *page : AddedPages()) {
        shown.partThrottle.insert(page->MapSet->PTMap->GetLocation());
        shown.fullThrottle.insert(page->MapSet->WOTMap->GetLocation());
    }
    return shown;
}

void TFilePlacing::AddPage(std::unique_ptr<TfrmMaps> page, const TMapToAdd &map) {
    const QString digits = QString("%1").arg(map.foundAt, 4, 16, QChar('0')).toUpper();
    const QString caption = CaptionOf(map.start).arg(digits);
    const bool fuel = map.start.contents == TMapContents::Fuel;
    page->setObjectName(page->objectName() + "_" + digits);
    addedPages_.push_back(page.get());
    TfrmKelvaneNotebook &host = *page_.Notebook();
    const int tab = host.AddPage(std::move(page), "tabMap_" + digits,
                                 fuel ? tr("map at $%1").arg(digits) : caption);
    host.PageControl1->setTabText(tab, caption);
}

void TFilePlacing::QuickMap(TMapShape shape, bool throughPointer) {
    const std::optional<std::size_t> cell = page_.session.Recorded();
    if (!cell)
        return;
    if (!throughPointer) {
        QuickMapAt(shape, *cell);
        return;
    }
    TfrmQuickChart &chart = NewQuickChart(page_.window(), shape);
    chart.SetMapPointer(static_cast<std::int32_t>(*cell), page_.session.parameters.pointerMask);
    chart.show();
}

void TFilePlacing::QuickMapAt(TMapShape shape, std::size_t offset) {
    TfrmQuickChart &chart = NewQuickChart(page_.window(), shape);
    chart.SetMapOffset(static_cast<std::int32_t>(offset));
    chart.show();
}
