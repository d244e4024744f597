// The ignition timing maps' graphical page. Sibling: FuelMapsGraphical.h.
#pragma once

#include "maps/MapsGraphical.h"

class TfrmTimingMapsGraphical : public TfrmMapsGraphical {
    Q_OBJECT
public:
    /// `workspace` outlives the page.
    TfrmTimingMapsGraphical(QWidget *parent, TWorkspace &sharedWorkspace)
        : TfrmMapsGraphical(parent, sharedWorkspace, sharedWorkspace.timingMapSet) {
        setObjectName("frmTimingMapsGraphical");
        setWindowTitle(tr("Ign Timing"));
    }

    /// Shows the workspace's timing maps.
    void ShowPage() override {
        MapSet = &workspace.timingMapSet;
        TfrmMapsGraphical::ShowPage();
    }

protected:
    QString DepthTitle() const override { return tr("% Throttle"); }
};
