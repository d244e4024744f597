#include "changes/RecoveryBar.h"

#include "changes/ChangesTexts.h"
#include "forms/Access.h"
#include "forms/Guard.h"
#include "forms/Hint.h"
#include "forms/Named.h"
#include "forms/TabOrder.h"
#include "model/ROMImage.h"

#include <chrono>

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>

namespace {
QDateTime TimeOf(const TKeptPatch &offer) {
    const auto time = std::chrono::file_clock::to_sys(offer.time).time_since_epoch();
    return QDateTime::fromMSecsSinceEpoch(
        std::chrono::duration_cast<std::chrono::milliseconds>(time).count());
}

/// How much of the image the patch changes.
QString Extent(const TPatch &patch, const TWorkspace &workspace) {
    const auto file = ROMImage()->FileBytes();
    std::vector<std::uint8_t> patched(file.begin(), file.end());
    ApplyPatch(patch, patched);
    TMappedImage before(file);
    TMappedImage after(patched);
    before.PlaceAs(workspace);
    after.PlaceAs(workspace);
    return QString::fromStdString(ExtentText(ImageChanges(before, after)));
}
} // namespace

QString WhenText(const QDateTime &time, const QDateTime &now) {
    const QDate day = time.date();
    QString text =
        QString::number(day.day()) + ' ' + QLocale().monthName(day.month(), QLocale::ShortFormat);
    if (day.year() != now.date().year())
        text += ' ' + QString::number(day.year());
    return text + ", " + time.toString("HH:mm");
}

TRecoveryBar::TRecoveryBar(QWidget *parent, TRecovery &recovery, const TWorkspace &workspace)
    : QFrame(parent),
      recovery_(recovery),
      workspace_(workspace),
      lblRecovery_(Named("lblRecovery", new QLabel(this))),
      btnShowRecovered_(Named("btnShowRecovered", new QPushButton(tr("Show"), this))),
      btnBringBack_(Named("btnBringBack", new QPushButton(tr("Bring Back"), this))),
      btnForget_(Named("btnForget", new QPushButton(tr("Forget"), this))) {
    setObjectName("barRecovery");
    setFrameShape(QFrame::StyledPanel);
    SetRole(*this, QAccessible::Grouping, tr("Changes that were never saved"));
    lblRecovery_->setWordWrap(true);
    SetHint(btnShowRecovered_, tr("Show what these changes are"));
    SetHint(btnBringBack_,
            tr("Make these changes again in the image in memory; choose the mapping first"));
    SetHint(btnForget_, tr("Throw these changes away for good"));
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(6, 4, 6, 4);
    row->addWidget(lblRecovery_, 1);
    for (QPushButton *button : {btnShowRecovered_, btnBringBack_, btnForget_})
        row->addWidget(button);
    ConnectGuarded(btnShowRecovered_, &QPushButton::clicked, this,
                   [this] { OnShow(recovery_.Offers().front()); });
    ConnectGuarded(btnBringBack_, &QPushButton::clicked, this, [this] { Finish(true); });
    ConnectGuarded(btnForget_, &QPushButton::clicked, this, [this] { Finish(false); });
    hide();
}

void TRecoveryBar::ShowOffer() {
    const std::vector<TKeptPatch> &offers = recovery_.Offers();
    setVisible(!offers.empty());
    btnShowRecovered_->setVisible(OnShow != nullptr);
    if (!isVisible())
        return; // the page is entered with another word
    const TKeptPatch &offer = offers.front();
    lblRecovery_->setText(tr("Changes of %1 were committed and never saved: %2")
                              .arg(WhenText(TimeOf(offer), QDateTime::currentDateTime()),
                                   Extent(offer.patch, workspace_)));
}

void TRecoveryBar::ComeLast() {
    MoveToTabEnd(*window(), {btnShowRecovered_, btnBringBack_, btnForget_});
}

void TRecoveryBar::Finish(bool bringBack) {
    if (bringBack)
        recovery_.BringBack();
    else
        recovery_.Forget();
    OnDone(bringBack);
}
