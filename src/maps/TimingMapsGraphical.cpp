#include "maps/TimingMapsGraphical.h"

TfrmTimingMapsGraphical::TfrmTimingMapsGraphical(QWidget *parent, TWorkspace &sharedWorkspace)
    : TfrmMapsGraphical(parent, sharedWorkspace, sharedWorkspace.timingMapSet) {
    setObjectName("frmTimingMapsGraphical");
    setWindowTitle(tr("Ign Timing"));
}

void TfrmTimingMapsGraphical::ShowPage() {
    MapSet = &workspace.timingMapSet;
    TfrmMapsGraphical::ShowPage();
}
