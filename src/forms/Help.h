// The help window: shows one text file from the program's directory. Who opens it, and whether
// modally, is the caller's business.
#pragma once

#include <QDialog>

class QPlainTextEdit;

/// Limits of what is shown, so that a wrong file cannot keep the program busy: bytes of the file,
/// characters of a line.
inline constexpr int maxHelpFileSize = 256 * 1024;
inline constexpr int maxHelpLineLength = 4096;

/// The directory of the running program file, with a trailing separator.
QString ProgramDirectory();

class TfrmHelp : public QDialog {
    Q_OBJECT
public:
    /// Shows the lines of ProgramDirectory() + `fileName`, read as UTF-8 when it is valid UTF-8 and
    /// as Latin-1 otherwise. Throws EFileError, with the full name and the reason, for a file that
    /// cannot be read whole, is no regular file, is over one of the limits, or holds a zero byte.
    explicit TfrmHelp(const QString &fileName, QWidget *parent = nullptr);

    QPlainTextEdit *const Memo1; ///< read-only
};
