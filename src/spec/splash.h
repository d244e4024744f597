// The splash window: the logo and a status text whose dots come and go. It moves only when told to;
// the thread that drives it is in SplashScreen.h. The logo is drawn by tools/logo.
#pragma once

#include <QLabel>
#include <QWidget>

class TfrmSplash : public QWidget {
    Q_OBJECT
public:
    TfrmSplash();

    QString direction;  ///< "forward" while dots are added, "back" while they are taken away
    QString statusText; ///< the text before the dots; empty: "Initializing." from the first show on

    /// One step of the animation: a dot more up to 25, then a dot less down to none, and so on.
    void AnimateStatus();

protected:
    void showEvent(QShowEvent *event) override;

private:
    QLabel *lblStatus_ = nullptr; ///< child of the panel
};
