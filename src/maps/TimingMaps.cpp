#include "maps/TimingMaps.h"

TfrmTimingMaps::TfrmTimingMaps(QWidget *parent, TWorkspace &sharedWorkspace, TTimingMapSet &mapSet)
    : TfrmMaps(parent, sharedWorkspace, mapSet), TimingMapSet(&sharedWorkspace.timingMapSet) {
    setObjectName("frmTimingMaps");
    setWindowTitle(tr("Ign Timing"));
}

void TfrmTimingMaps::ShowPage() {
    TimingMapSet = &workspace.timingMapSet;
    TfrmMaps::ShowPage();
}

void TfrmTimingMaps::CopyTiming(TMapKind kind) {
    CopyMap(TimingMapSet->Map(kind), kind, workspace.timingPasteSlots);
}

void TfrmTimingMaps::PasteTiming(TMapKind kind) {
    PasteMap(kind, workspace.timingPasteSlots, tr("Timing"));
}
