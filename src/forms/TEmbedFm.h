// The base of every page that lives on a notebook tab: the operations the host calls and the page
// overrides. A page is entered by ShowPage and left by QueryClose, never by the toolkit's own show
// and hide events. The host of the pages is in KelvaneNotebook.h.
#pragma once

#include <QPointer>
#include <QWidget>

class QPushButton;
class TfrmKelvaneNotebook;

class TEmbeddedForm : public QWidget {
    Q_OBJECT
public:
    /// A page starts invisible (PageVisible() is false), whether its parent is shown or not.
    explicit TEmbeddedForm(QWidget *parent = nullptr);

    QPushButton *const btnHelp; ///< "Help", hidden; runs Help()

    /// True when the page has changed the ROM image or holds unsaved edits. Set by the page.
    bool DataChanged = false;

    /// Enters the page: called each time its tab becomes the current one. The base makes the page
    /// visible.
    virtual void ShowPage();

    /// Asks to leave the page; true when the host may switch away or close, the page then being
    /// invisible. The base agrees.
    virtual bool QueryClose();

    /// Saves, discards or prints the page's own data. The base does nothing.
    virtual void SavePage() {}
    virtual void CancelPage() {}
    virtual void PrintPage() {}

    /// The page's help button: opens the help window modally on HelpFileName() and frees it.
    /// Throws EFileError when the file cannot be read.
    virtual void Help();

    /// Makes the button "Close Page" (`btnClose`) of a page that can be taken away; the page lays
    /// it out.
    QPushButton *MakeCloseButton();

    /// Asks the notebook to close the page's tab; nothing without a notebook.
    void btnCloseClick();

    /// The page's help file in the program's directory; the base answers "readme.txt".
    virtual QString HelpFileName() const;

    /// The chapter of the guide that explains the page.
    virtual int GuideChapter() const { return 1; }

    /// Entered and not left. Says nothing about the screen: minimising is not leaving.
    bool PageVisible() const { return pageVisible_; }

    /// Shows or hides the page and runs FormShow or FormHide, on a change only.
    void SetPageVisible(bool visible);

    /// Gives the page itself the keyboard focus. The next Tab goes on from the control of the page
    /// that had it, Shift+Tab goes back to it.
    void TakeFocus();

    /// What takes the keyboard focus when the mouse has chosen the page; nullptr for none. The base
    /// answers the first control that Tab visits, the page itself included.
    virtual QWidget *FirstControl();

    /// Shows a text in the notebook's bottom line until the first hint behind the user's next
    /// action.
    void Say(const QString &text);

    /// Tells the notebook that what it says of the program's state may be another now.
    void TellState();

    /// The notebook that holds the page; nullptr before it is added and after it is removed.
    TfrmKelvaneNotebook *Notebook() const { return notebook_; }

protected:
    /// Runs after the page has become visible or invisible.
    virtual void FormShow() {}
    virtual void FormHide() {}

    bool focusNextPrevChild(bool next) override;
    void focusInEvent(QFocusEvent *event) override;
    /// Shows that the page itself has the focus.
    void paintEvent(QPaintEvent *event) override;

private:
    friend class TfrmKelvaneNotebook;

    TfrmKelvaneNotebook *notebook_ = nullptr;
    bool pageVisible_ = false;
    QPointer<QWidget> focusBefore_; ///< what TakeFocus took the focus from
};
