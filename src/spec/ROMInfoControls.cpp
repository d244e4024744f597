// The controls of the page "ROM Information" and their places; what they do is in ROMInfo.cpp.
#include "changes/RecoveryBar.h"
#include "forms/Guard.h"
#include "forms/Hint.h"
#include "forms/Named.h"
#include "forms/PlainScroll.h"
#include "forms/TabOrder.h"
#include "spec/ProgrammerControls.h"
#include "spec/ROMInfo.h"

#include <QScopeGuard>
#include <QScrollArea>
#include <QVBoxLayout>

namespace {
constexpr int creditInterval = 3000; // milliseconds
} // namespace

TfrmROMInformation::TfrmROMInformation(QWidget *parent, TWorkspace &workspace, TRecovery &recovery)
    : TEmbeddedForm(parent),
      workspace_(workspace),
      recovery_(recovery),
      btnLoad_(Named("btnLoad", new QPushButton(tr("&Load ROM Image"), this))),
      btnSaveSpec_(Named("btnSaveSpec", new QPushButton(tr("Save Spec"), this))),
      btnSave_(Named("btnSave", new QPushButton(tr("&Save ROM"), this))),
      btnOffsetEntry_(Named("btnOffsetEntry", new QPushButton(tr("Manual Offsets"), this))),
      programmer_(new TProgrammerControls(this)),
      rdoROMtemplate_(Named("rdoROMtemplate", new TRadioGroup(tr("Set Mapping Type"), 2, this))),
      aboutLabels_{},
      statusPanels_{},
      dlgSave_(new TSaveDialog(this, "dlgSave")),
      tmrThanks_(Named("tmrThanks", new QTimer(this))) {
    setObjectName("frmROMInformation");
    MakeControls();
    ConnectControls();
    ScanSpecDirectory();
}

void TfrmROMInformation::MakeControls() {
    rdoROMtemplate_->setEnabled(false);
    SetHint(rdoROMtemplate_,
            tr("Say where the maps are: by a spec file of the image's folder, or by hand"));
    QScrollArea *scroll = MakePlainScroll(rdoROMtemplate_, this);

    auto *top = new QHBoxLayout;
    top->addWidget(MakeROMGroup());
    top->addWidget(scroll, 1);
    auto *page = new QVBoxLayout(this);
    page->addLayout(top, 1);
    page->addWidget(MakeAbout());
    page->addWidget(MakeStatusBar());
    barRecovery_ = new TRecoveryBar(this, recovery_, workspace_);
    page->insertWidget(0, barRecovery_);
    tmrThanks_->setInterval(creditInterval);
}

QGroupBox *TfrmROMInformation::MakeROMGroup() {
    auto *group = Named("grpLoadROM", new QGroupBox(tr("ROM Information"), this));
    auto *dataOffset = Named("Label5", new QLabel(tr("data offset"), group));
    dataOffset->setBuddy(btnOffsetEntry_);
    btnOffsetEntry_->setAccessibleName(btnOffsetEntry_->text());
    SetTabSequence({btnLoad_, btnSave_, btnSaveSpec_, btnOffsetEntry_});
    SetHint(btnLoad_, tr("Load a new ROM Image into the program"));
    SetHint(btnSaveSpec_, tr("Save a new spec file using offsets listed on map pages"));
    SetHint(btnSave_, tr("Save the ROM Image to a binary file"));
    SetHint(btnOffsetEntry_, tr("Open the offset dialog again; its OK reads the image anew"));
    for (QPushButton *button : {btnSaveSpec_, btnSave_, btnOffsetEntry_})
        button->setEnabled(false);

    auto *column = new QVBoxLayout(group);
    column->addWidget(btnLoad_);
    column->addWidget(btnSave_);
    column->addWidget(btnSaveSpec_);
    column->addSpacing(12);
    column->addWidget(dataOffset);
    column->addWidget(btnOffsetEntry_);
    column->addWidget(programmer_);
    column->addStretch(1);
    return group;
}

