// Walks a worked example of README.md: reads its steps from left to right, does what they tell to
// do and checks what they claim. What it reads is a table of sentences; a quoted text, a number or
// a file name that no sentence of the table takes in ends the walk, so that nothing of a step goes
// unchecked.
#pragma once

#include "ReadmeHands.h"

#include <set>

#include <QRegularExpression>
#include <QStringList>

class TReadmeWalk {
public:
    /// The samples lie in the session's folder.
    explicit TReadmeWalk(TSession &session);

    /// @return what is not as the steps say, with the step; empty when all is
    QString Walk(const std::vector<QString> &steps);

    /// The patterns of the table, and which of them were taken in so far.
    static QStringList Patterns();
    QStringList Used() const { return used_; }

private:
    struct TSentence {
        const char *pattern;
        void (TReadmeWalk::*act)();
    };
    static const std::vector<TSentence> &Table();

    void Step(const QString &text);
    QString Part(int index) const { return match_.captured(index); }
    int Number(int index) const { return Part(index).toInt(); }
    int Address(int index) const { return Part(index).toInt(nullptr, 16); }
    /// What the step names there, or behind there, in the pattern's brackets.
    QString Named(const char *pattern, qsizetype from = 0) const;
    static void Expect(bool condition, const QString &what);

    // What the reader does.
    void Tab() { hands_.Tab(Part(1)); }
    void Press();
    void ShowAndHideKey();
    void Check() { hands_.Check(Part(1)); }
    void Choose() { hands_.Choose(Part(1)); }
    void ChooseInMenu() { hands_.ChooseInMenu(Part(1), Part(2)); }
    void ChooseInWindowMenu() { hands_.ChooseInWindowMenu(Part(1)); }
    void ChooseAndAnswer();
    void ChooseInSameMenu() { hands_.ChooseInSameMenu(Part(1)); }
    void RememberMenu() { hands_.RememberMenu(Part(1)); }
    void ChooseAtByte();
    void ClickByte() { hands_.ClickByte(Address(1)); }
    void ClickInRow();
    void TypeIntoCell();
    void ClosePages();
    void DrawLine();

    // What the README claims.
    void ExpectFirstFolder();
    void ExpectFolder();
    void ExpectPath();
    void ExpectLoaded();
    void ExpectSaved();
    void ExpectLabel();
    void ExpectByteAsTrim();
    void ExpectColor();
    void ExpectPlain();
    void ExpectChanges();
    void ExpectOldValue();
    void ExpectLikely();
    void ExpectGiven();
    void ExpectDifference();
    void ExpectRowLength();
    void ExpectOneMapEach();
    void ExpectTabs();
    void ExpectPage();
    void ExpectFalsePages();
    void ExpectFirstBytes();
    void ExpectChanceFinds();
    void ExpectLinearFinds();
    void ExpectClearing();
    void TakeResemblance();
    void ExpectResemblance() const;
    void ExpectMention();

    QString TabOf(int address) const;
    /// Where maps are marked: the cells before those of the colour of an axis count.
    std::set<int> Marked();
    /// The maps marked now and not in `before_`.
    std::set<int> NewlyMarked();

    /// What the steps have said and done so far.
    struct TMemory {
        QString answer;              ///< typed into an input box
        std::vector<int> falsePages; ///< addresses of added pages that show no map
        std::set<int> marked;        ///< before the searches of maps with one axis
        QString idleRow, wotRow; ///< "first" or "last": which row of part throttle they resemble
    };

    TSession &session_;
    TReadmeHands hands_;
    QString text_;                  ///< of the step
    QRegularExpressionMatch match_; ///< the sentence that is acted on
    QStringList used_;
    TMemory memory_;
};
