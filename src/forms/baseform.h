// The base of the program's dialogs: OK, Cancel, Filter and Help in one row, a question before
// unsaved changes are lost, and refusal of window commands. Pages on tabs have TEmbedFm.h instead.
#pragma once

#include <QDialog>

class QFrame;
class QPushButton;
class QVBoxLayout;

class TfrmBaseForm : public QDialog {
    Q_OBJECT
public:
    /// Mode 0 captions the OK button "&Lookup", mode 1 "&Ok". Runs FormCreate, which complains when
    /// ProgRegKey is empty.
    explicit TfrmBaseForm(QWidget *parent = nullptr, int mode = 1);

    /// The program's settings key. The main application sets it before it creates any dialog.
    static QString ProgRegKey;

    QFrame *const pnlMain;
    QPushButton *const btnOK;
    QPushButton *const btnCancel; ///< "Cancel"
    QPushButton *const btnFilter; ///< "Filter", hidden
    QPushButton *const btnHelp;   ///< "Help", hidden

    bool modified = false; ///< closing asks "Save Changes?" while it is set

    /// Whether the window may be minimised, maximised and restored; a refused change is taken back.
    bool allowMinimize = true;
    bool allowMaximize = true;
    bool allowRestore = true;

    /// The file in the program's directory that says there is help. Empty: object name + ".txt".
    QString helpFileName;

    /// The caption of the OK button by mode; other modes than 0 and 1 leave it.
    void SetMode(int mode);

    /// Where derived dialogs put their controls: above the row of buttons, inside pnlMain.
    QVBoxLayout *Contents() const { return contents_; }

    /// What btnFilterClick built last: `name = 'text'` joined by " and ", or, for partial matches,
    /// `name like '%text%'` joined by " or ". A quote inside a text is doubled.
    const QString &FilterText() const { return filterText_; }

    virtual void btnOKClick();     ///< closes with result OK
    virtual void btnCancelClick(); ///< closes with result Cancel

    /// Asks "Include partial matches?" and builds FilterText from the filled-in edits, each named
    /// by its object name without "edt".
    void btnFilterClick();

    /// Opens the help window beside the dialog on object name + ".txt", or says that there is none;
    /// F1 does the same. Throws EFileError when that file cannot be read.
    void btnHelpClick();

    /// Every way to close comes through here. With `modified` set it asks first; the dialog stays
    /// open after Cancel, and after Yes when SaveChanges fails. `modified` is cleared by a save.
    void done(int result) override;

protected:
    /// Runs on each show, not when the window comes back from being minimised. The base does
    /// nothing.
    virtual void FormShow() {}

    /// Saves what was changed; false (or an error, which is shown) keeps the dialog open.
    virtual bool SaveChanges() { return true; }

    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void FormCreate();
    void LayOut();
    bool CloseQuery();
    bool Allows(Qt::WindowStates before, Qt::WindowStates now) const;

    QVBoxLayout *contents_;
    QString filterText_;
    bool asking_ = false;
    bool takingBack_ = false;
};
