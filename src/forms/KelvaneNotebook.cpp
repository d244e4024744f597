#include "forms/KelvaneNotebook.h"

#include "forms/Access.h"
#include "forms/CommandMenu.h"
#include "forms/Commands.h"
#include "forms/Guard.h"
#include "forms/Help.h"
#include "forms/Hourglass.h"
#include "forms/Named.h"
#include "forms/OtherWindows.h"
#include "forms/PageControl.h"
#include "forms/PlainScroll.h"
#include "forms/TEmbedFm.h"
#include "forms/TabOrder.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QStatusBar>
#include <QVBoxLayout>

namespace {
constexpr int restIndent = 4; // pixels, as the toolkit indents messages

/// The widget of a tab. On a screen too small for its page, the page scrolls and the window still
/// fits. The scroll area comes with the first show, since of many tabs most are never shown.
class TTab : public QWidget {
public:
    explicit TTab(TEmbeddedForm &page) : page_(page) { page.setParent(this); }

    void setVisible(bool visible) override {
        if (visible && !layout()) {
            auto *column = new QVBoxLayout(this);
            column->setContentsMargins(0, 0, 0, 0);
            column->addWidget(MakePlainScroll(&page_, this));
            page_.setVisible(page_.PageVisible()); // the scroll area shows it, entering does
        }
        QWidget::setVisible(visible);
    }

private:
    TEmbeddedForm &page_;
};
} // namespace

TfrmKelvaneNotebook::TfrmKelvaneNotebook(QWidget *parent)
    : QMainWindow(parent),
      PageControl1(new TPageControl(this)),
      btnPrint(Named("btnPrint", new QPushButton(tr("Print"), this))),
      btnClose(Named("btnClose", new QPushButton(tr("Close"), this))),
      btnSave(Named("btnSave", new QPushButton(tr("Save"), this))),
      btnCancel(Named("btnCancel", new QPushButton(tr("Cancel"), this))),
      StatusBar1(new QStatusBar(this)),
      actGuide(
          AddCommand(*this, {"actGuide", tr("&Guide"), {Qt::Key_F1}, [this] { ShowGuide(); }})),
      pnlButtons_(new QWidget(this)) {
    LayOut();
    ConnectHandlers();
    FormCreate();
}

TfrmKelvaneNotebook::~TfrmKelvaneNotebook() {
    FormDestroy();
}

void TfrmKelvaneNotebook::LayOut() {
    StatusBar1->setObjectName("StatusBar1");
    setStatusBar(StatusBar1);
    StatusBar1->setAccessibleName(tr("Hint"));
    connect(StatusBar1, &QStatusBar::messageChanged, StatusBar1,
            &QStatusBar::setAccessibleDescription);
    auto *atRest = new QLabel(tr("F1: guide"), StatusBar1);
    atRest->setIndent(restIndent);
    StatusBar1->addWidget(atRest); // any message covers it
    new TCommandMenu(*this);       // in the corner of the tab bar
    SetHint(btnPrint, tr("Print Displayed Data"));
    SetHint(btnClose, tr("Close"));
    btnSave->setEnabled(false);
    btnCancel->setEnabled(false);

    pnlButtons_->setObjectName("pnlButtons");
    auto *row = new QHBoxLayout(pnlButtons_);
    row->setContentsMargins(6, 6, 6, 2);
    row->addWidget(btnPrint);
    row->addStretch();
    for (QPushButton *button : {btnSave, btnCancel, btnClose})
        row->addWidget(button);
    for (QPushButton *button : {btnPrint, btnClose, btnSave, btnCancel})
        button->installEventFilter(this);

    auto *client = new QWidget(this);
    auto *column = new QVBoxLayout(client);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(PageControl1, 1);
    column->addWidget(pnlButtons_);
    setCentralWidget(client);
}

void TfrmKelvaneNotebook::ConnectHandlers() {
    PageControl1->OnChanging = [this] { return PageControl1Changing(); };
    PageControl1->OnChange = [this] { PageControl1Change(); };
    PageControl1->OnMouseChoice = [this] { FocusPage(); };
    ConnectGuarded(btnPrint, &QPushButton::clicked, this, [this] { btnPrintClick(); });
    ConnectGuarded(btnSave, &QPushButton::clicked, this, [this] { btnSaveClick(); });
    ConnectGuarded(btnCancel, &QPushButton::clicked, this, [this] { btnCancelClick(); });
    ConnectGuarded(btnClose, &QPushButton::clicked, this, [this] { btnCloseClick(); });
    GoRoundOnF6(*this, *PageControl1);
}

void TfrmKelvaneNotebook::ShowGuide() {
    const TEmbeddedForm &page = *CurrentPage();
    ::ShowGuide(*this, page.HelpFileName(), page.GuideChapter());
}

void TfrmKelvaneNotebook::FormCreate() {
    oldHint_ = SetApplicationHint([this](const QString &hint) { StatusBar1->showMessage(hint); });
    pages_.clear();
}

void TfrmKelvaneNotebook::FormDestroy() {
    SetApplicationHint(std::move(oldHint_));
}

void TfrmKelvaneNotebook::FormShow() {
    PageControl1->SelectByProgram(0);
    if (PageControl1->count() > 0)
        PageControl1Change();
}

