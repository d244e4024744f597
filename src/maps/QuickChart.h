// A small window that draws one map found anywhere in the ROM image, as bytes. It only looks:
// nothing of it can be edited or written. Who opens it gives it kind and place, shows it and
// forgets it; closing frees it.
#pragma once

#include "forms/baseform.h"
#include "maps/MapChart.h"
#include "model/MapTypes.h"

#include <cstdint>

#include <QLineEdit>

class TViewButtons;

class TfrmQuickChart : public TfrmBaseForm {
    Q_OBJECT
public:
    /// A window on top of `owner`'s, gone at the latest with `owner`. Its map is two-dimensional
    /// and unplaced at first.
    explicit TfrmQuickChart(QWidget *owner);

    // Each reads the map from the image again.

    /// @param kind  1 linear (RPM only), 2 two-dimensional; the place stays
    void SetMapKind(int kind);
    /// Places the map directly; see TMap::SetOffset, also for 0.
    void SetMapOffset(int offset);
    /// Places the map through the pointer at `pointerOffset`, its high byte ANDed with `mask`.
    void SetMapPointer(int pointerOffset, std::uint8_t mask);

    // One step of the view. Left and right go opposite to the graphical pages' buttons, as the
    // users of both are used to: intended.
    void btnUpClick();
    void btnDownClick();
    void btnLeftClick();
    void btnRightClick();
    /// @param direction  1 zooms in, -1 out
    void udZoomClick(int direction);

protected:
    /// Reads the map again and shows it; nothing while no ROM image is loaded.
    void FormShow() override;

private:
    void MakeControls();
    void ReadMap();

    TFuelMap map_{2};
    TAreaChart *chart_;
    TMapChart chartView_;
    TViewButtons *view_;
    QLineEdit *edtOffset_;
};
