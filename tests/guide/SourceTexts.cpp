#include "guide/SourceTexts.h"

#include <algorithm>
#include <set>
#include <utility>

#include <QRegularExpression>

namespace {
using TTokens = std::vector<TToken>;
using TIndex = std::size_t;

struct TRange {
    TIndex first;
    TIndex end;
};

constexpr int deepest = 4; // of a variable that is made of a function that is made of ...

bool Is(const TTokens &tokens, TIndex at, const char *text) {
    return at < tokens.size() && tokens[at].kind != TToken::Text && tokens[at].text == text;
}

bool IsWord(const TTokens &tokens, TIndex at) {
    return at < tokens.size() && tokens[at].kind == TToken::Word;
}

bool Opens(const TToken &token) {
    return token.kind == TToken::Sign &&
           (token.text == "(" || token.text == "{" || token.text == "[");
}

bool Closes(const TToken &token) {
    return token.kind == TToken::Sign &&
           (token.text == ")" || token.text == "}" || token.text == "]");
}

/// From `first` to the next of these signs outside of brackets, or to a bracket that closes more.
TRange Until(const TTokens &tokens, TIndex first, const QStringList &signs) {
    TIndex end = first;
    for (int depth = 0; end < tokens.size(); ++end) {
        const TToken &token = tokens[end];
        if (depth == 0 &&
            (Closes(token) || (token.kind == TToken::Sign && signs.contains(token.text))))
            break;
        depth += Opens(token) ? 1 : Closes(token) ? -1 : 0;
    }
    return {first, end};
}

QString Written(const TTokens &tokens, TRange range) {
    QString text;
    for (TIndex i = range.first; i < range.end; ++i)
        text += tokens[i].kind == TToken::Text ? '"' + tokens[i].text + '"' : tokens[i].text;
    return text;
}

/// A name before a bracket is declared there, and not called, when the word before it is its type.
bool IsDeclared(const TTokens &tokens, TIndex name) {
    static const std::set<QString> before{"return", "else", "do", "throw"};
    TIndex at = name;
    while (at >= 2 && Is(tokens, at - 1, "::") && IsWord(tokens, at - 2))
        at -= 2;
    return at > 0 && IsWord(tokens, at - 1) && !before.contains(tokens[at - 1].text);
}

class TFinder {
public:
    explicit TFinder(const TSources &sources) : sources_(sources) {
        for (const auto &[file, tokens] : sources)
            for (TIndex i = 1; i + 1 < tokens.size(); ++i) {
                const bool text = Is(tokens, i - 1, "QString") || Is(tokens, i - 1, "string");
                if (text && Is(tokens, i + 1, "("))
                    functions_.insert({tokens[i].text, {&tokens, i}});
                if (IsDefined(tokens, i) && IsConstant(tokens, i))
                    constants_.insert({tokens[i].text, {&tokens, i}});
            }
    }

    std::vector<TRaise> Run() {
        for (const auto &[file, tokens] : sources_) {
            file_ = file;
            tokens_ = &tokens;
            FindHelpers();
            for (TIndex i = 0; i < tokens.size(); ++i)
                Look(i);
        }
        return std::move(raises_);
    }

private:
    /// Functions of this file that throw what they are handed.
    void FindHelpers() {
        helpers_.clear();
        for (TIndex i = 0; i + 5 < tokens_->size(); ++i)
            if (Is(*tokens_, i, "noreturn") && Is(*tokens_, i + 3, "void"))
                helpers_.insert((*tokens_)[i + 4].text);
    }

    void Look(TIndex at) {
        static const std::set<QString> shown{"ShowMessage",    "AskYesNo",         "AskAboutEdits",
                                             "AskYesNoCancel", "ShowModelMessage", "OpenFile",
                                             "runtime_error",  "logic_error"};
        static const std::set<QString> dialogTexts{"title", "filter"};
        if (!IsWord(*tokens_, at))
            return;
        const QString &word = (*tokens_)[at].text;
        const bool called = Is(*tokens_, at + 1, "(") && !IsDeclared(*tokens_, at);
        if (called && word == "InputBox") {
            const TRange caption = Until(*tokens_, at + 2, {","});
            Add(word, caption);
            const TRange prompt = Until(*tokens_, caption.end + 1, {","});
            Add(word, prompt);
            Add(word, Until(*tokens_, prompt.end + 1, {","}), false);
        } else if (called && (shown.contains(word) || helpers_.contains(word))) {
            Add(word, Until(*tokens_, at + 2, {}));
        } else if (word == "throw" && !Is(*tokens_, at + 1, ";")) {
            Add("throw " + (*tokens_)[at + 1].text, Until(*tokens_, at + 1, {";"}));
        } else if (dialogTexts.contains(word) && Is(*tokens_, at - 1, "->") &&
                   Is(*tokens_, at + 1, "=")) {
            Add(word, Until(*tokens_, at + 2, {";"}));
        }
    }

