#include "forms/TEmbedFm.h"

#include "forms/Guard.h"
#include "forms/Help.h"

#include <QPointer>
#include <QPushButton>

TEmbeddedForm::TEmbeddedForm(QWidget *parent)
    : QWidget(parent), btnHelp(new QPushButton(tr("Help"), this)) {
    btnHelp->setObjectName("btnHelp");
    btnHelp->hide();
    ConnectGuarded(btnHelp, &QPushButton::clicked, this, [this] { Help(); });
    // Hidden by word, so that the tab's layout does not show the page before it is entered.
    hide();
}

void TEmbeddedForm::ShowPage() {
    SetPageVisible(true);
}

bool TEmbeddedForm::QueryClose() {
    SetPageVisible(false);
    return true;
}

void TEmbeddedForm::Help() {
    // The window may be gone before its loop ends when its parent goes.
    const QPointer<TfrmHelp> help = new TfrmHelp(HelpFileName(), this);
    help->exec();
    delete help;
}

QString TEmbeddedForm::HelpFileName() const {
    return "readme.txt";
}

void TEmbeddedForm::SetPageVisible(bool visible) {
    if (pageVisible_ == visible)
        return;
    pageVisible_ = visible;
    setVisible(visible);
    if (visible)
        FormShow();
    else
        FormHide();
}
