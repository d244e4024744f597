#include "guide/SourceTexts.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <gtest/gtest.h>

namespace {
bool IsWordPart(QChar c) {
    return c.isLetterOrNumber() || c == '_';
}

class TLexer {
public:
    explicit TLexer(const QString &source) : source_(source) {}

    std::vector<TToken> Run() {
        while (at_ < source_.size())
            Step();
        return std::move(tokens_);
    }

private:
    QChar Here(qsizetype ahead = 0) const {
        return at_ + ahead < source_.size() ? source_[at_ + ahead] : QChar();
    }
    bool Begins(const char *text) const {
        return QStringView(source_).mid(at_).startsWith(QLatin1String(text));
    }
    void Skip(qsizetype count) {
        for (; count > 0 && at_ < source_.size(); --count, ++at_)
            if (source_[at_] == '\n') {
                ++line_;
                lineHasToken_ = false;
            }
    }
    /// To behind the next `end`, or to the end.
    void SkipBehind(const QString &end) {
        const qsizetype found = source_.indexOf(end, at_);
        Skip(found < 0 ? source_.size() : found + end.size() - at_);
    }
    void Add(TToken::TKind kind, const QString &text, int line) {
        lineHasToken_ = true;
        const bool joins = kind == TToken::Text && !tokens_.empty() && tokens_.back().kind == kind;
        if (joins)
            tokens_.back().text += text;
        else
            tokens_.push_back({kind, text, line});
    }

    void Step() {
        if (Here().isSpace())
            Skip(1);
        else if (Begins("//"))
            SkipBehind("\n");
        else if (Begins("/*"))
            SkipBehind("*/");
        else if (Here() == '#' && !lineHasToken_)
            SkipDirective();
        else if (Begins("R\""))
            TakeRawText();
        else if (Here() == '"')
            Add(TToken::Text, Quoted('"'), line_);
        else if (Here() == '\'')
            Add(TToken::Sign, Quoted('\''), line_);
        else if (IsWordPart(Here()))
            TakeWord();
        else
            TakeSign();
    }
    void SkipDirective() {
        while (at_ < source_.size() && Here() != '\n')
            Skip(Here() == '\\' ? 2 : 1);
    }
    void TakeRawText() {
        const int line = line_;
        Skip(2);
        const qsizetype open = source_.indexOf('(', at_);
        const QString end = ')' + source_.mid(at_, open - at_) + '"';
        const qsizetype close = source_.indexOf(end, open);
        const QString text = source_.mid(open + 1, close - open - 1);
        SkipBehind(end);
        Add(TToken::Text, text, line);
    }
    QString Quoted(QChar quote) {
        QString text;
        Skip(1);
        while (at_ < source_.size() && Here() != quote) {
            if (Here() == '\\') {
                Skip(1);
                text += Escaped(Here());
            } else {
                text += Here();
            }
            Skip(1);
        }
        Skip(1);
        return text;
    }
    /// Only those that stand in texts for the user have to be right.
    static QChar Escaped(QChar c) { return c == 'n' ? '\n' : c == 't' ? '\t' : c; }
    void TakeWord() {
        const qsizetype start = at_;
        // A quote in a number separates its digits.
        while (IsWordPart(Here()) ||
               (source_[start].isDigit() && Here() == '\'' && IsWordPart(Here(1))))
            Skip(1);
        Add(TToken::Word, source_.mid(start, at_ - start), line_);
    }
    void TakeSign() {
        const QString sign = Begins("::") || Begins("->") ? source_.mid(at_, 2) : QString(Here());
        Add(TToken::Sign, sign, line_);
        Skip(sign.size());
    }

    const QString source_;
    qsizetype at_ = 0;
    int line_ = 1;
    bool lineHasToken_ = false;
    std::vector<TToken> tokens_;
};
} // namespace

std::vector<TToken> TokensOf(const QString &source) {
    return TLexer(source).Run();
}

TSources ProgramSources() {
    const QDir folder(QString(FERROLYN_SOURCE_DIR) + "/src");
    TSources sources;
    for (QDirIterator found(folder.path(), {"*.cpp", "*.h"}, QDir::Files,
                            QDirIterator::Subdirectories);
         found.hasNext();) {
        QFile file(found.next());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
        sources[folder.relativeFilePath(file.fileName())] =
            TokensOf(QString::fromUtf8(file.readAll()));
    }
    return sources;
}
