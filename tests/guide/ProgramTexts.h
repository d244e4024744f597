// What the program's sources say of what it shows: the texts, collected by the tool that collects
// them for translators, and names that a plain search finds.
#pragma once

#include <vector>

#include <QString>
#include <QStringList>

struct TProgramText {
    QString context; ///< where it is shown: a class, or a unit of the core
    QString text;
};

/// The texts for translators below a folder, by default src/. A complaint of the tool fails the
/// test: what it cannot read would not be translated either.
std::vector<TProgramText> ProgramTexts(const QString &folder = {});

/// What of a text is shown as it stands: its pieces between "%1" and the like, before a "|",
/// without blanks round them. Pieces without a letter are left out.
QStringList Fragments(const QString &text);

/// What the first group of `pattern`, whose "^" is the start of a line, finds in the files below
/// src/ whose names fit one of `files`. Those of the command line, another program and English as
/// the files that it writes, are left out.
QStringList FoundIn(const QStringList &files, const QString &pattern);
