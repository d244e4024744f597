// The ignition timing maps' graphical page. Sibling: FuelMapsGraphical.h.
#pragma once

#include "maps/MapsGraphical.h"

class TfrmTimingMapsGraphical : public TfrmMapsGraphical {
    Q_OBJECT
public:
    /// `workspace` outlives the page.
    TfrmTimingMapsGraphical(QWidget *parent, TWorkspace &workspace);

    /// Shows the workspace's timing maps.
    void ShowPage() override;

protected:
    QString DepthTitle() const override { return tr("% Throttle"); }
};
