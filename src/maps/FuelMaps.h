// The fuel (lambda trim) map page: the three fuel maps and the rev limiter. Sibling: TimingMaps.h.
#pragma once

#include "maps/Maps.h"

#include <QLabel>
#include <QSpinBox>

class TfrmFuelMaps : public TfrmMaps {
    Q_OBJECT
public:
    /// `mapSet` and `workspace` outlive the page.
    TfrmFuelMaps(QWidget *parent, TWorkspace &workspace, TFuelMapSet &mapSet);

    TFuelMapSet
        *FuelMapSet; ///< the workspace's set, taken at each show; rev limiter and "Copy Map" use it
    bool RevChanged = false; ///< the spin edit was changed and not yet committed

    void ShowPage() override;
    bool QueryClose() override;

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
    void MakeControls() override;
    QString DepthTitle() const override { return tr("% Load"); }
    void changeEvent(QEvent *event) override;

private:
    void MakeRevLimiter();
    void ShowRevLimiter();
    /// Gives the rev limiter's text that colour, as far as it is readable in the theme.
    void SetRevColor(TColor color);
    void TakeRevLimiter();
    /// Sets RevChanged and tells screen readers of it.
    void SetRevChanged(bool changed);
    void CopyFuel(TMapKind kind);
    void PasteFuel(TMapKind kind);

    QLabel *revLabel_ = nullptr;
    QSpinBox *spnRevLimiter_ = nullptr;
    TColor revColor_ = clWindowText;
};
