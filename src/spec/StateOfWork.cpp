#include "spec/StateOfWork.h"

#include "changes/MapChanges.h"
#include "forms/KelvaneNotebook.h"
#include "forms/PageControl.h"
#include "maps/FuelMaps.h"
#include "model/ROMImage.h"
#include "spec/ROMInfo.h"

#include <QCoreApplication>

namespace {
/// For the texts of this file.
struct TStateOfWork {
    Q_DECLARE_TR_FUNCTIONS(TStateOfWork)
};

/// Only the page that is shown has edits: leaving it commits or drops them.
std::vector<TUncommitted> Edited(const TfrmKelvaneNotebook &notebook, const TWorkspace &workspace) {
    if (notebook.PageCount() == 0)
        return {};
    auto *page = dynamic_cast<TfrmMaps *>(notebook.CurrentPage());
    if (!page || !page->PageVisible())
        return {};
    std::vector<TUncommitted> edited;
    const int tab = notebook.PageIndex(page);
    const bool fuel = page->MapSet == &workspace.fuelMapSet;
    const bool added = !fuel && page->MapSet != &workspace.timingMapSet;
    for (const TMapKind kind : allMapKinds)
        if (page->Changed(kind)) {
            const QString name =
                added ? notebook.PageControl1->tabText(tab)
                      : QString::fromStdString(
                            MapName({fuel ? TMapSetKind::Fuel : TMapSetKind::Timing, kind}));
            edited.push_back({name.toStdString(), tab});
        }
    const auto *fuelPage = dynamic_cast<TfrmFuelMaps *>(page);
    if (fuelPage && fuelPage->RevChanged)
        edited.push_back({TStateOfWork::tr("Max RPM").toStdString(), tab});
    return edited;
}
} // namespace

TProgramState StateOfWork(const TfrmKelvaneNotebook &notebook, const TfrmROMInformation &rom,
                          const TWorkspace &workspace) {
    const TROMImage *image = ROMImage();
    if (!image || image->size == 0)
        return {};
    TProgramState state;
    state.loaded = true;
    state.edited = Edited(notebook, workspace);
    state.unsavedBytes = image->BytesNotInFile();
    state.mapping = rom.Mapping();
    state.cells = UncommittedCells(workspace);
    if (!state.edited.empty())
        state.cells.others = 0; // a map pasted into the page is one of its edits
    state.unsavedRevLimiter = RevLimiterIsUnsaved(workspace.fuelMapSet);
    state.spec = rom.CurrentSpecFileName().filename().string();
    if (rom.SpecIsElsewhere())
        state.elsewhere = rom.CurrentSpecFileName().parent_path().string();
    return state;
}
