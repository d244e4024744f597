// The ignition timing map page: the three timing maps and nothing else. Sibling: FuelMaps.h.
#pragma once

#include "maps/Maps.h"

class TfrmTimingMaps : public TfrmMaps {
    Q_OBJECT
public:
    /// `mapSet` and `workspace` outlive the page.
    TfrmTimingMaps(QWidget *parent, TWorkspace &workspace, TTimingMapSet &mapSet);

    TTimingMapSet *TimingMapSet; ///< the workspace's set, taken at each show; "Copy Map" uses it

    void ShowPage() override;

    void Copy1Click() override { CopyTiming(TMapKind::PT); }
    void Copy2Click() override { CopyTiming(TMapKind::Idle); }
    void Copy3Click() override { CopyTiming(TMapKind::WOT); }
    void Paste1Click() override { PasteTiming(TMapKind::PT); }
    void Paste2Click() override { PasteTiming(TMapKind::Idle); }
    void Paste3Click() override { PasteTiming(TMapKind::WOT); }

protected:
    QString DepthTitle() const override { return tr("% Throttle"); }

private:
    void CopyTiming(TMapKind kind);
    void PasteTiming(TMapKind kind);
};
