// A map page that shows nothing but its part throttle chart, as large as the page, with buttons and
// keys to turn, tilt and zoom it. Never used by itself: FuelMapsGraphical.h and
// TimingMapsGraphical.h derive from it. The three grids live on behind it; the bulk adjust window
// works on them.
#pragma once

#include "maps/Maps.h"

class TfrmMapsGraphical : public TfrmMaps {
    Q_OBJECT
public:
    /// `mapSet` and `workspace` outlive the page.
    TfrmMapsGraphical(QWidget *parent, TWorkspace &workspace, TMapSet &mapSet);

    int GuideChapter() const override { return 10; }

    // One step of the view, without bounds: a degree, or five percent. The page takes the focus.
    void btnUpClick();
    void btnDownClick();
    void btnLeftClick();
    void btnRightClick();
    /// @param direction  1 zooms in, -1 out
    void udZoomClick(int direction);
    /// Takes an arrow key for the button of its name; false for any other key.
    bool FormKeyDown(int key);

    /// Takes the page's keys before its controls see them.
    bool eventFilter(QObject *watched, QEvent *event) override;
    bool ShowsGrids() const override { return false; }

protected:
    void MakeControls() override;
    /// Also marks the grids hidden: the charts, drawn while these counted as visible, then stay as
    /// they are until the page is entered again. This is intended: users see the committed maps,
    /// whatever the bulk adjust window tries out behind them.
    void FormShow() override;

private:
    TAreaChart &Chart() { return *Panel(TMapKind::PT).chart; }
    void ShowChartOnly();
};