int TfrmKelvaneNotebook::AddPage(std::unique_ptr<TEmbeddedForm> page, const QString &tabName,
                                 const QString &caption) {
    auto *tab = new TTab(*page);
    tab->setObjectName(tabName);
    page->notebook_ = this;
    SetRole(*page, QAccessible::PropertyPage, caption);
    pages_.push_back(page.release());
    const int index = PageControl1->addTab(tab, QString(caption).replace('&', "&&"));
    MoveToTabEnd(*this, {btnPrint, btnSave, btnCancel, btnClose});
    return index;
}

TEmbeddedForm *TfrmKelvaneNotebook::GetPage(int index) const {
    if (index < 0 || index >= PageCount())
        throw EFormNotfound();
    return pages_[std::size_t(index)];
}

TEmbeddedForm *TfrmKelvaneNotebook::CurrentPage() const {
    return GetPage(PageControl1->currentIndex());
}

int TfrmKelvaneNotebook::PageIndex(const TEmbeddedForm *page) const {
    const auto found = std::find(pages_.begin(), pages_.end(), page);
    return found == pages_.end() ? -1 : int(std::distance(pages_.begin(), found));
}

void TfrmKelvaneNotebook::RemovePage(int index) {
    TEmbeddedForm *page = GetPage(index);
    const bool current = index == PageControl1->currentIndex();
    QWidget *tab = PageControl1->widget(index);
    Guarded([page] { page->SetPageVisible(false); });
    page->notebook_ = nullptr;
    pages_.erase(pages_.begin() + index);
    PageControl1->removeTab(index);
    // The page's own "Close Page" button may be the caller.
    tab->deleteLater();
    if (current && PageCount() > 0)
        PageControl1Change();
}

bool TfrmKelvaneNotebook::CloseTab(int index) {
    TEmbeddedForm *page = GetPage(index);
    if (!AskPage(*page))
        return false;
    RemovePage(PageIndex(page));
    return true;
}

bool TfrmKelvaneNotebook::AnyDataChanged() const {
    return std::any_of(pages_.begin(), pages_.end(),
                       [](const TEmbeddedForm *page) { return page->DataChanged; });
}

void TfrmKelvaneNotebook::SetDataChanged(bool changed) {
    for (TEmbeddedForm *page : pages_)
        page->DataChanged = changed;
}

bool TfrmKelvaneNotebook::PageControl1Changing() {
    return AskPage(*CurrentPage());
}

void TfrmKelvaneNotebook::PageControl1Change() {
    const THourglass hourglass;
    CurrentPage()->ShowPage();
    StateChanged();
}

void TfrmKelvaneNotebook::FocusPage() {
    if (QWidget *control = CurrentPage()->FirstControl())
        control->setFocus(Qt::MouseFocusReason);
}

/// While a page's question is open no page is asked again, whoever wants to leave.
bool TfrmKelvaneNotebook::AskPage(TEmbeddedForm &page) {
    if (asking_)
        return false;
    const QScopedValueRollback<bool> asking(asking_, true);
    return page.QueryClose();
}

bool TfrmKelvaneNotebook::FormCloseQuery() {
    if (asking_)
        return false;
    const THourglass hourglass;
    for (int index = 0; index < PageCount(); ++index) {
        TEmbeddedForm &page = *GetPage(index);
        bool leave = false;
        Guarded([&] { leave = AskPage(page); });
        if (!leave) {
            RefuseClose(page);
            return false;
        }
    }
    pages_.clear();
    return true;
}

/// The pages asked before it have been left, so the refusing page may have to be entered anew.
void TfrmKelvaneNotebook::RefuseClose(TEmbeddedForm &page) {
    PageControl1->SelectByProgram(PageIndex(&page));
    if (!page.PageVisible())
        PageControl1Change();
}

void TfrmKelvaneNotebook::btnPrintClick() {
    CurrentPage()->PrintPage();
}

void TfrmKelvaneNotebook::btnSaveClick() {
    CurrentPage()->SavePage();
}

void TfrmKelvaneNotebook::btnCancelClick() {
    CurrentPage()->CancelPage();
}

void TfrmKelvaneNotebook::showEvent(QShowEvent *event) {
    QMainWindow::showEvent(event);
    if (std::exchange(shown_, true))
        return;
    Guarded([this] { FormShow(); });
}

void TfrmKelvaneNotebook::closeEvent(QCloseEvent *event) {
    bool allowed = false;
    Guarded([&] { allowed = FormCloseQuery(); });
    event->setAccepted(allowed);
}

bool TfrmKelvaneNotebook::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::HideToParent || event->type() == QEvent::ShowToParent)
        FitButtonPanel();
    return QMainWindow::eventFilter(watched, event);
}

/// A row whose buttons are all hidden leaves its room to the pages.
void TfrmKelvaneNotebook::FitButtonPanel() {
    const auto buttons = {btnPrint, btnClose, btnSave, btnCancel};
    pnlButtons_->setVisible(
        std::any_of(buttons.begin(), buttons.end(),
                    [](const QPushButton *button) { return !button->isHidden(); }));
}
