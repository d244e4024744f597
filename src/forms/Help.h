// The help window: shows one text file from the program's directory. Who opens it, and whether
// modally, is the caller's business.
#pragma once

#include <QDialog>

class QPlainTextEdit;

/// The directory of the running program file, with a trailing separator.
QString ProgramDirectory();

class TfrmHelp : public QDialog {
    Q_OBJECT
public:
    /// Shows the lines of ProgramDirectory() + `fileName`, read as UTF-8 when it is valid UTF-8 and
    /// as Latin-1 otherwise. Throws EFileError, with the full name and the system's reason, when
    /// the file cannot be read.
    explicit TfrmHelp(const QString &fileName, QWidget *parent = nullptr);

    QPlainTextEdit *const Memo1; ///< read-only
};
