#include "forms/TEmbedFm.h"

#include "forms/Guard.h"
#include "forms/Help.h"
#include "forms/Hint.h"
#include "forms/KelvaneNotebook.h"
#include "forms/Named.h"
#include "forms/TabOrder.h"

#include <utility>

#include <QFocusEvent>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QStatusBar>
#include <QStyleOption>

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

QPushButton *TEmbeddedForm::MakeCloseButton() {
    auto *button = Named("btnClose", new QPushButton(tr("Close Page"), this));
    SetHint(button, tr("Close this page"));
    ConnectGuarded(button, &QPushButton::clicked, this, [this] { btnCloseClick(); });
    return button;
}

void TEmbeddedForm::btnCloseClick() {
    if (notebook_)
        notebook_->CloseTab(notebook_->PageIndex(this));
}

QString TEmbeddedForm::HelpFileName() const {
    return "readme.txt";
}

void TEmbeddedForm::TakeFocus() {
    QWidget *before = window()->focusWidget();
    if (before && before != this && isAncestorOf(before))
        focusBefore_ = before;
    setFocus();
}

QWidget *TEmbeddedForm::FirstControl() {
    return FirstInTabOrder(*this);
}

void TEmbeddedForm::Say(const QString &text) {
    if (!notebook_)
        return;
    notebook_->StatusBar1->showMessage(text);
    HoldHints();
}

void TEmbeddedForm::TellState() {
    if (notebook_)
        notebook_->StateChanged();
}

bool TEmbeddedForm::focusNextPrevChild(bool next) {
    QWidget *before = hasFocus() ? std::exchange(focusBefore_, nullptr).data() : nullptr;
    if (before && before->isVisible() && before->isEnabled()) {
        before->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        if (!next)
            return true;
    }
    if (!QWidget::focusNextPrevChild(next))
        return false;
    // A scroll area sees to that itself only when the focus moves inside it.
    QWidget *focus = window()->focusWidget();
    for (QScrollArea *scroll : findChildren<QScrollArea *>())
        if (scroll->isAncestorOf(focus))
            scroll->ensureWidgetVisible(focus);
    return true;
}

void TEmbeddedForm::focusInEvent(QFocusEvent *event) {
    QWidget::focusInEvent(event);
    const Qt::FocusReason reason = event->reason();
    if (reason == Qt::MouseFocusReason || reason == Qt::TabFocusReason ||
        reason == Qt::BacktabFocusReason)
        focusBefore_ = nullptr;
}

void TEmbeddedForm::paintEvent(QPaintEvent *) {
    if (!hasFocus())
        return;
    QStyleOptionFocusRect frame;
    frame.initFrom(this);
    frame.rect = rect().adjusted(1, 1, -1, -1);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &frame, &painter, this);
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
