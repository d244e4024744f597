// The texts that the program's sources show to the user, read from the sources themselves, so that
// a message that is added without a word in the guide is noticed. It reads C++ only as far as that
// takes: literals, calls, throws, and the definitions of what is handed to them.
#pragma once

#include <map>
#include <vector>

#include <QString>
#include <QStringList>

struct TToken {
    enum TKind { Word, Text, Sign };
    TKind kind;
    QString text; ///< of a literal: what it means, neighbours joined
    int line;
};

/// The tokens of one source text; comments and lines for the preprocessor are left out.
std::vector<TToken> TokensOf(const QString &source);

/// By file name below the source folder, such as "model/Values.cpp".
using TSources = std::map<QString, std::vector<TToken>>;

/// All of the program's own sources.
TSources ProgramSources();

/// One place that shows a text, or makes an error out of it.
struct TRaise {
    QString file;
    int line;
    QString how;       ///< the function called, or "throw" and what
    QString argument;  ///< what it is handed, as written
    QStringList texts; ///< the literals in it, in its variables and in the functions that it calls
};

/// A question, message, error or file dialog in the sources. An input box gives one for its caption
/// and one for its prompt.
std::vector<TRaise> RaisesIn(const TSources &sources);

/// What of a literal is shown as it stands: its pieces between "%1" and the like, before a "|",
/// without blanks round them. Pieces without a letter are left out.
QStringList Fragments(const QString &literal);

/// All literals.
QStringList LiteralsIn(const TSources &sources);

/// The classes that derive directly from `base`.
QStringList ClassesDerivedFrom(const TSources &sources, const QString &base);