QWidget *TfrmROMInformation::MakeAbout() {
    auto *about = new QWidget(this);
    auto *column = new QVBoxLayout(about);
    // The program's name, two lines about it, and the credit line that changes.
    constexpr std::array names{"Label1", "Label2", "Label3", "Label4"};
    for (std::size_t i = 0; i < names.size(); ++i) {
        aboutLabels_[i] = Named(names[i], new QLabel(about));
        aboutLabels_[i]->setAlignment(Qt::AlignHCenter);
        column->addWidget(aboutLabels_[i]);
    }
    QFont big = font();
    big.setPointSizeF(big.pointSizeF() * 1.8);
    big.setBold(true);
    aboutLabels_[0]->setFont(big);
    return about;
}

QStatusBar *TfrmROMInformation::MakeStatusBar() {
    constexpr std::array<const char *, 3> meanings{QT_TR_NOOP("Name of the ROM file"),
                                                   QT_TR_NOOP("Size of the image"), nullptr};
    auto *bar = Named("StatusBar1", new QStatusBar(this));
    bar->setAccessibleName(tr("ROM file"));
    bar->setSizeGripEnabled(false);
    for (std::size_t i = 0; i < statusPanels_.size(); ++i) {
        statusPanels_[i] = new TElidedLabel(bar);
        statusPanels_[i]->setFixedWidth(panelWidths[i]);
        statusPanels_[i]->setAccessibleDescription(tr(meanings[i]));
        bar->addWidget(statusPanels_[i]);
    }
    statusPanels_[0]->setLayoutDirection(Qt::LeftToRight); // a path begins at its root everywhere
    return bar;
}

void TfrmROMInformation::ConnectControls() {
    const auto andTell = [this](void (TfrmROMInformation::*handler)()) {
        return [this, handler] {
            const auto tell = qScopeGuard([this] { TellState(); }); // after an error too
            (this->*handler)();
        };
    };
    const auto connect = [&](QPushButton *button, void (TfrmROMInformation::*handler)()) {
        ConnectGuarded(button, &QPushButton::clicked, this, andTell(handler));
    };
    connect(btnLoad_, &TfrmROMInformation::btnLoadClick);
    connect(btnSave_, &TfrmROMInformation::btnSaveClick);
    connect(btnSaveSpec_, &TfrmROMInformation::btnSaveSpecClick);
    connect(btnOffsetEntry_, &TfrmROMInformation::btnOffsetEntryClick);
    rdoROMtemplate_->OnClick = andTell(&TfrmROMInformation::rdoROMtemplateClick);
    barRecovery_->OnDone = [this](bool broughtBack) { TakeBack(broughtBack); };
    ConnectGuarded(tmrThanks_, &QTimer::timeout, this, [this] { tmrThanksTimer(); });
}

void TfrmROMInformation::FormShow() {
    aboutLabels_[0]->setText("Ferrolyn");
    aboutLabels_[1]->setText(tr("Editor and analyser for engine control unit ROM images"));
    aboutLabels_[2]->setText(tr("Copyright 2026 the Ferrolyn authors, MIT licence"));
    creditIndex_ = 0;
    tmrThanks_->start();
}

void TfrmROMInformation::FormHide() {
    tmrThanks_->stop();
}

void TfrmROMInformation::tmrThanksTimer() {
    constexpr std::array credits{
        QT_TR_NOOP("F1 opens the guide: every button, message and colour."),
        QT_TR_NOOP("Every byte that you did not edit stays as it was."),
        QT_TR_NOOP("Keep a copy of the original image. Always."),
        QT_TR_NOOP("Small steps: change, log, listen, then change again."),
        QT_TR_NOOP("Check the rev limiter twice; the engine checks it once.")};
    tmrThanks_->stop();
    aboutLabels_[3]->setText(tr(credits[creditIndex_]));
    creditIndex_ = (creditIndex_ + 1) % credits.size();
    tmrThanks_->start();
}
