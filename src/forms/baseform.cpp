#include "forms/baseform.h"

#include "forms/Dialogs.h"
#include "forms/Guard.h"
#include "forms/Help.h"
#include "forms/Named.h"
#include "forms/TabOrder.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QScopedValueRollback>
#include <QShowEvent>
#include <QVBoxLayout>

namespace {
constexpr QLatin1String editPrefix("edt");
constexpr int gapAboveButtons = 6; // on top of the layout's own spacing

QString Condition(const QLineEdit &edit, bool partial) {
    const QString name = edit.objectName().mid(editPrefix.size());
    const QString text = QString(edit.text()).replace('\'', "''");
    return QString(partial ? "%1 like '%%2%'" : "%1 = '%2'").arg(name, text);
}
} // namespace

QString TfrmBaseForm::ProgRegKey;

TfrmBaseForm::TfrmBaseForm(QWidget *parent, int mode)
    : QDialog(parent),
      pnlMain(Named("pnlMain", new QFrame(this))),
      btnOK(Named("btnOK", new QPushButton(tr("&Ok"), pnlMain))),
      btnCancel(Named("btnCancel", new QPushButton(tr("Cancel"), pnlMain))),
      btnFilter(Named("btnFilter", new QPushButton(tr("Filter"), pnlMain))),
      btnHelp(Named("btnHelp", new QPushButton(tr("Help"), pnlMain))),
      contents_(new QVBoxLayout) {
    btnOK->setDefault(true);
    btnFilter->hide();
    btnHelp->hide();
    LayOut();
    SetMode(mode);
    ConnectGuarded(btnOK, &QPushButton::clicked, this, [this] { btnOKClick(); });
    ConnectGuarded(btnCancel, &QPushButton::clicked, this, [this] { btnCancelClick(); });
    ConnectGuarded(btnFilter, &QPushButton::clicked, this, [this] { btnFilterClick(); });
    ConnectGuarded(btnHelp, &QPushButton::clicked, this, [this] { btnHelpClick(); });
    OnHelpKey(*this, [this] { btnHelpClick(); }); // its button is hidden
    FormCreate();
}

void TfrmBaseForm::LayOut() {
    auto *client = new QVBoxLayout(this);
    client->setContentsMargins(0, 0, 0, 0);
    client->addWidget(pnlMain);
    auto *column = new QVBoxLayout(pnlMain);
    column->addLayout(contents_, 1);
    column->addSpacing(gapAboveButtons);
    auto *row = new QHBoxLayout;
    column->addLayout(row);
    row->addWidget(btnHelp);
    row->addWidget(btnFilter);
    row->addStretch();
    row->addWidget(btnOK);
    row->addWidget(btnCancel);
}

void TfrmBaseForm::FormCreate() {
    if (ProgRegKey.isEmpty())
        Dialogs().ShowMessage(tr("You must set ProgRegKey in the main application"));
}

void TfrmBaseForm::SetMode(int mode) {
    if (mode == 0)
        btnOK->setText(tr("&Lookup"));
    if (mode == 1)
        btnOK->setText(tr("&Ok"));
}

void TfrmBaseForm::btnOKClick() {
    accept();
}

void TfrmBaseForm::btnCancelClick() {
    reject();
}

void TfrmBaseForm::btnFilterClick() {
    const bool partial = Dialogs().AskYesNo(tr("Include partial matches?")) == TAnswer::Yes;
    QStringList conditions;
    const auto edits = findChildren<QLineEdit *>(QRegularExpression("^" + editPrefix + "."));
    for (const QLineEdit *edit : edits)
        if (!edit->text().isEmpty())
            conditions << Condition(*edit, partial);
    filterText_ = conditions.join(partial ? " or " : " and ");
}

void TfrmBaseForm::btnHelpClick() {
    ShowHelpOf(*this, helpFileName);
}

void TfrmBaseForm::done(int result) {
    bool allowed = false;
    Guarded([&] { allowed = CloseQuery(); });
    if (allowed)
        QDialog::done(result);
}

bool TfrmBaseForm::CloseQuery() {
    if (asking_)
        return false;
    if (!modified)
        return true;
    const QScopedValueRollback<bool> asking(asking_, true);
    const TAnswer answer = Dialogs().AskYesNoCancel(tr("Save Changes?"));
    if (answer != TAnswer::Yes)
        return answer == TAnswer::No;
    if (!SaveChanges())
        return false;
    modified = false;
    return true;
}

void TfrmBaseForm::showEvent(QShowEvent *event) {
    MoveToTabEnd(*this, {btnHelp, btnFilter, btnOK, btnCancel});
    QDialog::showEvent(event);
    if (!event->spontaneous())
        Guarded([this] { FormShow(); });
}

void TfrmBaseForm::changeEvent(QEvent *event) {
    QDialog::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange || takingBack_)
        return;
    const Qt::WindowStates before = static_cast<QWindowStateChangeEvent *>(event)->oldState();
    if (Allows(before, windowState()))
        return;
    const QScopedValueRollback<bool> takingBack(takingBack_, true);
    setWindowState(before);
}

bool TfrmBaseForm::Allows(Qt::WindowStates before, Qt::WindowStates now) const {
    const Qt::WindowStates gained = now & ~before;
    if (gained & Qt::WindowMinimized)
        return allowMinimize;
    if (gained & Qt::WindowMaximized)
        return allowMaximize;
    const Qt::WindowStates lost = before & ~now;
    return allowRestore || !(lost & (Qt::WindowMinimized | Qt::WindowMaximized));
}
