// The fuel (lambda trim) map page: the three fuel maps and the rev limiter. Sibling: TimingMaps.h.
#pragma once

#include "maps/Maps.h"
#include "maps/RevLimiterBox.h"

class TfrmFuelMaps : public TfrmMaps {
    Q_OBJECT
public:
    /// `mapSet` and `workspace` outlive the page.
    TfrmFuelMaps(QWidget *parent, TWorkspace &workspace, TFuelMapSet &mapSet);

    TFuelMapSet
        *FuelMapSet; ///< the workspace's set, taken at each show; rev limiter and "Copy Map" use it
    bool RevChanged = false; ///< the spin edit was changed and not yet committed

    void ShowPage() override;

    void spnRevLimiterChange();
    // Bound to the part throttle map's buttons and to the rev limiter's: each commits or resets
    // both.
    void btnSavePTClick() override;
    void btnResetPTClick() override;
    void Copy1Click() override { CopyFuel(TMapKind::PT); }
    void Copy2Click() override { CopyFuel(TMapKind::Idle); }
    void Copy3Click() override { CopyFuel(TMapKind::WOT); }
    void Paste1Click() override { PasteFuel(TMapKind::PT); }
    void Paste2Click() override { PasteFuel(TMapKind::Idle); }
    void Paste3Click() override { PasteFuel(TMapKind::WOT); }

protected:
    /// The rev limiter too.
    bool AnyChanged() const override { return TfrmMaps::AnyChanged() || RevChanged; }
    void CommitAll() override;
    void MakeControls() override;
    QString DepthTitle() const override { return tr("% Load"); }

private:
    void MakeRevLimiter();
    void ShowRevLimiter();
    void TakeRevLimiter();
    /// Sets RevChanged and tells screen readers of it.
    void SetRevChanged(bool changed);
    void CopyFuel(TMapKind kind);
    void PasteFuel(TMapKind kind);

    /// The rev limiter's box; makes the page's controls unless they are made.
    TRevLimiterBox &RevBox();

    TRevLimiterBox *revBox_ = nullptr; ///< for RevBox and MakeRevLimiter alone
};