    /// `needed`: also without any text.
    void Add(const QString &how, TRange range, bool needed = true) {
        TRaise raise{file_, (*tokens_)[range.first].line, how, Written(*tokens_, range), {}};
        Collect(*tokens_, range, deepest, raise.texts);
        if (needed || !raise.texts.isEmpty())
            raises_.push_back(raise);
    }

    void Collect(const TTokens &tokens, TRange range, int depth, QStringList &texts) {
        for (TIndex i = range.first; i < range.end; ++i) {
            if (tokens[i].kind == TToken::Text && !IsContext(tokens, i))
                texts << tokens[i].text;
            if (depth == 0 || !IsWord(tokens, i))
                continue;
            if (Is(tokens, i + 1, "("))
                CollectFunction(tokens[i].text, depth - 1, texts);
            else
                CollectVariable(tokens, i, depth - 1, texts);
        }
    }

    /// Of a translation; the text comes after it.
    static bool IsContext(const TTokens &tokens, TIndex at) {
        return at >= 2 && Is(tokens, at - 1, "(") &&
               (Is(tokens, at - 2, "Translated") || Is(tokens, at - 2, "QT_TRANSLATE_NOOP"));
    }

    /// The literals of a function's body that makes texts; not of those that write a number.
    void CollectFunction(const QString &name, int depth, QStringList &texts) {
        if (name == "FormatReal")
            return;
        for (auto [place, end] = functions_.equal_range(name); place != end; ++place) {
            const auto &[tokens, at] = place->second;
            const TIndex body = Until(*tokens, at + 2, {}).end + 1;
            if (Is(*tokens, body, "{"))
                Collect(*tokens, Until(*tokens, body + 1, {}), depth, texts);
        }
    }

    /// What a variable is set to: the nearest place before its use, or else a constant elsewhere.
    void CollectVariable(const TTokens &tokens, TIndex use, int depth, QStringList &texts) {
        const QString &name = tokens[use].text;
        for (TIndex i = use; i-- > 0;)
            if (tokens[i].text == name && IsDefined(tokens, i))
                return Collect(tokens, Until(tokens, i + 2, {";"}), depth, texts);
        if (const auto found = constants_.find(name); found != constants_.end()) {
            const auto &[others, at] = found->second;
            Collect(*others, Until(*others, at + 2, {";"}), depth, texts);
        }
    }
    static bool IsDefined(const TTokens &tokens, TIndex at) {
        return at > 0 && IsWord(tokens, at) && Is(tokens, at + 1, "=") &&
               !Is(tokens, at + 2, "=") &&
               (IsWord(tokens, at - 1) || Is(tokens, at - 1, "*") || Is(tokens, at - 1, "&"));
    }
    static bool IsConstant(const TTokens &tokens, TIndex at) {
        while (at-- > 0 && !Is(tokens, at, ";") && !Is(tokens, at, "}"))
            if (Is(tokens, at, "constexpr"))
                return true;
        return false;
    }

    using TPlace = std::pair<const TTokens *, TIndex>;

    const TSources &sources_;
    std::multimap<QString, TPlace> functions_; ///< that make texts
    std::map<QString, TPlace> constants_;
    QString file_;
    const TTokens *tokens_ = nullptr;
    std::set<QString> helpers_;
    std::vector<TRaise> raises_;
};
} // namespace

std::vector<TRaise> RaisesIn(const TSources &sources) {
    return TFinder(sources).Run();
}

QStringList Fragments(const QString &literal) {
    static const QRegularExpression gap("%L?[0-9]|\n");
    static const QRegularExpression letter("[A-Za-z]");
    QStringList fragments;
    for (const QString &piece : literal.section('|', 0, 0).split(gap))
        if (piece.contains(letter))
            fragments << piece.trimmed();
    return fragments;
}

QStringList LiteralsIn(const TSources &sources) {
    QStringList literals;
    for (const auto &[file, tokens] : sources)
        for (const TToken &token : tokens)
            if (token.kind == TToken::Text)
                literals << token.text;
    return literals;
}

QStringList ClassesDerivedFrom(const TSources &sources, const QString &base) {
    QStringList classes;
    for (const auto &[file, tokens] : sources)
        for (TIndex i = 0; i + 4 < tokens.size(); ++i)
            if (Is(tokens, i, "class") && Is(tokens, i + 2, ":") && Is(tokens, i + 3, "public") &&
                tokens[i + 4].text == base)
                classes << tokens[i + 1].text;
    return classes;
}
