#include "maps/FuelMapsGraphical.h"

TfrmFuelMapsGraphical::TfrmFuelMapsGraphical(QWidget *parent, TWorkspace &sharedWorkspace)
    : TfrmMapsGraphical(parent, sharedWorkspace, sharedWorkspace.fuelMapSet) {
    setObjectName("frmFuelMapsGraphical");
    setWindowTitle(tr("/\\ Trim"));
}

void TfrmFuelMapsGraphical::MakeControls() {
    TfrmMapsGraphical::MakeControls();
    // Until a map is loaded; the page's caption then takes their place.
    Panel(TMapKind::PT).chart->SetTitles({}, tr("Lambda Trim"));
    for (const TMapKind kind : {TMapKind::Idle, TMapKind::WOT})
        Panel(kind).chart->SetTitles({}, tr("Lam. Trim"));
}
