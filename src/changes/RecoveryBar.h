// The bar that offers changes which were committed and never saved. It is there only while there is
// an offer (Recovery.h), and does nothing unless a button is pressed.
#pragma once

#include "changes/Recovery.h"

#include <functional>

#include <QDateTime>
#include <QFrame>

class QLabel;
class QPushButton;

/// When something happened, as people say it: "22 Nov, 13:05", with the year when it is another
/// than that of `now`.
QString WhenText(const QDateTime &time, const QDateTime &now);

class TRecoveryBar : public QFrame {
    Q_OBJECT
public:
    /// `recovery` and `workspace` outlive the bar, which is hidden at first.
    TRecoveryBar(QWidget *parent, TRecovery &recovery, const TWorkspace &workspace);

    /// Shows the patch of an offer; without it there is no button "Show".
    std::function<void(const TKeptPatch &offer)> OnShow;
    /// Called when an offer was brought back or forgotten.
    std::function<void(bool broughtBack)> OnDone;

    /// Shows the newest offer, in the words of the mapping in force; hides without one.
    void ShowOffer();
    /// Lets Tab come to the buttons after all other controls that the window has now.
    void ComeLast();

private:
    void Finish(bool bringBack);

    TRecovery &recovery_;
    const TWorkspace &workspace_;
    QLabel *lblRecovery_;
    QPushButton *btnShowRecovered_;
    QPushButton *btnBringBack_;
    QPushButton *btnForget_;
};
