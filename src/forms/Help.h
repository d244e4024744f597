// The help window, which shows one text file from the program's directory, and how windows other
// than the pages come to theirs. Pages open it by themselves (TEmbedFm.h).
#pragma once

#include <functional>

#include <QDialog>

class QPlainTextEdit;

/// Limits of what is shown, so that a wrong file cannot keep the program busy: bytes of the file,
/// characters of a line.
inline constexpr int maxHelpFileSize = 256 * 1024;
inline constexpr int maxHelpLineLength = 4096;

/// What fits the help window as it opens: characters of a line, lines.
inline constexpr int helpColumns = 80;
inline constexpr int helpRows = 32;

/// The directory of the running program file, with a trailing separator.
QString ProgramDirectory();

class TfrmHelp : public QDialog {
    Q_OBJECT
public:
    /// Shows the lines of ProgramDirectory() + `fileName`, read as UTF-8 when it is valid UTF-8 and
    /// as Latin-1 otherwise. Throws EFileError, with the full name and the reason, for a file that
    /// cannot be read whole, is no regular file, is over one of the limits, or holds a zero byte.
    explicit TfrmHelp(const QString &fileName, QWidget *parent = nullptr);

    QPlainTextEdit *const Memo1; ///< the text, read-only

    /// Brings the head of a chapter, a line like "4  THE WINDOW", to the top. A text without that
    /// chapter stays where it is.
    void GoToChapter(int number);

    /// Asks for a text and selects its next place, in any letter case; behind the last place comes
    /// the first. Says so when there is none, and leaves the selection then.
    void FindText();
    /// The same with the text of last time; asks when there is none yet.
    void FindAgain();

private:
    QString wanted_;
};

/// Opens the help window beside `window`, not modally, on the window's object name + ".txt"; one
/// that is open already comes to the front. Says that there is no help when `asked` (that same name
/// when empty) is no file in the program's directory. Throws EFileError when the text cannot be
/// read.
void ShowHelpOf(QWidget &window, const QString &asked = {});

/// Opens the help window on `fileName` at a chapter, not modally: a window of its own that may lie
/// beside `window` or behind it, and goes with it. One that is open already comes to the front.
/// Throws EFileError when the text cannot be read.
void ShowGuide(QWidget &window, const QString &fileName, int chapter);

/// F1 in `window` runs `handler`, guarded. It goes before a shortcut of the window behind it.
void OnHelpKey(QWidget &window, std::function<void()> handler);
