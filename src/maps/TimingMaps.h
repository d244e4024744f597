// The ignition timing map page: the three timing maps and nothing else. Sibling: FuelMaps.h.
#pragma once

#include "maps/Maps.h"

class TfrmTimingMaps : public TfrmMaps {
    Q_OBJECT
public:
    /// `mapSet` and `workspace` outlive the page.
    TfrmTimingMaps(QWidget *parent, TWorkspace &sharedWorkspace, TTimingMapSet &mapSet)
        : TfrmMaps(parent, sharedWorkspace, mapSet), TimingMapSet(&sharedWorkspace.timingMapSet) {
        setObjectName("frmTimingMaps");
        setWindowTitle(tr("Ign Timing"));
    }

    TTimingMapSet *TimingMapSet; ///< the workspace's set, taken at each show; "Copy Map" uses it

    void ShowPage() override {
        TimingMapSet = &workspace.timingMapSet;
        TfrmMaps::ShowPage();
    }

protected:
    void CopyMap(TMapKind kind) override {
        CopyTo(workspace.timingPasteSlots, *TimingMapSet, kind);
    }
    void PasteMap(TMapKind kind) override {
        Paste(workspace.timingPasteSlots[kind].get(), kind, Panel(kind).pasteAction->text());
    }
    QString SetName() const override { return tr("Timing"); }
    QString DepthTitle() const override { return tr("% Throttle"); }
};
