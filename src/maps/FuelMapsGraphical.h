// The fuel maps' graphical page. Sibling: TimingMapsGraphical.h.
#pragma once

#include "maps/MapsGraphical.h"

class TfrmFuelMapsGraphical : public TfrmMapsGraphical {
    Q_OBJECT
public:
    /// `workspace` outlives the page.
    TfrmFuelMapsGraphical(QWidget *parent, TWorkspace &workspace);

    /// Shows the workspace's fuel maps.
    void ShowPage() override {
        MapSet = &workspace.fuelMapSet;
        TfrmMapsGraphical::ShowPage();
    }

protected:
    void MakeControls() override;
    QString DepthTitle() const override { return tr("% Load"); }
};
