#include "maps/FuelMaps.h"

#include "forms/Guard.h"
#include "forms/Hint.h"
#include "maps/MapCellNames.h"
#include "model/Numbers.h"

#include <initializer_list>

#include <QPushButton>
#include <QSignalBlocker>

TfrmFuelMaps::TfrmFuelMaps(QWidget *parent, TWorkspace &sharedWorkspace, TFuelMapSet &mapSet)
    : TfrmMaps(parent, sharedWorkspace, mapSet), FuelMapSet(&sharedWorkspace.fuelMapSet) {
    setObjectName("frmFuelMaps");
    setWindowTitle(tr("/\\ Trim"));
}

void TfrmFuelMaps::MakeControls() {
    TfrmMaps::MakeControls();
    revBox_ = new TRevLimiterBox(this);
    auto *btnSaverev = new QPushButton(tr("Commit"), this);
    btnSaverev->setObjectName("btnSaverev");
    auto *btnResetRev = new QPushButton(tr("Reset"), this);
    btnResetRev->setObjectName("btnResetRev");
    for (QPushButton *button : {btnSaverev, btnResetRev})
        button->setAccessibleDescription(tr("Of the rev limiter and of the part throttle map"));
    SetHint(btnSaverev, tr("Take the rev limiter and commit the part throttle map"));
    SetHint(btnResetRev, tr("Drop the edits of the rev limiter and of the part throttle map"));
    int place = 0;
    for (QWidget *control :
         std::initializer_list<QWidget *>{revBox_->label, revBox_, btnSaverev, btnResetRev})
        BottomLine().insertWidget(place++, control);
    ConnectGuarded(revBox_, &QSpinBox::textChanged, this, [this] { spnRevLimiterChange(); });
    ConnectGuarded(btnSaverev, &QPushButton::clicked, this, [this] { btnSavePTClick(); });
    ConnectGuarded(btnResetRev, &QPushButton::clicked, this, [this] { btnResetPTClick(); });
}

TRevLimiterBox &TfrmFuelMaps::RevBox() {
    Prepare();
    return *revBox_;
}

void TfrmFuelMaps::ShowPage() {
    FuelMapSet = &workspace.fuelMapSet;
    RevBox().SetPresent(FuelMapSet->HasRevLimiter());
    ShowRevLimiter();
    TfrmMaps::ShowPage();
}

void TfrmFuelMaps::ShowRevLimiter() {
    RevBox().setValue(Round(FuelMapSet->revLimiter.GetValue()));
    RevBox().SetTextColor(clWindowText);
    SetRevChanged(false);
}

void TfrmFuelMaps::TakeRevLimiter() {
    FuelMapSet->revLimiter.SetValue(RevBox().value());
}

void TfrmFuelMaps::SetRevChanged(bool changed) {
    RevChanged = changed;
    RevBox().setAccessibleDescription(
        WithNote(changed ? MarkMeaning(clBlue) : QString(), RevNote()));
}

QString TfrmFuelMaps::RevNote() {
    const std::string text = RevBox().cleanText().toStdString();
    return QString::fromStdString(StoredNote(FuelMapSet->revLimiter, "####0", text));
}

void TfrmFuelMaps::CommitAll() {
    TfrmMaps::CommitAll();
    if (!RevChanged)
        return;
    TakeRevLimiter();
    SetRevChanged(false);
    DataChanged = true;
}

void TfrmFuelMaps::spnRevLimiterChange() {
    constexpr bool withTheDigitsBefore = true;
    const auto change = [this] {
        RevBox().SetTextColor(clBlue);
        SetRevChanged(true);
    };
    history.Run(RevBox().label->text(), change, withTheDigitsBefore);
    Say(RevNote());
}

void TfrmFuelMaps::btnSavePTClick() {
    Panel(TMapKind::PT).grid->CloseEditor();
    history.RunOnImage(tr("Commit"), [this] {
        TfrmMaps::btnSavePTClick();
        // The text stays blue and DataChanged as it is. Both are intended: see
        // docs/peculiarities.md.
        if (FuelMapSet->HasRevLimiter())
            TakeRevLimiter();
        SetRevChanged(false);
    });
}

void TfrmFuelMaps::btnResetPTClick() {
    Panel(TMapKind::PT).grid->CloseEditor();
    history.Run(tr("Reset"), [this] {
        TfrmMaps::btnResetPTClick();
        if (FuelMapSet->HasRevLimiter())
            ShowRevLimiter();
        SetRevChanged(false);
    });
}

TRevState TfrmFuelMaps::RevState() {
    const TRPMVal &limiter = FuelMapSet->revLimiter;
    return {RevBox().value(), RevBox().TextColor(), RevChanged, limiter.raw, limiter.modified};
}

void TfrmFuelMaps::SetRevState(const TRevState &state) {
    const QSignalBlocker silent(RevBox());
    RevBox().setValue(state.shown);
    RevBox().SetTextColor(state.color);
    SetRevChanged(state.changed);
    FuelMapSet->revLimiter.raw = state.raw;
    FuelMapSet->revLimiter.modified = state.modified;
}
