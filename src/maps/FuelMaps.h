// The fuel (lambda trim) map page: the three fuel maps and the rev limiter. Sibling: TimingMaps.h.
#pragma once

#include "maps/Maps.h"
#include "maps/RevLimiterBox.h"

class TfrmFuelMaps : public TfrmMaps {
    Q_OBJECT
public:
    /// `mapSet` and `workspace` outlive the page.
    TfrmFuelMaps(QWidget *parent, TWorkspace &workspace, TFuelMapSet &mapSet);

    // The workspace's set, taken at each show; the rev limiter and "Copy Map" use it.
    TFuelMapSet *FuelMapSet;
    bool RevChanged = false; ///< the spin edit was changed and not yet committed

    void ShowPage() override;

    void spnRevLimiterChange();
    // Bound to the part throttle map's buttons and to the rev limiter's: each commits or resets
    // both.
    void btnSavePTClick() override;
    void btnResetPTClick() override;

    /// Enters an engine speed into the box of the rev limiter, as if it were typed.
    void EnterRevLimiter(int rpm) { RevBox().setValue(rpm); }

protected:
    /// The rev limiter too.
    bool AnyChanged() const override { return TfrmMaps::AnyChanged() || RevChanged; }
    void CommitAll() override;
    void MakeControls() override;
    TRevState RevState() override;
    void SetRevState(const TRevState &state) override;
    void CopyMap(TMapKind kind) override { CopyTo(workspace.fuelPasteSlots, *FuelMapSet, kind); }
    void PasteMap(TMapKind kind) override {
        Paste(workspace.fuelPasteSlots[kind].get(), kind, Panel(kind).pasteAction->text());
    }
    QString SetName() const override { return tr("Fuel"); }
    QString DepthTitle() const override { return tr("% Load"); }

private:
    void ShowRevLimiter();
    void TakeRevLimiter();
    /// Sets RevChanged and tells screen readers of it.
    void SetRevChanged(bool changed);
    /// The StoredNote of what the box shows.
    QString RevNote();

    /// The rev limiter's box; makes the page's controls unless they are made.
    TRevLimiterBox &RevBox();

    TRevLimiterBox *revBox_ = nullptr; ///< for RevBox and MakeControls alone
};
