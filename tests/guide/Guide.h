// The help texts as the tests read them: the guide of the whole program, and the texts of single
// windows.
#pragma once

#include <vector>

#include <QSet>
#include <QString>
#include <QStringList>

/// A question or a message of the guide's last chapter: texts that share one explanation.
struct TGuideEntry {
    QStringList headings; ///< as the program shows them; words in capitals stand for what changes
    QString explanation;
};

/// All help files of the sources, full names: the guide first.
QStringList HelpFiles();

/// The text of a file. Fails the test when it cannot be read or is no UTF-8.
QString TextOfFile(const QString &fileName);
QString GuideText();

/// With every run of blanks and line ends as one blank, so that a text may go on in the next line.
QString OnOneLine(const QString &text);

/// What a help text puts between double quotes, each on one line. The chapter of messages, whose
/// texts have quotes of their own, is left out.
QSet<QString> QuotedTexts(const QString &text);

/// The chapter of messages.
std::vector<TGuideEntry> MessageEntries(const QString &guide);

/// A text of a control as the guide writes it: without shortcut marks, blanks round it, and the
/// address at its end.
QString Plain(QString text);
