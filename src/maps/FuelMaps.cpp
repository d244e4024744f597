#include "maps/FuelMaps.h"

#include "forms/AligridColors.h"
#include "forms/Dialogs.h"
#include "forms/Guard.h"
#include "maps/MapCellNames.h"
#include "model/Numbers.h"

#include <limits>

#include <QEvent>
#include <QPushButton>

TfrmFuelMaps::TfrmFuelMaps(QWidget *parent, TWorkspace &sharedWorkspace, TFuelMapSet &mapSet)
    : TfrmMaps(parent, sharedWorkspace, mapSet), FuelMapSet(&sharedWorkspace.fuelMapSet) {
    setObjectName("frmFuelMaps");
    setWindowTitle(tr("/\\ Trim"));
}

void TfrmFuelMaps::MakeControls() {
    TfrmMaps::MakeControls();
    MakeRevLimiter();
}

void TfrmFuelMaps::MakeRevLimiter() {
    revLabel_ = new QLabel(tr("Max RPM"), this);
    spnRevLimiter_ = new QSpinBox(this);
    revLabel_->setObjectName("Label1");
    revLabel_->setBuddy(spnRevLimiter_);
    spnRevLimiter_->setObjectName("spnRevLimiter");
    spnRevLimiter_->setAccessibleName(revLabel_->text());
    spnRevLimiter_->setSingleStep(40);
    // Both bounds 0 mean unbounded: an entry beyond 10,200 rpm wraps like any other.
    spnRevLimiter_->setRange(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
    spnRevLimiter_->setFixedWidth(spnRevLimiter_->fontMetrics().horizontalAdvance("-000000") + 48);
    auto *btnSaverev = new QPushButton(tr("Commit"), this);
    btnSaverev->setObjectName("btnSaverev");
    auto *btnResetRev = new QPushButton(tr("Reset"), this);
    btnResetRev->setObjectName("btnResetRev");
    for (QPushButton *button : {btnSaverev, btnResetRev})
        button->setAccessibleDescription(tr("Of the rev limiter and of the part throttle map"));
    int place = 0;
    for (QWidget *control :
         std::initializer_list<QWidget *>{revLabel_, spnRevLimiter_, btnSaverev, btnResetRev})
        BottomLine().insertWidget(place++, control);
    ConnectGuarded(spnRevLimiter_, &QSpinBox::textChanged, this, [this] { spnRevLimiterChange(); });
    ConnectGuarded(btnSaverev, &QPushButton::clicked, this, [this] { btnSavePTClick(); });
    ConnectGuarded(btnResetRev, &QPushButton::clicked, this, [this] { btnResetPTClick(); });
}

void TfrmFuelMaps::ShowPage() {
    Prepare();
    FuelMapSet = &workspace.fuelMapSet;
    spnRevLimiter_->setVisible(FuelMapSet->HasRevLimiter());
    revLabel_->setVisible(FuelMapSet->HasRevLimiter());
    ShowRevLimiter();
    TfrmMaps::ShowPage();
}

void TfrmFuelMaps::ShowRevLimiter() {
    spnRevLimiter_->setValue(Round(FuelMapSet->revLimiter.GetValue()));
    SetRevColor(clWindowText);
    SetRevChanged(false);
}

void TfrmFuelMaps::SetRevColor(TColor color) {
    revColor_ = color;
    QPalette colors;
    if (color != clWindowText)
        colors.setColor(QPalette::Text,
                        Legible(PaintedColor(color, colors), colors.color(QPalette::Base)));
    spnRevLimiter_->setPalette(colors);
}

void TfrmFuelMaps::changeEvent(QEvent *event) {
    TfrmMaps::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && spnRevLimiter_)
        SetRevColor(revColor_);
}

void TfrmFuelMaps::TakeRevLimiter() {
    FuelMapSet->revLimiter.SetValue(spnRevLimiter_->value());
}

void TfrmFuelMaps::SetRevChanged(bool changed) {
    RevChanged = changed;
    spnRevLimiter_->setAccessibleDescription(changed ? MarkMeaning(clBlue) : QString());
}

bool TfrmFuelMaps::QueryClose() {
    CloseEditors();
    if ((AnyChanged() || RevChanged) && Dialogs().AskYesNo(tr("Commit Changes?")) == TAnswer::Yes) {
        CommitAll();
        if (RevChanged) {
            TakeRevLimiter();
            SetRevChanged(false);
            DataChanged = true;
        }
    }
    SetPageVisible(false);
    return true;
}

void TfrmFuelMaps::spnRevLimiterChange() {
    SetRevColor(clBlue);
    SetRevChanged(true);
}

void TfrmFuelMaps::btnSavePTClick() {
    TfrmMaps::btnSavePTClick();
    // The text stays blue and DataChanged stays as it is; both are intended.
    if (FuelMapSet->HasRevLimiter())
        TakeRevLimiter();
    SetRevChanged(false);
}

void TfrmFuelMaps::btnResetPTClick() {
    TfrmMaps::btnResetPTClick();
    if (FuelMapSet->HasRevLimiter())
        ShowRevLimiter();
    SetRevChanged(false);
}

void TfrmFuelMaps::CopyFuel(TMapKind kind) {
    CopyMap(FuelMapSet->Map(kind), kind, workspace.fuelPasteSlots);
}

void TfrmFuelMaps::PasteFuel(TMapKind kind) {
    PasteMap(kind, workspace.fuelPasteSlots, tr("Fuel"));
}
