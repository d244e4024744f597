// The base of the main window: a notebook of one embedded page per tab. It owns the pages and their
// tabs, and asks the pages before a tab change or a close. What a page may ask of its host is
// here too; what is on the pages is not its business.
#pragma once

#include "forms/Hint.h"

#include <memory>
#include <stdexcept>
#include <vector>

#include <QCoreApplication>
#include <QMainWindow>

class QAction;
class QPushButton;
class QStatusBar;
class TEmbeddedForm;
class TPageControl;

/// The host was asked for the page of a tab that has none: "Form Not Found".
class EFormNotfound : public std::runtime_error {
    Q_DECLARE_TR_FUNCTIONS(EFormNotfound)
public:
    EFormNotfound() : std::runtime_error(tr("Form Not Found").toStdString()) {}
};

class TfrmKelvaneNotebook : public QMainWindow {
    Q_OBJECT
public:
    /// Runs FormCreate. The window is empty and not shown.
    explicit TfrmKelvaneNotebook(QWidget *parent = nullptr);
    /// Runs FormDestroy, then frees the pages.
    ~TfrmKelvaneNotebook() override;

    TPageControl *const PageControl1;
    QPushButton *const btnPrint;  ///< "Print"
    QPushButton *const btnClose;  ///< "Close"
    QPushButton *const btnSave;   ///< "Save", disabled at first
    QPushButton *const btnCancel; ///< "Cancel", disabled at first
    QStatusBar *const StatusBar1; ///< its message is the long hint
    QAction *const actGuide;      ///< "Guide", on F1: shows the guide at the current page's chapter

    /// Adds a tab with its page behind the last one and returns their common index. `tabName` is
    /// the object name of the tab's widget, `caption` is shown letter by letter. Calls nothing on
    /// the page. The window owns it from here on.
    int AddPage(std::unique_ptr<TEmbeddedForm> page, const QString &tabName,
                const QString &caption);

    /// The page of a tab; never nullptr. Throws EFormNotfound when there is none.
    TEmbeddedForm *GetPage(int index) const;

    /// The page of the current tab; throws EFormNotfound when there is none.
    TEmbeddedForm *CurrentPage() const;

    /// The first page of a class; nullptr when there is none.
    template <class TPage>
    TPage *FindPage() const {
        for (TEmbeddedForm *page : pages_)
            if (auto *found = dynamic_cast<TPage *>(page))
                return found;
        return nullptr;
    }

    /// The tab index of a page, -1 when it is not (or no longer) in the list.
    int PageIndex(const TEmbeddedForm *page) const;
    int PageCount() const { return int(pages_.size()); }

    /// Takes a page and its tab away without asking, hides the page and frees it as soon as control
    /// is back in the event loop: its own button may be the caller. When it was the current one,
    /// the tab that becomes current gets its ShowPage. Throws EFormNotfound when there is none.
    void RemovePage(int index);

    /// "Close Page" of a page: asks its QueryClose, then removes it. True when it was removed.
    /// Nothing while another question to a page is open.
    bool CloseTab(int index);

    /// True when any page's DataChanged is set.
    bool AnyDataChanged() const;
    /// Sets DataChanged of all pages.
    void SetDataChanged(bool changed);

    /// May the current page be left? Its QueryClose answers; "no" while it is still being asked.
    /// Throws EFormNotfound when the tab has no page.
    bool PageControl1Changing();

    /// Enters the newly selected page, with the hourglass cursor. Throws EFormNotfound as above.
    void PageControl1Change();

    /// May the window close? Asks every page in tab order, with the hourglass cursor. The first one
    /// that refuses (or fails, which is shown) is selected. When all agree the page list is freed
    /// and GetPage finds nothing any more; the pages themselves go with the window, because one of
    /// their handlers may be the caller.
    bool FormCloseQuery();

    /// Called after each action that may have changed what the window says of the program's state.
    virtual void StateChanged() {}

    void btnPrintClick();
    void btnSaveClick();
    void btnCancelClick();
    void btnCloseClick() { close(); }

protected:
    /// Runs once, with the first show event: selects the first tab and enters its page. Overriders
    /// begin with it.
    virtual void FormShow();

    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void FormCreate();
    void FormDestroy();
    void ShowGuide();
    void LayOut();
    void ConnectHandlers();
    void FocusPage();
    bool AskPage(TEmbeddedForm &page);
    void RefuseClose(TEmbeddedForm &page);
    void FitButtonPanel();

    QWidget *pnlButtons_;
    std::vector<TEmbeddedForm *> pages_; ///< same index as the tabs, whose children they are
    THintHandler oldHint_;
    bool shown_ = false;
    bool asking_ = false;
};
