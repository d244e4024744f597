// Every question to the user that stops the program: message boxes, confirmations, input boxes,
// file dialogs. One interface, so that tests can script the answers; only the implementation behind
// it includes dialog classes.
#pragma once

#include <functional>

#include <QObject>
#include <QString>

enum class TAnswer { Yes, No, Cancel };

/// What a save dialog needs and remembers. A child object of its page, named like a control.
class TSaveDialog : public QObject {
    Q_OBJECT
public:
    TSaveDialog(QObject *page, const QString &name);

    QString defaultExt; ///< appended to a name without extension, for example ".BIN"
    QString title;      ///< window title
    QString filter;     ///< "Description (*.EXT)|*.EXT"
    QString fileName;   ///< full path last confirmed; kept when the dialog is cancelled

    /// What the dialog offers in its name box: `fileName` where it ends in `defaultExt`, in any
    /// letter case, and lies in the current folder, else nothing. A name that was confirmed for
    /// another kind of file or in another folder would be written over by mistake.
    QString OfferedName() const;

    /// Runs the dialog in the process's current folder; true and a new `fileName` when the user
    /// confirmed. Does not ask about overwriting.
    bool Execute();
};

class IDialogs {
public:
    virtual ~IDialogs() = default;
    /// A plain-text message with one button.
    virtual void ShowMessage(const QString &text) = 0;
    /// A confirmation with Yes and No; closing the box is No.
    virtual TAnswer AskYesNo(const QString &text) = 0;
    /// The same for a question on which edits depend: answered by its two buttons only, closing the
    /// box and Escape leave it open.
    virtual TAnswer AskAboutEdits(const QString &text) = 0;
    /// A confirmation with Yes, No and Cancel; closing the box is Cancel.
    virtual TAnswer AskYesNoCancel(const QString &text) = 0;
    /// One line of text; Cancel gives `text` back.
    virtual QString InputBox(const QString &caption, const QString &prompt,
                             const QString &text) = 0;
    /// Full path of the chosen file, or empty when cancelled. `filter` as in TSaveDialog.
    virtual QString OpenFile(const QString &filter, const QString &initialDir) = 0;
    /// As TSaveDialog::Execute, which is how pages call it.
    virtual bool RunSaveDialog(TSaveDialog &dialog) = 0;
    /// Calls `take` `count` times behind a window that shows how far it is. The user may cancel,
    /// which leaves out the calls still to come.
    virtual void TakeSteps(const QString &text, int count, const std::function<void()> &take) = 0;
};

/// The dialogs in force: the toolkit's, unless a test has set its own.
IDialogs &Dialogs();

/// Replaces the dialogs (nullptr: the toolkit's again). The caller keeps ownership and outlives the
/// use.
void SetDialogs(IDialogs *dialogs);
