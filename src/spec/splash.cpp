#include "spec/splash.h"

#include "forms/Named.h"

#include <QFrame>
#include <QScreen>
#include <QtMath>

namespace {
constexpr QSize clientSize(492, 151);
constexpr int mostDots = 25;
constexpr QRect statusPlace(25, 121, 300, 20);

/// A raised panel whose bevel is kept as dark as the picture.
QFrame *NewPanel(QWidget *window) {
    auto *panel = Named("Panel1", new QFrame(window)); // all of the window
    panel->setFrameStyle(QFrame::Panel | QFrame::Raised);
    panel->setGeometry(QRect(QPoint(0, 0), clientSize));
    QPalette colours = panel->palette();
    colours.setColor(QPalette::Light, QColor(0x6e, 0x55, 0x48));
    colours.setColor(QPalette::Dark, QColor(0x0a, 0x07, 0x07));
    panel->setPalette(colours);
    return panel;
}

void AddLogo(QFrame *panel) {
    auto *logo = Named("imgLogo", new QLabel(panel));
    logo->setAccessibleName("Ferrolyn");
    logo->setScaledContents(true);
    logo->setAlignment(Qt::AlignCenter);
    logo->setGeometry(panel->contentsRect());
    const int scale = qBound(1, qCeil(logo->devicePixelRatio()), 3);
    logo->setPixmap(QPixmap(QString(":/splash/logo@%1x.png").arg(scale)));
}

QLabel *NewStatus(QWidget *panel) {
    auto *status = Named("lblStatus", new QLabel(panel));
    status->setTextFormat(Qt::PlainText);
    status->setGeometry(statusPlace);
    // At the left in every language: the picture at the right would show through.
    status->setAlignment(Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignVCenter);
    QFont font = status->font();
    font.setBold(true);
    font.setItalic(true);
    font.setPixelSize(12);
    status->setFont(font);
    QPalette colours = status->palette();
    colours.setColor(QPalette::WindowText, Qt::white);
    status->setPalette(colours);
    return status;
}
} // namespace

TfrmSplash::TfrmSplash()
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint) {
    setObjectName("frmSplash");
    setAttribute(Qt::WA_ShowWithoutActivating); // keys go to the main window
    setAttribute(Qt::WA_QuitOnClose, false);    // neither keeps the program alive nor ends it
    setFixedSize(clientSize);
    QFrame *panel = NewPanel(this);
    AddLogo(panel);
    lblStatus_ = NewStatus(panel);
}

void TfrmSplash::showEvent(QShowEvent *event) {
    QWidget::showEvent(event);
    move(screen()->geometry().center() - rect().center());
    if (statusText.isEmpty())
        statusText = tr("Initializing.");
    lblStatus_->setLayoutDirection(statusText.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    lblStatus_->setText(statusText);
    direction = "forward";
}

void TfrmSplash::AnimateStatus() {
    QString text = lblStatus_->text();
    if (direction == "forward" && text.size() == statusText.size() + mostDots)
        direction = "back";
    else if (direction == "back" && text.size() == statusText.size())
        direction = "forward";
    if (direction == "back")
        text.chop(1);
    else
        text += '.';
    lblStatus_->setText(text);
}
